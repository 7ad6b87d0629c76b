#include "CSelectionFrame.h"

#include "CItemModel.h"
#include "CItemScale.h"
#include "CItemView.h"
#include "CResizeHandle.h"
#include "CResizeRule.h"
#include "CanvasRoles.h"
#include "FramePaint.h"

#include <QCursor>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>

#include <algorithm>

namespace {
constexpr double Side = 8;     ///< screen pixels
constexpr double HitSide = 12; ///< a little larger than what is seen
} // namespace

CSelectionFrame::CSelectionFrame()
{
    setData(CanvasRole::RoleKey, CanvasRole::PartOfParent);
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(2.0); // before all items
    for (size_t index = 0; index < m_handles.size(); ++index)
        m_handles[index] = new CFrameHandle(static_cast<int>(index), this);
    setVisible(false);
}

void CSelectionFrame::setItems(const QVector<CItemModel *> &items)
{
    const bool isGroup = items.size() == 1 && items.constFirst()->rowCount() > 0;
    m_items = isGroup || items.size() > 1 ? items : QVector<CItemModel *>();
    follow();
}

void CSelectionFrame::follow()
{
    const QRectF rect = CItemScale::frameOf(m_items);
    const bool isSeen = !rect.isNull();
    if (rect != m_rect) {
        prepareGeometryChange();
        m_rect = rect;
    }
    for (CFrameHandle *each : m_handles) {
        const bool isAcross = CResizeRule::horizontalSide(each->index()) != 0;
        const bool isDown = CResizeRule::verticalSide(each->index()) != 0;
        each->setVisible(isSeen && (rect.width() > 0 || !isAcross) &&
                         (rect.height() > 0 || !isDown)); // a length of 0 has no proportion
        each->place(rect);
    }
    if (isSeen != isVisible())
        setVisible(isSeen);
}

QGraphicsItem *CSelectionFrame::handleAt(const QPointF &scenePos,
                                         const QTransform &deviceTransform) const
{
    if (!isVisible())
        return nullptr;
    const QPointF at = deviceTransform.map(scenePos);
    for (CFrameHandle *each : m_handles) {
        const QTransform toDevice = each->deviceTransform(deviceTransform);
        if (each->isVisible() && each->contains(toDevice.inverted().map(at)))
            return each;
    }
    return nullptr;
}

QGraphicsItem *CSelectionFrame::handle(int index) const
{
    return m_handles.at(static_cast<size_t>(index));
}

QRectF CSelectionFrame::boundingRect() const
{
    return m_rect;
}

void CSelectionFrame::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (m_items.size() > 1) // a group has a frame
        FramePaint::drawRect(*painter, m_rect, Qt::SolidLine);
}

CFrameHandle::CFrameHandle(int index, CSelectionFrame *frame) : QGraphicsItem(frame), m_index(index)
{
    setData(CanvasRole::RoleKey, CanvasRole::Handle);
    setFlag(ItemIgnoresTransformations);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::NoButton); // the scene knows what a press on it means
    setCursor(CResizeHandle::cursorFor(index, 0));
}

const CSelectionFrame &CFrameHandle::frame() const
{
    return *static_cast<const CSelectionFrame *>(parentItem());
}

void CFrameHandle::place(const QRectF &frame)
{
    m_frameSize = frame.size();
    setPos(CResizeHandle::placeOn(m_index, frame));
}

/// In screen pixels; outside of a small frame, so that it can be taken between its handles.
QPointF CFrameHandle::centre() const
{
    const QGraphicsView *view = scene() ? scene()->views().value(0) : nullptr;
    const double scale = view ? view->transform().m11() : 1.0;
    return {CResizeRule::horizontalSide(m_index) * CItemView::standOff(m_frameSize.width() * scale),
            CResizeRule::verticalSide(m_index) * CItemView::standOff(m_frameSize.height() * scale)};
}

QRectF CFrameHandle::boundingRect() const
{
    constexpr double reach = CItemView::HandleReach + HitSide;
    return {-reach, -reach, 2 * reach, 2 * reach};
}

QPainterPath CFrameHandle::shape() const
{
    QPainterPath path;
    path.addRect(QRectF(-HitSide / 2, -HitSide / 2, HitSide, HitSide).translated(centre()));
    return path;
}

void CFrameHandle::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setBrush(CanvasColour::HandleGround);
    for (const QPen &pen : FramePaint::handlePens()) {
        painter->setPen(pen);
        painter->drawRect(QRectF(-Side / 2, -Side / 2, Side - 1, Side - 1).translated(centre()));
        painter->setBrush(Qt::NoBrush);
    }
}
