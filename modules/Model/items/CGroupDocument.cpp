#include "CGroupDocument.h"

#include "CItemModel.h"
#include "CPropertyTable.h"
#include "CWidgetGroupModel.h"

QVector<const CWidgetProperty *> CGroupDocument::saved(const CItemModel &item) const
{
    return tableOf(item).ordered(CWidgetGroupModel::builtInKeys());
}

void CGroupDocument::take(CItemModel &item, const ItemAttributes &attributes) const
{
    const ItemAttributes sorted = sortedByName(attributes);
    for (const ItemAttribute &attribute : sorted) {
        const CWidgetProperty *known = tableOf(qAsConst(item)).find(attribute.name);
        CWidgetProperty property =
            known ? *known : CWidgetProperty(attribute.name, PropertyType::String);
        property.setValueFromText(attribute.text);
        item.addProperty(property);
    }
}
