#include "ItemNumbers.h"

#include "CItemModel.h"
#include "CWidgetProperty.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"
#include "PropertyWords.h"

#include <QCoreApplication>

namespace {
QString keyOf(const QString &name)
{
    static const QHash<QString, QString> shortNames = {{PropertyKey::ShortX, PropertyKey::X},
                                                       {PropertyKey::ShortY, PropertyKey::Y},
                                                       {QStringLiteral("x2"), PropertyKey::X2},
                                                       {QStringLiteral("y2"), PropertyKey::Y2}};
    const QString key = name.toLower();
    for (const char *letter : {"W", "H"}) { // and as the panel has them
        const QString shown = QCoreApplication::translate("CPropertyLayout", letter);
        if (key == QString::fromLatin1(letter).toLower() || key == shown.toLower())
            return *letter == 'W' ? PropertyKey::Width : PropertyKey::Height;
    }
    return shortNames.value(key, key);
}
} // namespace

std::optional<double> ItemNumbers::find(const CItemModel &item, const QString &name)
{
    QString key = item.hasProperty(name) ? name : keyOf(name);
    if (!item.hasProperty(key))
        key = PropertyWords::keyOf(item, name);
    const auto property = item.properties().constFind(key);
    if (property != item.properties().constEnd()) {
        const PropertyType type = property->propertyType();
        if (type == PropertyType::Int || type == PropertyType::Float)
            return property->value().toDouble() / PropertyWords::unit(item, key);
    }
    key = keyOf(name);
    if (key == PropertyKey::Width)
        return ItemGeometry::frameOf(item).width();
    if (key == PropertyKey::Height)
        return ItemGeometry::frameOf(item).height();
    if (key == PropertyKey::Radius && item.hasProperty(PropertyKey::PointSize))
        return item.propertyValue(PropertyKey::PointSize).toDouble() /
               ItemGeometry::PointSizeOfPixel;
    return {};
}
