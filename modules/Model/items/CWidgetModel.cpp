#include "CWidgetModel.h"

#include "ItemXml.h"
#include "PropertyKey.h"

#include <QBrush>
#include <QVarLengthArray>

#include <algorithm>
#include <limits>

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

/// Where an attribute stands in the order in which attributes take effect; documents have them in
/// any order. Sizes come first, so that a radius or corner that is given too decides.
int CWidgetModel::orderOf(const QString &name) const
{
    if (name == PropertyKey::Width || name == PropertyKey::Height)
        return -1;
    const int index = library() ? library()->propertyIndex(itemTypeName(), name) : -1;
    return index < 0 ? std::numeric_limits<int>::max() : index;
}

/// The property that an attribute sets: "x" and "y" are short for the coordinates of a kind that
/// has these.
const QString &CWidgetModel::keyOf(const QString &attribute) const
{
    const bool isX = attribute == PropertyKey::ShortX;
    if (!isX && attribute != PropertyKey::ShortY)
        return attribute;
    const QString &key = isX ? PropertyKey::X : PropertyKey::Y;
    return isBuiltIn(key) && !isBuiltIn(attribute) ? key : attribute;
}

void CWidgetModel::takeAttributes(const ItemAttributes &attributes)
{
    struct Step
    {
        int order;
        const QString *key;
        const ItemAttribute *attribute;
    };
    QVarLengthArray<Step, 32> steps;
    for (const ItemAttribute &attribute : attributes) {
        const QString &key = keyOf(attribute.name);
        CWidgetProperty *property = findProperty(key);
        if (!property) {
            insertProperty(CWidgetProperty(key, PropertyType::String));
            property = findProperty(key);
        }
        if (isDerivedFrom(key))
            steps.append({orderOf(key), &key, &attribute});
        else
            property->setValueFromText(attribute.text);
    }
    std::sort(steps.begin(), steps.end(), [](const Step &a, const Step &b) {
        return a.order != b.order ? a.order < b.order : a.attribute->name < b.attribute->name;
    });
    for (const Step &step : qAsConst(steps)) {
        CWidgetProperty *property = findProperty(*step.key);
        property->setValueFromText(step.attribute->text);
        applyProperty(*step.key, QVariant(property->value()));
    }
}

bool CWidgetModel::isSaved(const CWidgetProperty &property) const
{
    if (property.key().isEmpty() || property.isInternal())
        return false;
    const bool isSize =
        property.key() == PropertyKey::Width || property.key() == PropertyKey::Height;
    // Derived on reading; but what an unknown kind has is kept as it came.
    return !isSize || geometryMode() == GeometryMode::Box || !library() ||
           !library()->contains(itemTypeName());
}

QVector<const CWidgetProperty *> CWidgetModel::savedProperties() const
{
    QVector<const CWidgetProperty *> saved =
        orderedProperties(library() ? library()->propertyKeys(itemTypeName()) : QStringList());
    const auto isLeftOut = [this](const CWidgetProperty *each) { return !isSaved(*each); };
    saved.erase(std::remove_if(saved.begin(), saved.end(), isLeftOut), saved.end());
    return saved;
}

CItemModel *CWidgetModel::cloneEmpty() const
{
    return new CWidgetModel(itemTypeName(), library(), observer());
}

bool CWidgetModel::isBuiltIn(const QString &name) const
{
    return library() && library()->propertyIndex(itemTypeName(), name) >= 0;
}
