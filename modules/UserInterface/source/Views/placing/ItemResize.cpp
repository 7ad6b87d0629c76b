#include "ItemResize.h"

#include "CItemModel.h"
#include "CWidgetProperty.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

#include <QTransform>

namespace {
void setWhole(CItemModel &item, const QString &key, double value)
{
    if (item.hasProperty(key))
        item.setPropertyIfChanged(key, static_cast<int>(roundedToInteger(value)));
}

/// The limits of one property in scene units, `unit` of the property being one scene unit.
void takeLimits(const CItemModel &item, const QString &key, double unit, double &least,
                double &most)
{
    const auto property = item.properties().constFind(key);
    if (property == item.properties().constEnd())
        return;
    if (property->minimum().isValid())
        least = property->minimum().toDouble() / unit;
    if (property->maximum().isValid())
        most = property->maximum().toDouble() / unit;
}
} // namespace

bool ItemResize::isResizable(const CItemModel &item)
{
    if (item.kind() != CItemModel::Kind::Widget || !item.isResizeable() || item.hasPointList())
        return false;
    for (const QString &key : {PropertyKey::Width, PropertyKey::Height, PropertyKey::Radius,
                               PropertyKey::PointSize, PropertyKey::X2, PropertyKey::Y2}) {
        if (item.hasProperty(key))
            return true;
    }
    return false;
}

ResizeKind ItemResize::kindOf(const CItemModel &item)
{
    if (ItemGeometry::isCentred(item))
        return ResizeKind::Circular;
    if (item.geometryMode() == GeometryMode::TwoCorners)
        return ResizeKind::Line;
    return item.isHeightFromFont() ? ResizeKind::WidthOnly : ResizeKind::Box;
}

SizeLimits ItemResize::limitsOf(const CItemModel &item)
{
    SizeLimits limits;
    double least = limits.minimum.width();
    double most = limits.maximum.width();
    takeLimits(item, PropertyKey::Width, 1, least, most);
    takeLimits(item, PropertyKey::Radius, 0.5, least, most);
    takeLimits(item, PropertyKey::PointSize, ItemGeometry::PointSizeOfPixel / 2, least, most);
    limits.minimum.setWidth(least);
    limits.maximum.setWidth(most);
    least = limits.minimum.height();
    most = limits.maximum.height();
    takeLimits(item, PropertyKey::Height, 1, least, most);
    limits.minimum.setHeight(least);
    limits.maximum.setHeight(most);
    return limits;
}

ItemResize::SStart ItemResize::startOf(const CItemModel &item, double degrees)
{
    return {kindOf(item), ItemGeometry::frameOf(item), QPointF(item.x(), item.y()), degrees};
}

QRectF ItemResize::outlineOf(const SStart &start, const CResizeRule::Geometry &geometry)
{
    QRectF frame(geometry.position, geometry.size);
    if (start.kind == ResizeKind::Circular)
        frame.moveCenter(geometry.position);
    if (start.kind == ResizeKind::WidthOnly) {
        frame.translate(start.frame.topLeft() - start.position);
        frame.setHeight(start.frame.height());
    }
    frame = frame.normalized();
    if (start.degrees == 0)
        return frame;
    const QPointF middle = frame.center();
    QTransform turn;
    turn.translate(middle.x(), middle.y())
        .rotate(start.degrees)
        .translate(-middle.x(), -middle.y());
    return turn.mapRect(frame);
}

std::unique_ptr<CResizeRule> ItemResize::ruleFor(const CItemModel &item, int handle, double degrees)
{
    const CResizeRule::Geometry start{QPointF(item.x(), item.y()),
                                      QSizeF(item.width(), item.height())};
    return std::make_unique<CResizeRule>(kindOf(item), handle, start, limitsOf(item), degrees);
}

void ItemResize::apply(CItemModel &item, const CResizeRule::Geometry &geometry)
{
    const bool moved = geometry.position != QPointF(item.x(), item.y());
    setWhole(item, PropertyKey::X, geometry.position.x());
    setWhole(item, PropertyKey::Y, geometry.position.y());
    if (kindOf(item) == ResizeKind::Circular) {
        const double radius = geometry.size.width() / 2;
        setWhole(item, PropertyKey::Radius, radius);
        setWhole(item, PropertyKey::PointSize, radius * ItemGeometry::PointSizeOfPixel);
    } else {
        setWhole(item, PropertyKey::Width, geometry.size.width());
        if (!item.isHeightFromFont())
            setWhole(item, PropertyKey::Height, geometry.size.height());
        setWhole(item, PropertyKey::X2, geometry.position.x() + geometry.size.width());
        setWhole(item, PropertyKey::Y2, geometry.position.y() + geometry.size.height());
    }
    if (!moved)
        item.notifyGeometryChanged();
}
