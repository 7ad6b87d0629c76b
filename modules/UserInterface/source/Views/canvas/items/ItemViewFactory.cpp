#include "ItemViewFactory.h"

#include "CHeightFromFontItemView.h"
#include "CItemModel.h"
#include "CMultiPointItemView.h"
#include "CTextItemView.h"
#include "CWidgetGroupView.h"
#include "ItemText.h"

CItemView *ItemViewFactory::create(CItemModel *item, const ICanvas &canvas)
{
    if (item->kind() == CItemModel::Kind::Group)
        return new CWidgetGroupView(item, canvas);
    if (item->hasPointList())
        return new CMultiPointItemView(item, canvas);
    if (item->isHeightFromFont())
        return new CHeightFromFontItemView(item, canvas);
    if (!ItemText::keyOf(*item).isEmpty())
        return new CTextItemView(item, canvas);
    return new CItemView(item, canvas);
}
