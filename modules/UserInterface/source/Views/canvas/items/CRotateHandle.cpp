#include "CRotateHandle.h"

#include "CItemView.h"
#include "CanvasRoles.h"

#include <QCursor>

namespace {
constexpr double Diameter = 8; ///< screen pixels
constexpr double HitSide = 14;
constexpr double Distance = 22; ///< screen pixels from the frame to the handle
} // namespace

CRotateHandle::CRotateHandle(CItemView *view) : QGraphicsItem(view)
{
    setData(CanvasRole::RoleKey, CanvasRole::Handle);
    setFlag(ItemIgnoresTransformations);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::NoButton); // the scene knows what a press on it means
    setCursor(Qt::OpenHandCursor);
    setVisible(false);
    setZValue(1);
}

CItemView *CRotateHandle::view() const
{
    return static_cast<CItemView *>(parentItem());
}

void CRotateHandle::place(const QRectF &frame, const QTransform &turn, double degrees)
{
    setPos(turn.map(placeOn(frame)));
    setRotation(degrees);
}

QPointF CRotateHandle::placeOn(const QRectF &frame)
{
    const QRectF rect = frame.normalized();
    return {rect.center().x(), rect.top()};
}

QRectF CRotateHandle::boundingRect() const
{
    constexpr double most = Distance + CItemView::HandleReach;
    return {-HitSide / 2, -most - HitSide / 2, HitSide, HitSide + CItemView::HandleReach};
}

/// Above the frame, in screen pixels.
QPointF CRotateHandle::centre(const CItemView &view)
{
    return {0, -Distance - view.handleStandOff().y()};
}

QRectF CRotateHandle::mark(const CItemView &view)
{
    return QRectF(-Diameter / 2, -Diameter / 2, Diameter, Diameter).translated(centre(view));
}

QPainterPath CRotateHandle::shape() const
{
    QPainterPath path;
    path.addEllipse(centre(*view()), HitSide / 2, HitSide / 2);
    return path;
}
