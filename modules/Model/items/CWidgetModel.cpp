#include "CWidgetModel.h"

#include "CWidgetLibraryModel.h"
#include "ItemXml.h"

#include <QBrush>

CWidgetModel::CWidgetModel(const QString &typeName, const CWidgetLibraryModel *library,
                           IPropertyChangeObserver *observer)
    : CItemModel(Kind::Widget, typeName, library, observer)
{
    static const QVariant green = QBrush(Qt::green);
    setData(green, Qt::ForegroundRole);
    setEditable(false);
    if (library) // in the library's order; the set itself is shared until the first change
        takePropertySet(library->propertySet(typeName), library->propertyKeys(typeName));
}

void CWidgetModel::loadFromElement(const QDomElement &element)
{
    ItemXml::read(*this, element);
}

void CWidgetModel::saveToElement(QDomElement &element) const
{
    ItemXml::write(*this, element);
}

CItemModel *CWidgetModel::cloneEmpty() const
{
    return new CWidgetModel(itemTypeName(), library(), observer());
}

bool CWidgetModel::isBuiltIn(const QString &name) const
{
    return library() && library()->propertyIndex(itemTypeName(), name) >= 0;
}
