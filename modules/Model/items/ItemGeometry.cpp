#include "ItemGeometry.h"

#include "CItemModel.h"
#include "ItemText.h"
#include "PointList.h"
#include "PropertyKey.h"
#include "RomFonts.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
constexpr double SizeOfSizeless = 15;
constexpr int HeightOfUnknownFont = 49;

/// Unlike QRectF::united(), which leaves out what has no area.
void unite(QRectF &all, const QRectF &other, bool isFirst)
{
    if (isFirst)
        all = other;
    else
        all.setCoords(std::min(all.left(), other.left()), std::min(all.top(), other.top()),
                      std::max(all.right(), other.right()), std::max(all.bottom(), other.bottom()));
}

bool hasSizeProperty(const CItemModel &item)
{
    const auto keys = {PropertyKey::Width, PropertyKey::Height, PropertyKey::Radius,
                       PropertyKey::PointSize, PropertyKey::X2};
    return std::any_of(keys.begin(), keys.end(),
                       [&item](const QString &key) { return item.hasProperty(key); });
}

QRectF boxOf(const CItemModel &item)
{
    if (item.kind() != CItemModel::Kind::Group && !hasSizeProperty(item))
        return {0, 0, SizeOfSizeless, SizeOfSizeless};
    const QSizeF size(item.width(), item.height());
    return ItemGeometry::isCentred(item)
               ? QRectF(QPointF(-size.width() / 2, -size.height() / 2), size)
               : QRectF(QPointF(), size);
}

/// An empty group counts by its position.
QRectF frameOfGroup(const CItemModel &group)
{
    QVector<CItemModel *> members;
    for (int row = 0; row < group.rowCount(); ++row) {
        if (CItemModel *member = group.childItem(row))
            members.append(member);
    }
    return members.isEmpty() ? boxOf(group)
                             : ItemGeometry::frameOf(members).translated(-group.x(), -group.y());
}

/// Starts above the position, as such kinds are drawn.
QRectF frameOfFontHigh(const CItemModel &item)
{
    const int known = romfonts::height(item.fontHandle());
    const int height = known > 0 ? known : HeightOfUnknownFont;
    const int above = 10 * height / 32; // whole pixels, as the kinds' commands reckon
    const int tall = 20 * height / 16;
    return QRectF(0, -above, item.width(), tall);
}

QRectF frameOfText(const CItemModel &item, const QSizeF &text)
{
    QRectF frame = boxOf(item);
    if (!item.hasProperty(PropertyKey::Width) && text.width() > 0)
        frame.setWidth(text.width());
    if (!item.hasProperty(PropertyKey::Height))
        frame.setHeight(text.height());
    return frame;
}
} // namespace

const QStringList &ItemGeometry::keys()
{
    static const QStringList keys = {
        PropertyKey::X,      PropertyKey::Y,         PropertyKey::X2,
        PropertyKey::Y2,     PropertyKey::Width,     PropertyKey::Height,
        PropertyKey::Radius, PropertyKey::PointSize, PropertyKey::Angle};
    return keys;
}

double ItemGeometry::valueOf(const QString &key) const
{
    const double values[] = {x, y, x2, y2, width, height, radius, radius * PointSizeOfPixel, angle};
    return values[keys().indexOf(key)];
}

QRectF ItemGeometry::ownFrameOf(const CItemModel &item)
{
    if (item.kind() == CItemModel::Kind::Group)
        return frameOfGroup(item);
    if (item.hasPointList()) {
        const PointList::Points points = PointList::ofItem(item);
        return points.size() < 2 ? boxOf(item) : QPolygonF(points).boundingRect();
    }
    if (item.isHeightFromFont())
        return frameOfFontHigh(item);
    const QSizeF text = ItemText::sizeOf(item);
    return text.isValid() ? frameOfText(item, text) : boxOf(item);
}

QRectF ItemGeometry::frameOf(const CItemModel &item)
{
    return ownFrameOf(item).normalized().translated(item.x(), item.y());
}

QRectF ItemGeometry::frameOf(const QVector<CItemModel *> &items)
{
    QRectF all;
    for (const CItemModel *each : items)
        unite(all, frameOf(*each), each == items.constFirst());
    return all;
}

bool ItemGeometry::isCentred(const CItemModel &item)
{
    return item.hasProperty(PropertyKey::Radius) || item.hasProperty(PropertyKey::PointSize);
}

bool ItemGeometry::hasSize(const CItemModel &item)
{
    return item.kind() == CItemModel::Kind::Group || hasSizeProperty(item) ||
           ItemText::sizeOf(item).isValid();
}

qint64 roundedToInteger(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double lowest = std::numeric_limits<qint32>::min();
    constexpr double highest = std::numeric_limits<qint32>::max();
    return std::llround(std::clamp(value, lowest, highest));
}
