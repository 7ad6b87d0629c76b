#include "CProjectSelection.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "ItemTree.h"

#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <iterator>
#include <utility>

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
    m_lastTouched = nullptr;
    m_haveRowsChanged = false;
}

QList<CItemModel *> CProjectSelection::topmostItems() const
{
    const auto isTopmost = [this](const CItemModel *each) {
        CItemModel *above = each->parentItem();
        while (above && !m_items.contains(above))
            above = above->parentItem();
        return !above;
    };
    const QList<CItemModel *> all = items();
    QList<CItemModel *> topmost;
    std::copy_if(all.begin(), all.end(), std::back_inserter(topmost), isTopmost);
    return topmost;
}

QList<CItemModel *> CProjectSelection::shownItems() const
{
    return m_member ? QList<CItemModel *>{m_member} : items();
}

void CProjectSelection::select(const QList<CItemModel *> &items)
{
    const QSet<CItemModel *> wanted(items.begin(), items.end());
    QList<CItemModel *> ordered;
    for (CItemModel *each : m_items.list()) {
        if (wanted.contains(each))
            ordered.append(each);
    }
    for (CItemModel *each : items) {
        if (!m_items.contains(each))
            ordered.append(each);
    }
    m_items = CItemSequence(ordered);
    m_member = nullptr;
}

void CProjectSelection::selectMember(CItemModel *member)
{
    CItemModel *selectable = member;
    while (selectable->isGrouped())
        selectable = selectable->parentItem();
    m_items = CItemSequence({selectable});
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
        CItemModel *item = itemAt(parent, row);
        if (item && !item->isMoving())
            forget(item);
    }
}

/// With all below it.
void CProjectSelection::forget(CItemModel *gone)
{
    forEachItem(*gone, [this](CItemModel &each) {
        for (CItemSequence *items : {&m_items, &m_arrived, &m_touched})
            items->remove(&each);
        if (m_lastTouched == &each)
            m_lastTouched = nullptr;
        if (m_member == &each)
            m_member = nullptr;
    });
}

/// Of an item the page, where it is seen. What a page itself is like is seen in the explorer.
void CProjectSelection::touch(CItemModel *item)
{
    if (!item || !item->parentItem())
        return;
    while (item->parentItem())
        item = item->parentItem();
    if (m_lastTouched != item) // which comes for each of many
        m_touched.append(item);
    m_lastTouched = item;
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
    const QList<CItemModel *> touched = std::exchange(m_touched, {}).list();
    m_lastTouched = nullptr;
    if (isReplayed(index) && !touched.isEmpty())
        Q_EMIT pagesTouched(touched);
    if (!std::exchange(m_haveRowsChanged, false))
        return;
    const QList<CItemModel *> arrived = std::exchange(m_arrived, {}).list();
    select(arrived.isEmpty() ? items() : arrived);
    Q_EMIT stepDone();
}
