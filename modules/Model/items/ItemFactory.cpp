#include "ItemFactory.h"

#include "CWidgetGroupModel.h"
#include "CWidgetModel.h"
#include "PropertyKey.h"

CItemModel *ItemFactory::make(const QString &tag, const CWidgetLibraryModel *library,
                              IPropertyChangeObserver *observer)
{
    if (tag == TypeName::Group)
        return new CWidgetGroupModel(library, observer);
    return new CWidgetModel(tag, library, observer);
}
