#include "CPointHandle.h"

#include "CItemModel.h"
#include "CMultiPointItemView.h"
#include "CScreenScene.h"
#include "CanvasRoles.h"
#include "PointList.h"
#include "PropertyKey.h"

#include <QCursor>
#include <QGraphicsSceneMouseEvent>

namespace {
constexpr double Diameter = 8; ///< screen pixels
constexpr double HitSide = 12;
} // namespace

CPointHandle::CPointHandle(int index, CItemView *view) : QGraphicsItem(view), m_index(index)
{
    setData(CanvasRole::RoleKey, CanvasRole::Handle);
    setFlag(ItemIgnoresTransformations);
    setAcceptedMouseButtons(Qt::LeftButton);
    setCursor(Qt::CrossCursor);
    setVisible(false);
    setZValue(1);
}

CItemView *CPointHandle::view() const
{
    return static_cast<CItemView *>(parentItem());
}

QRectF CPointHandle::boundingRect() const
{
    return {-HitSide / 2, -HitSide / 2, HitSide, HitSide};
}

QRectF CPointHandle::mark()
{
    return {-Diameter / 2, -Diameter / 2, Diameter, Diameter};
}

void CPointHandle::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!view()->isResizable() || !view()->screenScene()->isPressedHandle(this)) {
        event->ignore();
        return;
    }
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        static_cast<CMultiPointItemView *>(view())->removePoint(m_index);
        return; // this handle may be gone by now
    }
    m_dragging = true;
    m_grip = event->scenePos() - scenePos();
    view()->screenScene()->beginGesture({view()->item()}, {PropertyKey::PointList});
}

void CPointHandle::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
    CScreenScene *scene = view()->screenScene();
    if (!m_dragging || !scene->isGestureActive())
        return;
    PointList::Points points = PointList::ofItem(*view()->item());
    if (m_index >= points.size())
        return;
    points[m_index] = view()->mapFromScene(event->scenePos() - m_grip);
    const QPointF place = view()->mapToScene(points.at(m_index));
    view()->item()->setPropertyIfChanged(PropertyKey::PointList, PointList::format(points));
    scene->reportGesture(QObject::tr("%1, %2").arg(qRound(place.x())).arg(qRound(place.y())));
}

void CPointHandle::mouseReleaseEvent(QGraphicsSceneMouseEvent *)
{
    if (!m_dragging)
        return;
    m_dragging = false;
    view()->screenScene()->finishGesture(QString());
}
