#include "CSnapCross.h"

#include "CanvasRoles.h"

#include <QPainter>

namespace {
constexpr double Arm = 12; ///< screen pixels from the centre to an end
}

CSnapCross::CSnapCross()
{
    setVisible(false);
    setFlag(ItemIgnoresTransformations);
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(1000.0);
    setData(CanvasRole::RoleKey, CanvasRole::SnapCross);
}

QRectF CSnapCross::boundingRect() const
{
    return {-Arm, -Arm, 2 * Arm, 2 * Arm};
}

void CSnapCross::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setPen(QPen(CanvasColour::SnapCross, 0));
    painter->drawLine(QPointF(0, -Arm), QPointF(0, Arm));
    painter->drawLine(QPointF(-Arm, 0), QPointF(Arm, 0));
}
