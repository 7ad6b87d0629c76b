#include "CScreenDocument.h"

#include "CItemModel.h"
#include "CPropertyTable.h"
#include "CScreenModel.h"
#include "PropertyKey.h"

QVector<const CWidgetProperty *> CScreenDocument::saved(const CItemModel &item) const
{
    QVector<const CWidgetProperty *> saved;
    for (const CWidgetProperty *each : tableOf(item).ordered(CScreenModel::builtInKeys())) {
        if (!each->key().isEmpty() && !each->isInternal())
            saved.append(each);
    }
    const CWidgetProperty &guides = static_cast<const CScreenModel &>(item).guidesAttribute();
    if (!guides.textUtf8().isEmpty())
        saved.append(&guides);
    return saved;
}

void CScreenDocument::take(CItemModel &item, const ItemAttributes &attributes) const
{
    const ItemAttributes sorted = sortedByName(attributes);
    for (const ItemAttribute &attribute : sorted) {
        if (attribute.name == PropertyKey::Guides) {
            static_cast<CScreenModel &>(item).loadGuides(attribute.text);
            continue;
        }
        CWidgetProperty property(attribute.name, PropertyType::String);
        property.setValueFromText(attribute.text);
        item.addProperty(property);
    }
}
