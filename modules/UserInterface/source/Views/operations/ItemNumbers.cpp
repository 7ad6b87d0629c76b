#include "ItemNumbers.h"

#include "CItemModel.h"
#include "CWidgetProperty.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

namespace {
QString keyOf(const QString &name)
{
    static const QHash<QString, QString> shortNames = {{PropertyKey::ShortX, PropertyKey::X},
                                                       {PropertyKey::ShortY, PropertyKey::Y},
                                                       {QStringLiteral("x2"), PropertyKey::X2},
                                                       {QStringLiteral("y2"), PropertyKey::Y2}};
    const QString key = name.toLower();
    return shortNames.value(key, key);
}
} // namespace

std::optional<double> ItemNumbers::find(const CItemModel &item, const QString &name)
{
    QString key = keyOf(name);
    if (key == PropertyKey::Radius && !item.hasProperty(key))
        key = PropertyKey::PointSize; // which users see as a radius, in pixels
    const auto property = item.properties().constFind(key);
    if (property != item.properties().constEnd()) {
        const PropertyType type = property->propertyType();
        const double unit = key == PropertyKey::PointSize ? ItemGeometry::PointSizeOfPixel : 1;
        if (type == PropertyType::Int || type == PropertyType::Float)
            return property->value().toDouble() / unit;
    }
    if (key == PropertyKey::Width)
        return ItemGeometry::frameOf(item).width();
    if (key == PropertyKey::Height)
        return ItemGeometry::frameOf(item).height();
    return {};
}
