#include "CItemScale.h"

#include "CItemArrange.h"
#include "CItemModel.h"
#include "CWidgetProperty.h"
#include "ItemGeometry.h"
#include "ItemResize.h"
#include "PointList.h"
#include "PropertyKey.h"

#include <QtMath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
QPointF whole(const QPointF &point)
{
    return {std::round(point.x()), std::round(point.y())};
}

void place(CItemModel &item, const QPointF &position)
{
    item.setPropertyIfChanged(PropertyKey::X, static_cast<int>(position.x()));
    item.setPropertyIfChanged(PropertyKey::Y, static_cast<int>(position.y()));
}

double limited(double wanted, double atFirst, double least, double most)
{
    const double visible = std::min(1.0, atFirst); // what is seen stays seen
    return std::min(std::max({wanted, visible, least}), most);
}
} // namespace

/// From the frame as it was to the frame that it becomes.
struct CItemScale::SMap
{
    QPointF from;
    QPointF to;
    double across;
    double down;

    QPointF operator()(const QPointF &point) const
    {
        return {to.x() + (point.x() - from.x()) * across, to.y() + (point.y() - from.y()) * down};
    }
};

CItemScale::CItemScale(const QVector<CItemModel *> &items) : m_frame(frameOf(items))
{
    for (CItemModel *each : items)
        add(each);
}

QRectF CItemScale::frameOf(const QVector<CItemModel *> &items)
{
    QRectF all;
    bool isFirst = true;
    for (const CItemModel *each : items) {
        if (each->isUnderLock())
            continue;
        const QRectF frame = CItemArrange::frameOf(*each);
        // Not by uniting: a frame without an area counts as well.
        if (std::exchange(isFirst, false))
            all = frame;
        all = QRectF(
            QPointF(std::min(all.left(), frame.left()), std::min(all.top(), frame.top())),
            QPointF(std::max(all.right(), frame.right()), std::max(all.bottom(), frame.bottom())));
    }
    return all;
}

const QStringList &CItemScale::keys()
{
    static const QStringList keys = {
        PropertyKey::X,         PropertyKey::Y,     PropertyKey::Radius,
        PropertyKey::PointSize, PropertyKey::Width, PropertyKey::Height,
        PropertyKey::X2,        PropertyKey::Y2,    PropertyKey::PointList};
    return keys;
}

void CItemScale::add(CItemModel *item)
{
    if (item->isUnderLock())
        return;
    SStart start{item,
                 {item->x(), item->y()},
                 {item->width(), item->height()},
                 ItemGeometry::frameOf(*item),
                 {}};
    if (item->hasPointList())
        start.points = QPolygonF(PointList::ofItem(*item)).translated(start.position);
    m_starts.append(start);
    for (int row = 0; row < item->rowCount(); ++row) {
        if (CItemModel *member = item->childItem(row))
            add(member);
    }
}

QVector<CItemModel *> CItemScale::items() const
{
    QVector<CItemModel *> items;
    for (const SStart &each : m_starts)
        items.append(each.item);
    return items;
}

void CItemScale::apply(const QRectF &frame) const
{
    const SMap map{m_frame.topLeft(), frame.topLeft(),
                   m_frame.width() > 0 ? frame.width() / m_frame.width() : 1,
                   m_frame.height() > 0 ? frame.height() / m_frame.height() : 1};
    for (const SStart &each : m_starts) // members after their group, which takes them along
        applyTo(each, map);
}

void CItemScale::applyTo(const SStart &start, const SMap &map)
{
    CItemModel &item = *start.item;
    const QPointF position = whole(map(start.position));
    if (item.kind() == CItemModel::Kind::Group) {
        place(item, position);
    } else if (item.hasPointList()) {
        place(item, position);
        QPolygonF points;
        for (const QPointF &each : start.points)
            points.append(whole(map(each)) - position);
        item.setPropertyIfChanged(PropertyKey::PointList, PointList::format(points));
    } else if (item.geometryMode() == GeometryMode::TwoCorners) {
        const QPointF second = start.position + QPointF(start.size.width(), start.size.height());
        const QPointF size = whole(map(second)) - position;
        ItemResize::apply(item, {position, {size.x(), size.y()}});
    } else if (ItemGeometry::isCentred(item) && ItemResize::isResizable(item)) {
        const SizeLimits limits = ItemResize::limitsOf(item);
        const double radius = start.size.width() / 2;
        const double scaled = limited(std::round(radius * std::min(map.across, map.down)), radius,
                                      limits.minimum.width() / 2, limits.maximum.width() / 2);
        ItemResize::apply(item, {position, {2 * scaled, 2 * scaled}});
    } else {
        applyToBox(start, map);
    }
}

/// Also of texts, whose frame need not begin at their position.
void CItemScale::applyToBox(const SStart &start, const SMap &map)
{
    CItemModel &item = *start.item;
    const double angle = item.hasAngle() ? qDegreesToRadians(item.angle()) : 0;
    // By how much the item's own sides grow.
    const double along = std::hypot(map.across * std::cos(angle), map.down * std::sin(angle));
    const double upright = std::hypot(map.across * std::sin(angle), map.down * std::cos(angle));
    const QPointF middle = map(start.frame.center());
    const bool isSized = ItemResize::isResizable(item);
    const SizeLimits limits = ItemResize::limitsOf(item);
    QSizeF size = start.frame.size();
    QPointF corner;
    if (angle == 0) {
        corner = whole(map(start.frame.topLeft()));
        const QPointF far = whole(map(start.frame.bottomRight()));
        size = {far.x() - corner.x(), far.y() - corner.y()};
    } else {
        size = {std::round(size.width() * along), std::round(size.height() * upright)};
    }
    size = {
        limited(size.width(), start.frame.width(), limits.minimum.width(), limits.maximum.width()),
        limited(size.height(), start.frame.height(), limits.minimum.height(),
                limits.maximum.height())};
    // What cannot grow keeps its place in proportion by its middle.
    const bool isWide = isSized;
    const bool isHigh = isSized && !item.isHeightFromFont();
    if (!isWide)
        size.setWidth(start.frame.width());
    if (!isHigh)
        size.setHeight(start.frame.height());
    if (angle != 0 || !isWide)
        corner.setX(std::round(middle.x() - size.width() / 2));
    if (angle != 0 || !isHigh)
        corner.setY(std::round(middle.y() - size.height() / 2));
    const QPointF position = whole(start.position + corner - start.frame.topLeft());
    if (!isSized)
        place(item, position);
    else
        ItemResize::apply(item, {position, size});
}
