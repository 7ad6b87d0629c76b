// How the explorer reorders screens and items by dragging them, and lets items be dragged to a
// canvas.
#include "CCommandOrderItem.h"
#include "CProjectExplorerView.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemDrag.h"
#include "ItemOperations.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QUndoStack>

namespace {

const QString dragFormat = QStringLiteral("drag-drop-explorer");
const QString memberFormat = QStringLiteral("drag-drop-explorer-member");
constexpr int IndicatorHeight = 3;
constexpr int ScrollMargin = 16; ///< pixels at the edges within which the tree scrolls

} // namespace

void CProjectExplorerView::startDrag(Qt::DropActions)
{
    CItemModel *item = itemAt(currentIndex());
    if (!item)
        return;
    auto *drag = new QDrag(this);
    const QRect row = visualRect(currentIndex()).intersected(viewport()->rect());
    drag->setPixmap(viewport()->grab(row));
    if (item->kind() != CItemModel::Kind::Screen) {
        const QVector<CItemModel *> items = draggedItems(item);
        drag->setMimeData(item->isGrouped() ? memberData() : ItemDrag::toMimeData(items));
        m_itemDrag.begin(ItemOperations::inOrder(items));
        execute(drag);
        m_itemDrag.begin({});
        return;
    }
    auto *payload = new QMimeData;
    payload->setData(dragFormat, QByteArray::number(item->row()));
    drag->setMimeData(payload);
    m_dragged = item;
    execute(drag);
    // A drag that the window system broke off ends without a leave.
    if (CItemModel *back = putScreenBack())
        showReturned(*back);
    m_dragged = nullptr;
}

/// The item that the drag began on, and what else is selected on the screens. A member of a group
/// goes by itself.
QVector<CItemModel *> CProjectExplorerView::draggedItems(CItemModel *pressed) const
{
    QVector<CItemModel *> items{pressed};
    if (pressed->isGrouped())
        return items;
    for (const QModelIndex &index : selectedIndexes()) {
        CItemModel *item = itemAt(index);
        if (item && item != pressed && item->kind() != CItemModel::Kind::Screen &&
            !item->isGrouped())
            items.append(item);
    }
    return items;
}

/// A canvas does not take members: on it only their group can be moved.
QMimeData *CProjectExplorerView::memberData()
{
    auto *payload = new QMimeData;
    payload->setData(memberFormat, {});
    return payload;
}

/// What is dragged within this tree.
bool CProjectExplorerView::areItems(const QMimeData &payload) const
{
    return m_itemDrag.isActive() &&
           (payload.hasFormat(ItemDrag::Mime) || payload.hasFormat(memberFormat));
}

void CProjectExplorerView::followItems(QDropEvent *event)
{
    scrollAtEdges(event->pos().y());
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(m_itemDrag.follow(event->pos()));
}

void CProjectExplorerView::execute(QDrag *drag)
{
    drag->exec(Qt::MoveAction);
}

/// The moving mark tells all other views that the screen comes back.
void CProjectExplorerView::takeDraggedScreen()
{
    m_takenRow = m_dragged->row();
    const QRect row = visualRect(m_dragged->index());
    m_wasShown = m_dragged == m_shownScreen;
    m_wasExpanded = isExpanded(m_dragged->index());
    m_dragged->setMoving(true);
    m_project->takeRow(m_takenRow);
    m_taken.reset(m_dragged);
    executeDelayedItemsLayout(); // a shorter tree may not be scrolled as far
    updateGeometries();
    m_takenRect = row.translated(0, verticalOffset()); // under the pointer all the same
}

/// The screen that was out of the model, if one was, and is now in it again.
CItemModel *CProjectExplorerView::putScreenBack()
{
    parkIndicator();
    if (!m_taken)
        return nullptr;
    if (!m_project) { // closed in the middle of a drag: the screen goes with its project
        m_taken.reset();
        return nullptr;
    }
    CItemModel *screen = m_taken.release();
    m_project->insertRow(m_takenRow, screen);
    screen->setMoving(false);
    return screen;
}

/// A screen that was away is selected, open and shown again as it was.
void CProjectExplorerView::showReturned(CItemModel &screen)
{
    if (m_wasExpanded)
        expandRecursively(screen.index());
    selectionModel()->setCurrentIndex(screen.index(), QItemSelectionModel::ClearAndSelect);
    if (m_wasShown)
        Q_EMIT screenActivated(static_cast<CScreenModel *>(&screen));
}

void CProjectExplorerView::dragEnterEvent(QDragEnterEvent *event)
{
    if (areItems(*event->mimeData())) {
        followItems(event);
        event->accept(); // also where they cannot be dropped: they may come to where they can
        return;
    }
    if (!m_dragged || !event->mimeData()->hasFormat(dragFormat)) {
        event->ignore();
        return;
    }
    if (!m_taken)
        takeDraggedScreen();
    followPointer(event->pos());
    event->setDropAction(Qt::MoveAction);
    event->accept();
}

void CProjectExplorerView::dragMoveEvent(QDragMoveEvent *event)
{
    if (areItems(*event->mimeData())) {
        followItems(event);
        return;
    }
    if (!m_taken) {
        event->ignore();
        return;
    }
    scrollAtEdges(event->pos().y());
    followPointer(event->pos());
    event->setDropAction(Qt::MoveAction);
    event->accept();
}

void CProjectExplorerView::scrollAtEdges(int y)
{
    QScrollBar *bar = verticalScrollBar();
    if (y < ScrollMargin)
        bar->triggerAction(QScrollBar::SliderSingleStepSub);
    else if (y > viewport()->height() - ScrollMargin)
        bar->triggerAction(QScrollBar::SliderSingleStepAdd);
}

void CProjectExplorerView::dragLeaveEvent(QDragLeaveEvent *event)
{
    m_itemDrag.leave();
    if (CItemModel *back = putScreenBack())
        showReturned(*back);
    event->accept();
}

void CProjectExplorerView::dropEvent(QDropEvent *event)
{
    if (areItems(*event->mimeData())) {
        followItems(event);
        const QVector<CItemModel *> moved = m_itemDrag.drop();
        if (!moved.isEmpty())
            Q_EMIT itemsMoved(moved);
        return;
    }
    CItemModel *screen = putScreenBack();
    if (!screen) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::MoveAction);
    event->accept();
    // The order is as if the screen were not there, so behind all is its own number less.
    const int target = m_targetRow < 0 ? m_project->rowCount() - 1 : m_targetRow;
    if (target != m_takenRow)
        m_project->undoStack()->push(new CCommandOrderItem({screen}, {target}));
    showReturned(*screen);
}

/// Below the last row that is shown of all that belongs to an item.
int CProjectExplorerView::bottomOf(QModelIndex item) const
{
    while (isExpanded(item) && m_project->rowCount(item) > 0)
        item = m_project->index(m_project->rowCount(item) - 1, 0, item);
    return item.isValid() ? visualRect(item).bottom() + 1 : 0;
}

/// The gap between screens that is nearest: above the screen under the pointer, or below all that
/// belongs to it. Where the dragged screen's own row was, it is the gap that it left, although the
/// next screen has moved up there.
void CProjectExplorerView::followPointer(const QPoint &position)
{
    QModelIndex screen = indexAt(QPoint(viewport()->rect().left() + 1, position.y()));
    while (screen.parent().isValid())
        screen = screen.parent();

    int y = 0;
    const QRect left = m_takenRect.translated(0, -verticalOffset());
    if (position.y() >= left.top() && position.y() <= left.bottom()) {
        m_targetRow = m_takenRow;
        y = left.top();
    } else if (!screen.isValid()) {
        m_targetRow = -1;
        y = bottomOf(m_project->index(m_project->rowCount() - 1, 0));
    } else {
        const int top = visualRect(screen).top();
        const int bottom = bottomOf(screen);
        const bool isAbove = position.y() - top < bottom - position.y();
        m_targetRow = isAbove ? screen.row() : screen.row() + 1;
        y = isAbove ? top : bottom;
    }
    m_indicator->setGeometry(0, qMax(0, y - IndicatorHeight / 2), viewport()->width(),
                             IndicatorHeight);
    m_indicator->raise();
}

void CProjectExplorerView::parkIndicator()
{
    m_indicator->setGeometry(0, -2 * IndicatorHeight, 1, IndicatorHeight);
}
