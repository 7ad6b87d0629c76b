#include "CRotationOutline.h"

#include "CItemView.h"
#include "CanvasRoles.h"

#include <QPainter>

CRotationOutline::CRotationOutline(CItemView *view) : QGraphicsItem(view)
{
    setData(CanvasRole::RoleKey, CanvasRole::PartOfParent);
    setAcceptedMouseButtons(Qt::NoButton);
    setVisible(false);
}

void CRotationOutline::setFrame(const QRectF &frame)
{
    const QRectF rect = frame.normalized();
    if (rect == m_frame)
        return;
    prepareGeometryChange();
    m_frame = rect;
    setTransformOriginPoint(rect.left() + rect.width() * 0.5, rect.top() + rect.height() * 0.5);
}

void CRotationOutline::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (rotation() == 0.0 || !parentItem()->isSelected())
        return;
    painter->setPen(QPen(CanvasColour::Outline, 0));
    painter->setOpacity(0.6);
    painter->drawRect(m_frame);
}
