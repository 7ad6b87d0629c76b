#include "CItemGeometry.h"

#include "PropertyKey.h"

#include <QHash>

#include <cmath>

namespace {
enum class Derived {
    Nothing,
    X,
    Y,
    X2,
    Y2,
    Width,
    Height,
    Radius,
    PointSize,
    Angle,
    PointList,
    Resizeable,
    HeightFromFont,
    Font,
};

Derived derivedFrom(const QString &name)
{
    static const QHash<QString, Derived> table = {
        {PropertyKey::X, Derived::X},
        {PropertyKey::ShortX, Derived::X},
        {PropertyKey::Y, Derived::Y},
        {PropertyKey::ShortY, Derived::Y},
        {PropertyKey::X2, Derived::X2},
        {PropertyKey::Y2, Derived::Y2},
        {PropertyKey::Width, Derived::Width},
        {PropertyKey::Height, Derived::Height},
        {PropertyKey::Radius, Derived::Radius},
        {PropertyKey::PointSize, Derived::PointSize},
        {PropertyKey::Angle, Derived::Angle},
        {PropertyKey::PointList, Derived::PointList},
        {PropertyKey::Resizeable, Derived::Resizeable},
        {PropertyKey::HeightFromFont, Derived::HeightFromFont},
        {PropertyKey::Font, Derived::Font}};
    return table.value(name, Derived::Nothing);
}

double numberOf(const QVariant &value)
{
    const double number = value.toDouble();
    return std::isfinite(number) ? number : 0.0;
}

QString wholeNumberText(double value)
{
    return QString::number(roundedToInteger(value));
}
} // namespace

bool CItemGeometry::isGeometry(const QString &name)
{
    return derivedFrom(name) != Derived::Nothing;
}

void CItemGeometry::apply(const QString &name, const QVariant &value, IProperties &properties)
{
    switch (derivedFrom(name)) {
    case Derived::Nothing:
        break;
    case Derived::X:
        m_values.x = numberOf(value);
        deriveWidth();
        break;
    case Derived::Y:
        m_values.y = numberOf(value);
        deriveHeight();
        break;
    case Derived::X2:
        m_values.mode = GeometryMode::TwoCorners;
        m_values.x2 = numberOf(value);
        deriveWidth();
        break;
    case Derived::Y2:
        m_values.mode = GeometryMode::TwoCorners;
        m_values.y2 = numberOf(value);
        deriveHeight();
        break;
    case Derived::Width:
        setWidth(numberOf(value), properties);
        break;
    case Derived::Height:
        setHeight(numberOf(value), properties);
        break;
    case Derived::Radius:
        m_values.mode = GeometryMode::Radius;
        setRadius(std::abs(numberOf(value)), properties);
        break;
    case Derived::PointSize:
        m_values.mode = GeometryMode::PointSize;
        setRadius(std::abs(numberOf(value) / ItemGeometry::PointSizeOfPixel), properties);
        break;
    case Derived::Angle:
        setAngle(numberOf(value), properties);
        m_values.hasAngle = true;
        break;
    case Derived::PointList:
        m_values.hasPointList = true;
        break;
    case Derived::Resizeable:
        m_values.resizeable = value.toBool();
        if (!m_values.resizeable) // sized like a radius item
            m_values.mode = GeometryMode::Radius;
        break;
    case Derived::HeightFromFont:
        m_values.heightFromFont = value.toBool();
        break;
    case Derived::Font:
        m_values.fontHandle = value.toInt();
        break;
    }
}

void CItemGeometry::setRadius(double radius, IProperties &properties)
{
    if (m_values.mode != GeometryMode::Radius && m_values.mode != GeometryMode::PointSize)
        return;
    m_values.radius = radius;
    m_values.width = 2 * radius;
    m_values.height = 2 * radius;
    properties.storeDerived(PropertyKey::Width, m_values.width);
    properties.storeDerived(PropertyKey::Height, m_values.height);
}

/// A size in the modes in which width and height are one.
void CItemGeometry::setRoundSize(double size, IProperties &properties)
{
    constexpr double unit = ItemGeometry::PointSizeOfPixel;
    if (m_values.mode == GeometryMode::Radius) {
        m_values.radius = std::abs(double(roundedToInteger(size / 2)));
        properties.writeBack(PropertyKey::Radius, wholeNumberText(m_values.radius), false);
    } else {
        m_values.radius = std::abs(double(roundedToInteger(size / 2 * unit)) / unit);
        properties.writeBack(PropertyKey::PointSize, wholeNumberText(m_values.radius * unit),
                             false);
    }
    m_values.width = size; // the write-back has put the rounded size there
    m_values.height = size;
}

void CItemGeometry::setWidth(double width, IProperties &properties)
{
    switch (m_values.mode) {
    case GeometryMode::Radius:
    case GeometryMode::PointSize:
        setRoundSize(width, properties);
        return;
    case GeometryMode::TwoCorners:
        properties.writeBack(PropertyKey::X2, wholeNumberText(m_values.x + width), true);
        break;
    case GeometryMode::Box:
        properties.writeBack(PropertyKey::Width, wholeNumberText(width), true);
        break;
    }
    m_values.width = width;
}

void CItemGeometry::setHeight(double height, IProperties &properties)
{
    switch (m_values.mode) {
    case GeometryMode::Radius:
    case GeometryMode::PointSize:
        setRoundSize(height, properties);
        return;
    case GeometryMode::TwoCorners:
        properties.writeBack(PropertyKey::Y2, wholeNumberText(m_values.y + height), true);
        break;
    case GeometryMode::Box:
        properties.writeBack(PropertyKey::Height, wholeNumberText(height), true);
        break;
    }
    m_values.height = height;
}

void CItemGeometry::setAngle(double degrees, IProperties &properties)
{
    m_values.angle = degrees;
    properties.writeBack(PropertyKey::Angle, degrees, false);
}

void CItemGeometry::deriveWidth()
{
    if (m_values.mode == GeometryMode::TwoCorners)
        m_values.width = m_values.x2 - m_values.x;
}

void CItemGeometry::deriveHeight()
{
    if (m_values.mode == GeometryMode::TwoCorners)
        m_values.height = m_values.y2 - m_values.y;
}
