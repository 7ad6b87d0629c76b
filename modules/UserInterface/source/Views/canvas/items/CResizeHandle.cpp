#include "CResizeHandle.h"

#include "CItemModel.h"
#include "CItemView.h"
#include "CResizeRule.h"
#include "CanvasRoles.h"
#include "ItemResize.h"

#include <QCursor>

#include <cmath>

namespace {
constexpr double Side = 8;     ///< screen pixels
constexpr double HitSide = 12; ///< a little larger than what is seen
} // namespace

CResizeHandle::CResizeHandle(int index, CItemView *view) : QGraphicsItem(view), m_index(index)
{
    setData(CanvasRole::RoleKey, CanvasRole::Handle);
    setFlag(ItemIgnoresTransformations);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::NoButton); // the scene knows what a press on it means
    setVisible(false);
    setZValue(1);
}

CItemView *CResizeHandle::view() const
{
    return static_cast<CItemView *>(parentItem());
}

QPointF CResizeHandle::placeOn(int index, const QRectF &frame)
{
    const double across = (1 + CResizeRule::horizontalSide(index)) / 2.0;
    const double down = (1 + CResizeRule::verticalSide(index)) / 2.0;
    return {frame.x() + across * frame.width(), frame.y() + down * frame.height()};
}

void CResizeHandle::place(const QRectF &frame, const QTransform &turn, double degrees)
{
    m_degrees = degrees;
    setPos(turn.map(placeOn(m_index, frame)));
    setRotation(degrees);
}

bool CResizeHandle::isOfUseFor(int index, const CItemModel &item)
{
    if (!ItemResize::isResizable(item))
        return false;
    const bool sideways = CResizeRule::horizontalSide(index) != 0;
    return sideways || ItemResize::kindOf(item) != ResizeKind::WidthOnly;
}

/// Away from the frame, in screen pixels about its place there.
QPointF CResizeHandle::centre(int index, const CItemView &view)
{
    const QPointF off = view.handleStandOff();
    const QRectF frame = view.frameRect();
    return {std::copysign(1.0, frame.width()) * CResizeRule::horizontalSide(index) * off.x(),
            std::copysign(1.0, frame.height()) * CResizeRule::verticalSide(index) * off.y()};
}

QRectF CResizeHandle::mark(int index, const CItemView &view)
{
    return QRectF(-Side / 2, -Side / 2, Side - 1, Side - 1).translated(centre(index, view));
}

QRectF CResizeHandle::boundingRect() const
{
    constexpr double reach = CItemView::HandleReach + HitSide / 2; // of every stand-off
    return {-reach, -reach, 2 * reach, 2 * reach};
}

QPainterPath CResizeHandle::shape() const
{
    QPainterPath path;
    path.addRect(
        QRectF(-HitSide / 2, -HitSide / 2, HitSide, HitSide).translated(centre(m_index, *view())));
    return path;
}

Qt::CursorShape CResizeHandle::cursorFor(int index, double degrees)
{
    static constexpr Qt::CursorShape shapes[] = {Qt::SizeVerCursor, Qt::SizeBDiagCursor,
                                                 Qt::SizeHorCursor, Qt::SizeFDiagCursor};
    const int eighths = static_cast<int>(std::lround(std::fmod(degrees, 360.0) / 45)) + 8;
    return shapes[(index + eighths) % 4];
}

void CResizeHandle::hoverEnterEvent(QGraphicsSceneHoverEvent *)
{
    if (view()->item()->isLocked())
        unsetCursor();
    else
        setCursor(cursorFor(m_index, m_degrees));
}
