// How the explorer reorders screens by dragging them, and lets items be dragged to a canvas.
#include "CCommandOrderItem.h"
#include "CProjectExplorerView.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemDrag.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QUndoStack>

namespace {

const QString dragFormat = QStringLiteral("drag-drop-explorer");
constexpr int IndicatorHeight = 3;
constexpr int ScrollMargin = 16; ///< pixels at the edges within which the tree scrolls

} // namespace

void CProjectExplorerView::startDrag(Qt::DropActions)
{
    CItemModel *item = itemAt(currentIndex());
    if (!item || item->isGrouped())
        return;
    auto *drag = new QDrag(this);
    const QRect row = visualRect(currentIndex()).intersected(viewport()->rect());
    drag->setPixmap(viewport()->grab(row));
    if (item->kind() != CItemModel::Kind::Screen) {
        drag->setMimeData(ItemDrag::toMimeData(draggedItems(item)));
        execute(drag);
        return;
    }
    auto *payload = new QMimeData;
    payload->setData(dragFormat, QByteArray::number(item->row()));
    drag->setMimeData(payload);
    m_dragged = item;
    execute(drag);
    // A drag that the window system broke off ends without a leave.
    CItemModel *back = putScreenBack();
    if (back && m_wasShown)
        Q_EMIT screenActivated(static_cast<CScreenModel *>(back));
    m_dragged = nullptr;
}

/// The item that the drag began on, and what else is selected on the screens.
QVector<CItemModel *> CProjectExplorerView::draggedItems(CItemModel *pressed) const
{
    QVector<CItemModel *> items{pressed};
    for (const QModelIndex &index : selectedIndexes()) {
        CItemModel *item = itemAt(index);
        if (item && item != pressed && item->kind() != CItemModel::Kind::Screen &&
            !item->isGrouped())
            items.append(item);
    }
    return items;
}

void CProjectExplorerView::execute(QDrag *drag)
{
    drag->exec(Qt::MoveAction);
}

/// The moving mark tells all other views that the screen comes back.
void CProjectExplorerView::takeDraggedScreen()
{
    m_takenRow = m_dragged->row();
    m_wasShown = m_dragged == m_shownScreen;
    m_dragged->setMoving(true);
    m_project->takeRow(m_takenRow);
    m_taken.reset(m_dragged);
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
    expandRecursively(screen->index());
    return screen;
}

void CProjectExplorerView::dragEnterEvent(QDragEnterEvent *event)
{
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
    if (!m_taken) {
        event->ignore();
        return;
    }
    const int y = event->pos().y();
    QScrollBar *bar = verticalScrollBar();
    if (y < ScrollMargin)
        bar->triggerAction(QScrollBar::SliderSingleStepSub);
    else if (y > viewport()->height() - ScrollMargin)
        bar->triggerAction(QScrollBar::SliderSingleStepAdd);
    followPointer(event->pos());
    event->setDropAction(Qt::MoveAction);
    event->accept();
}

void CProjectExplorerView::dragLeaveEvent(QDragLeaveEvent *event)
{
    CItemModel *back = putScreenBack();
    if (back && m_wasShown)
        Q_EMIT screenActivated(static_cast<CScreenModel *>(back));
    event->accept();
}

void CProjectExplorerView::dropEvent(QDropEvent *event)
{
    CItemModel *screen = putScreenBack();
    if (!screen) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::MoveAction);
    event->accept();
    // The order is as if the screen were not there, so behind all is its own number less.
    const int target = m_targetRow < 0 ? m_project->rowCount() - 1 : m_targetRow;
    if (target != m_takenRow) {
        m_project->undoStack()->push(new CCommandOrderItem(screen, target));
        expandRecursively(screen->index());
    }
    if (m_wasShown)
        Q_EMIT screenActivated(static_cast<CScreenModel *>(screen));
}

/// The gap between screens that is nearest: above a screen's own row in its upper half, otherwise
/// below all that belongs to it.
void CProjectExplorerView::followPointer(const QPoint &position)
{
    const QModelIndex under = indexAt(QPoint(viewport()->rect().left() + 1, position.y()));
    QModelIndex screen = under;
    while (screen.parent().isValid())
        screen = screen.parent();
    const bool isAbove =
        screen.isValid() && under == screen && position.y() < visualRect(screen).center().y();

    int y = 0;
    if (!screen.isValid()) {
        m_targetRow = -1;
    } else {
        m_targetRow = isAbove ? screen.row() : screen.row() + 1;
    }
    const QModelIndex next = m_targetRow < 0 ? QModelIndex() : m_project->index(m_targetRow, 0);
    if (next.isValid()) {
        y = visualRect(next).top();
    } else { // below the last row that is shown
        QModelIndex last = m_project->index(m_project->rowCount() - 1, 0);
        while (last.isValid() && isExpanded(last) && m_project->rowCount(last) > 0)
            last = m_project->index(m_project->rowCount(last) - 1, 0, last);
        y = last.isValid() ? visualRect(last).bottom() + 1 : 0;
    }
    m_indicator->setGeometry(0, y - IndicatorHeight / 2, viewport()->width(), IndicatorHeight);
    m_indicator->raise();
}

void CProjectExplorerView::parkIndicator()
{
    m_indicator->setGeometry(0, -2 * IndicatorHeight, 1, IndicatorHeight);
}
