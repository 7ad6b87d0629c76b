#include "CRotateHandle.h"

#include "CItemModel.h"
#include "CItemView.h"
#include "CRotationOutline.h"
#include "CScreenScene.h"
#include "CanvasRoles.h"
#include "PropertyKey.h"

#include <QCursor>
#include <QGraphicsSceneMouseEvent>

#include <cmath>

namespace {
constexpr double Diameter = 8; ///< screen pixels
constexpr double HitSide = 14;
constexpr double Distance = 22; ///< screen pixels from the frame to the handle
} // namespace

CRotateHandle::CRotateHandle(CItemView *view) : QGraphicsItem(view)
{
    setData(CanvasRole::RoleKey, CanvasRole::Handle);
    setFlag(ItemIsMovable);
    setFlag(ItemIgnoresTransformations);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
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
    path.addRect(QRectF(-HitSide / 2, -HitSide / 2, HitSide, HitSide).translated(centre(*view())));
    return path;
}

void CRotateHandle::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!view()->isSelected() || !view()->isRotatable() ||
        !view()->screenScene()->isPressedHandle(this)) {
        event->ignore();
        return;
    }
    const QPointF centre = view()->mapToScene(view()->rotationOutline()->centre());
    m_gesture = std::make_unique<CRotateGesture>(centre, event->scenePos(), view()->shownAngle());
    view()->rotationOutline()->setAngleOffset(m_gesture->angleOffset());
    view()->screenScene()->beginGesture({view()->item()}, {PropertyKey::Angle});
}

void CRotateHandle::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
    CScreenScene *scene = view()->screenScene();
    if (!m_gesture || !scene->isGestureActive())
        return;
    double angle = m_gesture->angleFor(event->scenePos());
    if (event->modifiers().testFlag(Qt::ShiftModifier))
        angle = CRotateGesture::stepped(angle);
    angle = std::fmod(std::round(angle * 10) / 10, 360.0); // tenths: what the readout shows
    view()->item()->setProperty(PropertyKey::Angle, angle);
    scene->reportGesture(QObject::tr("%1°").arg(angle, 0, 'f', 1));
}

void CRotateHandle::mouseReleaseEvent(QGraphicsSceneMouseEvent *)
{
    m_gesture.reset();
    view()->screenScene()->finishGesture(QObject::tr("Rotate Item"));
}
