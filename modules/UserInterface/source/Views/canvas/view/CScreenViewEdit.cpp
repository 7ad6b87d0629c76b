// What the user does to the selection of a screen by menu, keys and clipboard.
#include "CCommandChangeItemProperty.h"
#include "CItemModel.h"
#include "CItemView.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "ItemMove.h"
#include "ItemOperations.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

namespace {
void pushAxis(QUndoStack &stack, CItemModel *item, const ItemMove::SAxis &axis)
{
    const QVariant old = item->propertyValue(axis.key);
    if (old.toString() == QString::number(axis.value))
        return;
    stack.push(new CCommandChangeItemProperty(item, axis.key, axis.value, old));
    if (axis.second)
        stack.push(new CCommandChangeItemProperty(item, axis.secondKey, *axis.second,
                                                  item->propertyValue(axis.secondKey)));
}
} // namespace

QVector<CItemModel *> CScreenView::selectedItems() const
{
    return m_scene->selectedModelItems();
}

void CScreenView::selectCreated(const QVector<CItemModel *> &items)
{
    m_scene->selectModelItems(items);
    Q_EMIT m_scene->QGraphicsScene::selectionChanged();
}

void CScreenView::copy()
{
    if (QMimeData *copied = ItemOperations::toMimeData(selectedItems()))
        QGuiApplication::clipboard()->setMimeData(copied);
}

void CScreenView::cut()
{
    const QVector<CItemModel *> items = selectedItems();
    QMimeData *copied = ItemOperations::toMimeData(items);
    if (!copied)
        return; // nothing is taken away that could not be pasted
    QGuiApplication::clipboard()->setMimeData(copied);
    ItemOperations::remove(items, tr("Cut"));
}

void CScreenView::paste()
{
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    if (!ItemOperations::canPaste(copied)) {
        Q_EMIT message(tr("The clipboard holds neither widgets nor pages, so nothing was pasted."));
        return;
    }
    QString problem;
    const QVector<CItemModel *> pasted = ItemOperations::paste(*screen(), *copied, &problem);
    if (!problem.isEmpty())
        Q_EMIT message(problem);
    if (!pasted.isEmpty())
        selectCreated(pasted);
}

void CScreenView::selectAll()
{
    QVector<CItemModel *> items;
    for (int row = 0; row < screen()->rowCount(); ++row)
        items.append(screen()->childItem(row));
    selectCreated(items);
}

void CScreenView::selectNone()
{
    selectCreated({});
}

void CScreenView::selectInverse()
{
    const QVector<CItemModel *> selected = selectedItems();
    QVector<CItemModel *> items;
    for (int row = 0; row < screen()->rowCount(); ++row) {
        CItemModel *item = screen()->childItem(row);
        if (!selected.contains(item))
            items.append(item);
    }
    selectCreated(items);
}

void CScreenView::orderingToFront()
{
    ItemOperations::order(selectedItems(), ItemOperations::EOrder::ToFront);
}

void CScreenView::orderingToBack()
{
    ItemOperations::order(selectedItems(), ItemOperations::EOrder::ToBack);
}

void CScreenView::orderingForward()
{
    ItemOperations::order(selectedItems(), ItemOperations::EOrder::Forward);
}

void CScreenView::orderingBackward()
{
    ItemOperations::order(selectedItems(), ItemOperations::EOrder::Backward);
}

void CScreenView::group()
{
    const QVector<CItemModel *> items = selectedItems();
    QPoint corner; // of all that they cover
    for (const CItemModel *each : items) {
        const QPointF its = m_scene->viewOf(each)->sceneRect().topLeft();
        const QPoint whole(static_cast<int>(std::floor(its.x())),
                           static_cast<int>(std::floor(its.y())));
        corner = each == items.constFirst()
                     ? whole
                     : QPoint(std::min(corner.x(), whole.x()), std::min(corner.y(), whole.y()));
    }
    if (CItemModel *made = ItemOperations::group(*screen(), items, corner))
        selectCreated({made});
}

void CScreenView::ungroup()
{
    const QVector<CItemModel *> items = selectedItems();
    const bool anyLocked = std::any_of(items.begin(), items.end(), [](const CItemModel *each) {
        return each->kind() == CItemModel::Kind::Group && each->isLocked();
    });
    if (anyLocked)
        Q_EMIT message(tr("A locked group stays together. Unlock it to ungroup it."));
    const QVector<CItemModel *> members = ItemOperations::ungroup(*screen(), items);
    if (!members.isEmpty())
        selectCreated(members);
}

void CScreenView::lockItems()
{
    ItemOperations::toggleLock(selectedItems());
}

// --- moving ---

void CScreenView::itemsMoved(CItemModel *item, QPointF, QPointF newPosition)
{
    QUndoStack &stack = *screen()->project()->undoStack();
    const bool both = ItemMove::isBetweenTwoPoints(*item);
    if (both)
        stack.beginMacro(tr("Move Object"));
    for (const ItemMove::SAxis &axis : ItemMove::axes(*item, newPosition))
        pushAxis(stack, item, axis);
    if (both)
        stack.endMacro();
}

void CScreenView::moveAll(const QVector<CItemModel *> &items, const QVector<QPointF> &newPositions)
{
    for (int index = 0; index < items.size(); ++index) {
        CItemModel *item = items.at(index);
        Q_EMIT itemMoved(item, QPointF(item->x(), item->y()), newPositions.at(index));
    }
}

void CScreenView::itemsDragged(const QVector<CItemModel *> &items,
                               const QVector<QPointF> &newPositions)
{
    const bool isOneLine = items.size() == 1 && ItemMove::isBetweenTwoPoints(*items.constFirst());
    QUndoStack &stack = *screen()->project()->undoStack();
    if (!isOneLine)
        stack.beginMacro(tr("Move Selected Items"));
    moveAll(items, newPositions);
    if (!isOneLine)
        stack.endMacro();
}

void CScreenView::nudge(int dx, int dy)
{
    QVector<CItemModel *> items;
    QVector<QPointF> positions;
    for (CItemModel *each : selectedItems()) {
        if (each->isLocked())
            continue;
        items.append(each);
        positions.append(QPointF(each->x() + dx, each->y() + dy));
    }
    QUndoStack &stack = *screen()->project()->undoStack();
    if (items.size() > 1)
        stack.beginMacro(tr("Move Selected Items")); // several items are one step as well
    moveAll(items, positions);
    if (items.size() > 1)
        stack.endMacro();
}
