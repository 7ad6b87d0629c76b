#include "ItemOutline.h"

#include "CItemModel.h"
#include "ItemGeometry.h"
#include "PointList.h"
#include "PropertyKey.h"

#include <QLineF>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace {

const QString ThicknessKey = QStringLiteral("thickness");
const QString BorderKey = QStringLiteral("border");
const QString HeadKey = QStringLiteral("head");

constexpr double WidthOfHead = 0.6; // to each side, of the head's length
constexpr double LeastHead = 2;

double number(const CItemModel &item, const QString &key)
{
    return item.propertyValue(key).toDouble();
}

double strokeOf(const CItemModel &item)
{
    return std::clamp(number(item, ThicknessKey), 1.0, 128.0);
}

/// To a part of a unit, so that the last bit of a machine's arithmetic is not told.
double rounded(double value, int parts)
{
    return std::round(value * parts) / parts;
}

SItemOutline outlineOfLine(const CItemModel &item)
{
    const QLineF line(item.x(), item.y(), number(item, PropertyKey::X2),
                      number(item, PropertyKey::Y2));
    const double stroke = strokeOf(item);
    QPointF middle = line.center();
    double side = stroke / 2;
    if (item.hasProperty(HeadKey))
        side += WidthOfHead *
                std::clamp(number(item, HeadKey), 0.0, std::max(LeastHead, line.length() / 2));
    else if (int(stroke) % 2 != 0) // drawn on pixel centres
        middle += QPointF(0.5, 0.5);
    const double half = rounded((line.length() + stroke) / 2, 16); // the ends are round
    side = rounded(side, 16);
    const double turn = std::fmod(rounded(360 - line.angle(), 1000), 180); // either way round
    return {QRectF(middle - QPointF(half, side), middle + QPointF(half, side)), turn};
}

SItemOutline outlineOfPoints(const CItemModel &item)
{
    const PointList::Points points = PointList::ofItem(item);
    if (points.size() < PointList::minimumCount(item))
        return {};
    const double border = item.hasProperty(ThicknessKey) ? strokeOf(item) : number(item, BorderKey);
    const double side = std::max(0.0, border) / 2;
    const QRectF box = QPolygonF(points).boundingRect().translated(item.x(), item.y());
    return {box.adjusted(-side, -side, side, side), 0};
}

} // namespace

SItemOutline itemOutline(const CItemModel &item)
{
    if (item.hasProperty(PropertyKey::PointList))
        return outlineOfPoints(item);
    if (item.geometryMode() == GeometryMode::TwoCorners)
        return outlineOfLine(item);
    if (!ItemGeometry::hasSize(item)) // its frame is only there to be taken hold of
        return {QRectF(item.x(), item.y(), 0, 0), 0};
    // The angle of round kinds turns what they show, and no box.
    const bool isTurned =
        item.hasAngle() && !item.isHeightFromFont() && item.geometryMode() == GeometryMode::Box;
    return {ItemGeometry::frameOf(item), isTurned ? item.angle() : 0};
}
