// What a CItemModel derives from its properties: its name and id, and its geometry.
#include "CItemModel.h"

#include "PropertyKey.h"

#include <algorithm>
#include <cmath>

namespace {
/// What an item derives from a property of its own.
enum class Derived {
    Nothing,
    Name,
    Id,
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
    Locked,
};

Derived derivedFrom(const QString &name)
{
    static const QHash<QString, Derived> table = {
        {PropertyKey::Name, Derived::Name},
        {PropertyKey::Id, Derived::Id},
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
        {PropertyKey::Font, Derived::Font},
        {PropertyKey::Locked, Derived::Locked}};
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

bool CItemModel::isDerivedFrom(const QString &name)
{
    return derivedFrom(name) != Derived::Nothing;
}

void CItemModel::applyProperty(const QString &name, const QVariant &value)
{
    switch (derivedFrom(name)) {
    case Derived::Nothing:
        break;
    case Derived::Name:
        m_name = value.toString();
        QStandardItem::setData(m_name, Qt::DisplayRole);
        break;
    case Derived::Id:
        m_id = value.toUInt();
        m_idText = value.toString();
        m_idTextUtf8 = m_idText.toUtf8();
        break;
    case Derived::X:
        m_geometry.x = numberOf(value);
        deriveWidth();
        break;
    case Derived::Y:
        m_geometry.y = numberOf(value);
        deriveHeight();
        break;
    case Derived::X2:
        m_geometry.mode = GeometryMode::TwoCorners;
        m_geometry.x2 = numberOf(value);
        deriveWidth();
        break;
    case Derived::Y2:
        m_geometry.mode = GeometryMode::TwoCorners;
        m_geometry.y2 = numberOf(value);
        deriveHeight();
        break;
    case Derived::Width:
        setWidth(numberOf(value));
        break;
    case Derived::Height:
        setHeight(numberOf(value));
        break;
    case Derived::Radius:
        m_geometry.mode = GeometryMode::Radius;
        setRadius(std::abs(numberOf(value)));
        break;
    case Derived::PointSize:
        m_geometry.mode = GeometryMode::PointSize;
        setRadius(std::abs(numberOf(value) / ItemGeometry::PointSizeOfPixel));
        break;
    case Derived::Angle:
        setAngle(numberOf(value));
        m_geometry.hasAngle = true;
        break;
    case Derived::PointList:
        m_geometry.hasPointList = true;
        break;
    case Derived::Resizeable:
        m_geometry.resizeable = value.toBool();
        if (!m_geometry.resizeable) // sized like a radius item
            m_geometry.mode = GeometryMode::Radius;
        break;
    case Derived::HeightFromFont:
        m_geometry.heightFromFont = value.toBool();
        break;
    case Derived::Font:
        m_geometry.fontHandle = value.toInt();
        break;
    case Derived::Locked:
        m_locked = m_kind != Kind::Screen && value.toBool();
        emitDataChanged(); // views show a lock
        break;
    }
}

void CItemModel::setRadius(double radius)
{
    if (m_geometry.mode != GeometryMode::Radius && m_geometry.mode != GeometryMode::PointSize)
        return;
    m_geometry.radius = radius;
    m_geometry.width = 2 * radius;
    m_geometry.height = 2 * radius;
    storeDerivedSize(PropertyKey::Width, m_geometry.width);
    storeDerivedSize(PropertyKey::Height, m_geometry.height);
}

/// Keeps a size property that follows from another one up to date, so that setting it back to what
/// it was (as an undo does) gives the defining property back as well.
void CItemModel::storeDerivedSize(const QString &name, double size)
{
    CWidgetProperty *property = findProperty(name);
    if (property && !keepsText(*property))
        property->setValue(size);
}

/// A size in the modes in which width and height are one.
void CItemModel::setRoundSize(double size)
{
    if (m_geometry.mode == GeometryMode::Radius) {
        m_geometry.radius = std::abs(double(roundedToInteger(size * 0.5)));
        writeBack(PropertyKey::Radius, wholeNumberText(m_geometry.radius), Notify::No);
    } else {
        m_geometry.radius =
            std::abs(double(roundedToInteger(size * 8)) / ItemGeometry::PointSizeOfPixel);
        writeBack(PropertyKey::PointSize,
                  wholeNumberText(m_geometry.radius * ItemGeometry::PointSizeOfPixel), Notify::No);
    }
    m_geometry.width = size; // the write-back has put the rounded size there
    m_geometry.height = size;
}

void CItemModel::setWidth(double width)
{
    switch (m_geometry.mode) {
    case GeometryMode::Radius:
    case GeometryMode::PointSize:
        setRoundSize(width);
        break;
    case GeometryMode::TwoCorners:
        writeBack(PropertyKey::X2, wholeNumberText(x() + width), Notify::Yes);
        m_geometry.width = width;
        break;
    case GeometryMode::Box:
        writeBack(PropertyKey::Width, wholeNumberText(width), Notify::Yes);
        m_geometry.width = width;
        break;
    }
}

void CItemModel::setHeight(double height)
{
    switch (m_geometry.mode) {
    case GeometryMode::Radius:
    case GeometryMode::PointSize:
        setRoundSize(height);
        break;
    case GeometryMode::TwoCorners:
        writeBack(PropertyKey::Y2, wholeNumberText(y() + height), Notify::Yes);
        m_geometry.height = height;
        break;
    case GeometryMode::Box:
        writeBack(PropertyKey::Height, wholeNumberText(height), Notify::Yes);
        m_geometry.height = height;
        break;
    }
}

void CItemModel::setAngle(double degrees)
{
    m_geometry.angle = degrees;
    writeBack(PropertyKey::Angle, degrees, Notify::No);
}

/// Stores a derived value in the property that defines it, if the item has that property.
void CItemModel::writeBack(const QString &name, const QVariant &value, Notify notify)
{
    const auto it = m_properties.constFind(name);
    if (it == m_properties.constEnd())
        return;
    // A box has nothing to agree with but its own text.
    const bool keepText = keepsText(*it) || (m_loading && m_geometry.mode == GeometryMode::Box);
    if (!keepText)
        setPropertyIfChanged(name, value, notify);
}

/// Whether the text of a document is being taken that the library does not know: it stays as it
/// was written. Sizes of a known kind that are given twice are made to agree.
bool CItemModel::keepsText(const CWidgetProperty &property) const
{
    return m_loading && property.propertyType() == PropertyType::String;
}

void CItemModel::deriveWidth()
{
    if (m_geometry.mode == GeometryMode::TwoCorners)
        m_geometry.width = m_geometry.x2 - m_geometry.x;
}

void CItemModel::deriveHeight()
{
    if (m_geometry.mode == GeometryMode::TwoCorners)
        m_geometry.height = m_geometry.y2 - m_geometry.y;
}
