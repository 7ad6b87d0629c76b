#include "CGroupDocument.h"

#include "CItemModel.h"
#include "CPropertyTable.h"
#include "CWidgetGroupModel.h"

#include <algorithm>

QVector<const CWidgetProperty *> CGroupDocument::saved(const CItemModel &item) const
{
    return tableOf(item).ordered(CWidgetGroupModel::builtInKeys());
}

/// By name: documents have them in any order, and of sizes that contradict each other the last one
/// decides.
void CGroupDocument::take(CItemModel &item, const ItemAttributes &attributes) const
{
    ItemAttributes sorted = attributes;
    std::sort(sorted.begin(), sorted.end(),
              [](const ItemAttribute &a, const ItemAttribute &b) { return a.name < b.name; });
    for (const ItemAttribute &attribute : qAsConst(sorted)) {
        const CWidgetProperty *known = tableOf(qAsConst(item)).find(attribute.name);
        CWidgetProperty property =
            known ? *known : CWidgetProperty(attribute.name, PropertyType::String);
        property.setValueFromText(attribute.text);
        item.addProperty(property);
    }
}
