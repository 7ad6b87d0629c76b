#include "CProjectSelection.h"

#include "CItemModel.h"
#include "CProjectModel.h"

#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {
bool isBelow(const QStandardItem *item, const QStandardItem *above)
{
    while (item && item != above)
        item = item->parent();
    return item != nullptr;
}
} // namespace

CProjectSelection::CProjectSelection(QObject *parent) : QObject(parent)
{
}

void CProjectSelection::setProject(CProjectModel *project)
{
    if (m_project) {
        m_project->disconnect(this);
        m_project->undoStack()->disconnect(this);
    }
    clear();
    m_project = project;
    if (!project)
        return;
    isReplayed(project->undoStack()->index());
    connect(project, &QAbstractItemModel::modelAboutToBeReset, this, &CProjectSelection::clear);
    connect(project, &QAbstractItemModel::rowsInserted, this, &CProjectSelection::rowsInserted);
    connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &CProjectSelection::rowsAboutToBeRemoved);
    connect(project, &CProjectModel::propertyChanged, this, &CProjectSelection::touch);
    connect(project->undoStack(), &QUndoStack::indexChanged, this, &CProjectSelection::endStep);
}

void CProjectSelection::clear()
{
    select({});
    m_arrived.clear();
    m_touched.clear();
    m_haveRowsChanged = false;
}

QList<CItemModel *> CProjectSelection::topmostItems() const
{
    const QSet<const QStandardItem *> selected(m_items.begin(), m_items.end());
    const auto isTopmost = [&selected](const CItemModel *each) {
        const QStandardItem *above = each->parent();
        while (above && !selected.contains(above))
            above = above->parent();
        return !above;
    };
    QList<CItemModel *> topmost;
    std::copy_if(m_items.begin(), m_items.end(), std::back_inserter(topmost), isTopmost);
    return topmost;
}

QList<CItemModel *> CProjectSelection::shownItems() const
{
    return m_member ? QList<CItemModel *>{m_member} : m_items;
}

void CProjectSelection::select(const QList<CItemModel *> &items)
{
    m_items = items;
    m_member = nullptr;
}

void CProjectSelection::selectMember(CItemModel *member)
{
    CItemModel *selectable = member;
    while (selectable->isGrouped())
        selectable = selectable->parentItem();
    m_items = {selectable};
    m_member = member == selectable ? nullptr : member;
}

CItemModel *CProjectSelection::itemAt(const QModelIndex &parent, int row) const
{
    return CItemModel::fromItem(m_project->itemFromIndex(m_project->index(row, 0, parent)));
}

void CProjectSelection::rowsInserted(const QModelIndex &parent, int first, int last)
{
    m_haveRowsChanged = true;
    touch(itemAt(parent, first));
    for (int row = first; row <= last; ++row) {
        CItemModel *item = itemAt(parent, row);
        if (item && !item->isMoving() && !item->isGrouped())
            m_arrived.append(item);
    }
}

void CProjectSelection::rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    m_haveRowsChanged = true;
    touch(itemAt(parent, first));
    for (int row = first; row <= last; ++row) {
        const CItemModel *item = itemAt(parent, row);
        if (item && !item->isMoving())
            forget(item);
    }
}

void CProjectSelection::forget(const CItemModel *gone)
{
    const auto isGone = [gone](const CItemModel *each) { return isBelow(each, gone); };
    for (QList<CItemModel *> *items : {&m_items, &m_arrived, &m_touched})
        items->erase(std::remove_if(items->begin(), items->end(), isGone), items->end());
    if (m_member && isGone(m_member))
        m_member = nullptr;
}

/// Of an item the page, where it is seen. What a page itself is like is seen in the explorer.
void CProjectSelection::touch(CItemModel *item)
{
    if (!item || !item->parentItem())
        return;
    while (item->parentItem())
        item = item->parentItem();
    if (!m_touched.isEmpty() && m_touched.constLast() == item)
        return;
    m_touched.removeOne(item);
    m_touched.append(item);
}

/// Whether the step that has led to this index is an old one. A new one is made before it takes the
/// place of what could have been redone, so that the two cannot be mistaken for each other.
bool CProjectSelection::isReplayed(int index)
{
    const QUndoStack &stack = *m_project->undoStack();
    const int before = std::exchange(m_index, index);
    const QUndoCommand *next = std::exchange(m_next, stack.command(index));
    return index < before || (next && stack.command(before) == next);
}

void CProjectSelection::endStep(int index)
{
    const QList<CItemModel *> touched = std::exchange(m_touched, {});
    if (isReplayed(index) && !touched.isEmpty())
        Q_EMIT pagesTouched(touched);
    if (!std::exchange(m_haveRowsChanged, false))
        return;
    const QList<CItemModel *> arrived = std::exchange(m_arrived, {});
    select(arrived.isEmpty() ? m_items : arrived);
    Q_EMIT stepDone();
}
