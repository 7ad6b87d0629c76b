#include "ItemOutline.h"

#include "CItemModel.h"
#include "PointList.h"
#include "PropertyKey.h"
#include "RomFonts.h"

#include <QLineF>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace {

const QString ThicknessKey = QStringLiteral("thickness");
const QString BorderKey = QStringLiteral("border");
const QString HeadKey = QStringLiteral("head");

constexpr int HeightOfUnknownFont = 49;
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

/// Starts above the position, as such kinds are drawn.
SItemOutline outlineOfFontHigh(const CItemModel &item)
{
    const int known = romfonts::height(item.fontHandle());
    const int height = known > 0 ? known : HeightOfUnknownFont;
    return {QRectF(item.x(), item.y() - 10 * height / 32, item.width(), 20 * height / 16), 0};
}

} // namespace

SItemOutline itemOutline(const CItemModel &item)
{
    if (item.hasProperty(PropertyKey::PointList))
        return outlineOfPoints(item);
    if (item.geometryMode() == GeometryMode::TwoCorners)
        return outlineOfLine(item);
    if (item.isHeightFromFont())
        return outlineOfFontHigh(item);
    // The angle of round kinds turns what they show, and no box.
    const bool isTurned = item.hasAngle() && item.geometryMode() == GeometryMode::Box;
    return {item.bounds(), isTurned ? item.angle() : 0};
}
