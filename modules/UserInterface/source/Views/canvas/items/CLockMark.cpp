#include "CLockMark.h"

#include "CItemView.h"
#include "CanvasRoles.h"

#include <QPainter>
#include <QPainterPath>

namespace {
constexpr double Side = 16; ///< screen pixels
} // namespace

CLockMark::CLockMark(CItemView *view) : QGraphicsItem(view)
{
    setData(CanvasRole::RoleKey, CanvasRole::PartOfParent);
    setFlag(ItemIgnoresTransformations);
    setAcceptedMouseButtons(Qt::NoButton);
    setVisible(false);
}

void CLockMark::setFrame(const QRectF &frame)
{
    setPos(frame.normalized().topRight());
}

QRectF CLockMark::boundingRect() const
{
    return {-Side / 2, -Side / 2, Side, Side};
}

void CLockMark::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(CanvasColour::LockGround); // it is to be seen on every picture
    painter->drawEllipse(boundingRect());
    painter->setPen(QPen(CanvasColour::Outline, 1.5));
    painter->setBrush(Qt::NoBrush);
    painter->drawArc(QRectF(-2.5, -5.5, 5, 7), 0, 180 * 16);
    painter->setPen(Qt::NoPen);
    painter->setBrush(CanvasColour::Outline);
    painter->drawRoundedRect(QRectF(-4, -1.5, 8, 6), 1, 1);
}
