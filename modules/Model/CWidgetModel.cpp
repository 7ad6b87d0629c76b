#include "CWidgetModel.h"

#include "ItemXml.h"
#include "PropertyKey.h"

#include <QBrush>

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

void CWidgetModel::takeAttributes(const ItemAttributes &attributes)
{
    // First all values, then what follows from them in an order of our own: attributes come in any.
    struct Step
    {
        int order; ///< the library's, then whatever it does not know
        QString name;
    };
    QVector<Step> steps;
    for (const ItemAttribute &attribute : attributes) {
        CWidgetProperty *property = findProperty(attribute.name);
        if (!property) {
            CWidgetProperty extra(attribute.name, PropertyType::String);
            addProperty(extra);
            property = findProperty(attribute.name);
        }
        property->setValueFromText(attribute.text);
        if (!isDerivedFrom(attribute.name))
            continue;
        const int index = library() ? library()->propertyIndex(itemTypeName(), attribute.name) : -1;
        steps.append({index < 0 ? std::numeric_limits<int>::max() : index, attribute.name});
    }
    std::sort(steps.begin(), steps.end(), [](const Step &a, const Step &b) {
        return a.order != b.order ? a.order < b.order : a.name < b.name;
    });
    for (const Step &step : qAsConst(steps))
        applyProperty(step.name, propertyValue(step.name));
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
