#include "CScreenDocument.h"

#include "CItemModel.h"
#include "CPropertyTable.h"
#include "CScreenModel.h"

QVector<const CWidgetProperty *> CScreenDocument::saved(const CItemModel &item) const
{
    QVector<const CWidgetProperty *> saved;
    for (const CWidgetProperty *each : tableOf(item).ordered(CScreenModel::builtInKeys())) {
        if (!each->key().isEmpty() && !each->isInternal())
            saved.append(each);
    }
    return saved;
}

void CScreenDocument::take(CItemModel &item, const ItemAttributes &attributes) const
{
    const ItemAttributes sorted = sortedByName(attributes);
    for (const ItemAttribute &attribute : sorted) {
        CWidgetProperty property(attribute.name, PropertyType::String);
        property.setValueFromText(attribute.text);
        item.addProperty(property);
    }
}
