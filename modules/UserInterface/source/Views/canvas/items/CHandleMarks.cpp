#include "CHandleMarks.h"

#include "CItemView.h"
#include "CPointHandle.h"
#include "CResizeHandle.h"
#include "CRotateHandle.h"
#include "CanvasRoles.h"
#include "FramePaint.h"

#include <QPainter>
#include <QVarLengthArray>

CHandleMarks::CHandleMarks(CItemView *view) : QGraphicsItem(view)
{
    setData(CanvasRole::RoleKey, CanvasRole::PartOfParent);
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(1);
}

CItemView *CHandleMarks::view() const
{
    return static_cast<CItemView *>(parentItem());
}

QRectF CHandleMarks::boundingRect() const
{
    const double reach = Reach / view()->zoom();
    return view()->handlesRect().adjusted(-reach, -reach, reach, reach);
}

void CHandleMarks::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const CItemView &its = *view();
    if (!its.isResizable())
        return;
    for (const QPen &pen : FramePaint::handlePens()) {
        painter->save();
        painter->setPen(pen);
        paintMarks(*painter);
        painter->restore();
    }
}

void CHandleMarks::paintMarks(QPainter &painter) const
{
    const CItemView &its = *view();
    const QTransform toScreen = painter.worldTransform();
    // In screen pixels, turned as the frame is.
    const QTransform turned = QTransform().rotate(its.shownAngle());
    const QTransform back = turned.inverted();
    const QTransform fromFrame = its.turn() * toScreen * back;
    painter.setWorldTransform(turned);
    QVarLengthArray<QRectF, CItemView::HandleCount> rects;
    for (int index = 0; index < CItemView::HandleCount; ++index) {
        if (!CResizeHandle::isOfUseFor(index, *its.item()))
            continue;
        rects.append(
            CResizeHandle::mark(index, its)
                .translated(fromFrame.map(CResizeHandle::placeOn(index, its.frameRect()))));
    }
    painter.drawRects(rects.constData(), rects.size());

    painter.setRenderHint(QPainter::Antialiasing);
    if (its.isRotatable())
        painter.drawEllipse(CRotateHandle::mark(its).translated(
            fromFrame.map(CRotateHandle::placeOn(its.frameRect()))));
    painter.setWorldTransform(QTransform());
    for (const QPointF &point : its.points())
        painter.drawEllipse(CPointHandle::mark().translated(toScreen.map(point)));
}
