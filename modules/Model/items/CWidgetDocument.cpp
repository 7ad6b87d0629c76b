#include "CWidgetDocument.h"

#include "CItemModel.h"
#include "CPropertyTable.h"
#include "CWidgetLibraryModel.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

#include <QVarLengthArray>

#include <algorithm>
#include <limits>

namespace {
/// Negative when the item's kind has no such property.
int indexOf(const CItemModel &item, const QString &name)
{
    return item.library() ? item.library()->propertyIndex(item.itemTypeName(), name) : -1;
}

/// Where an attribute stands in the order in which attributes take effect; documents have them in
/// any order. Sizes come first, so that a radius or corner that is given too decides.
int orderOf(const CItemModel &item, const QString &name)
{
    if (name == PropertyKey::Width || name == PropertyKey::Height)
        return -1;
    const int index = indexOf(item, name);
    return index < 0 ? std::numeric_limits<int>::max() : index;
}

/// The property that an attribute sets: "x" and "y" are short for the coordinates of a kind that
/// has these.
const QString &keyOf(const CItemModel &item, const QString &attribute)
{
    const bool isX = attribute == PropertyKey::ShortX;
    if (!isX && attribute != PropertyKey::ShortY)
        return attribute;
    const QString &key = isX ? PropertyKey::X : PropertyKey::Y;
    return indexOf(item, key) >= 0 && indexOf(item, attribute) < 0 ? key : attribute;
}

bool isSaved(const CItemModel &item, const CWidgetProperty &property)
{
    if (property.key().isEmpty() || property.isInternal())
        return false;
    const bool isSize =
        property.key() == PropertyKey::Width || property.key() == PropertyKey::Height;
    // Derived on reading; but what an unknown kind has is kept as it came.
    return !isSize || item.geometryMode() == GeometryMode::Box || !item.library() ||
           !item.library()->contains(item.itemTypeName());
}
} // namespace

void CWidgetDocument::take(CItemModel &item, const ItemAttributes &attributes) const
{
    struct Step
    {
        int order;
        const QString *key;
        const ItemAttribute *attribute;
    };
    QVarLengthArray<Step, 32> steps;
    CPropertyTable &table = tableOf(item);
    for (const ItemAttribute &attribute : attributes) {
        const QString &key = keyOf(item, attribute.name);
        CWidgetProperty *property = table.findForChange(key);
        if (!property) {
            table.insert(CWidgetProperty(key, PropertyType::String));
            property = table.findForChange(key);
        }
        if (isDerivedFrom(key))
            steps.append({orderOf(item, key), &key, &attribute});
        else
            property->setValueFromText(attribute.text);
    }
    std::sort(steps.begin(), steps.end(), [](const Step &a, const Step &b) {
        return a.order != b.order ? a.order < b.order : a.attribute->name < b.attribute->name;
    });
    for (const Step &step : qAsConst(steps)) {
        CWidgetProperty *property = table.findForChange(*step.key);
        property->setValueFromText(step.attribute->text);
        item.applyProperty(*step.key, QVariant(property->value()));
    }
}

QVector<const CWidgetProperty *> CWidgetDocument::saved(const CItemModel &item) const
{
    QVector<const CWidgetProperty *> saved = tableOf(item).ordered(
        item.library() ? item.library()->propertyKeys(item.itemTypeName()) : QStringList());
    const auto isLeftOut = [&item](const CWidgetProperty *each) { return !isSaved(item, *each); };
    saved.erase(std::remove_if(saved.begin(), saved.end(), isLeftOut), saved.end());
    return saved;
}
