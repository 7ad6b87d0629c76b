#include "CProjectSelection.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "ItemTree.h"

#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {
CItemModel *pageOf(CItemModel *item)
{
    while (item->parentItem())
        item = item->parentItem();
    return item;
}

/// From the page on, and an end.
void appendRows(QVector<int> &rows, const CItemModel *item)
{
    const int first = rows.size();
    for (; item; item = item->parentItem())
        rows.insert(first, item->row());
    rows.append(-1);
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
    connect(project, &QAbstractItemModel::rowsAboutToBeInserted, this,
            &CProjectSelection::rowsAboutToChange);
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
    m_steps.clear();
}

/// Now the rows still lead to what was selected before the step.
void CProjectSelection::rowsAboutToChange()
{
    if (!m_haveRowsChanged)
        m_before = mark();
}

CProjectSelection::SMark CProjectSelection::mark() const
{
    SMark mark;
    for (const CItemModel *each : m_items.list())
        appendRows(mark.rows, each);
    if (m_member)
        appendRows(mark.member, m_member);
    return mark;
}

QList<CItemModel *> CProjectSelection::itemsOf(const QVector<int> &rows) const
{
    QList<CItemModel *> items;
    QStandardItem *item = m_project->invisibleRootItem();
    for (const int row : rows) {
        if (row >= 0) {
            item = item ? item->child(row) : nullptr;
            continue;
        }
        if (CItemModel *found = CItemModel::fromItem(item))
            items.append(found);
        item = m_project->invisibleRootItem();
    }
    return items;
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
        if (item && !item->isMoving())
            m_arrived.append(item);
    }
}

void CProjectSelection::rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    rowsAboutToChange();
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
    item = pageOf(item);
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
    QList<CItemModel *> arrived = std::exchange(m_arrived, {}).list();
    // Members are, in the group that their canvas has entered.
    arrived.erase(std::remove_if(arrived.begin(), arrived.end(),
                                 [](const CItemModel *each) { return !each->isSelectable(); }),
                  arrived.end());
    const bool haveRowsChanged = std::exchange(m_haveRowsChanged, false);
    m_lastTouched = nullptr;
    const int last = m_index;
    const bool isOld = isReplayed(index);
    const bool isKnown = isOld && std::max(index, last) <= m_steps.size() && index != last;
    const SMark before = haveRowsChanged ? m_before : mark();
    // What a group is shown for after rows have moved is the group itself.
    if (isKnown && bringBack(index < last ? m_steps.at(index).before : m_steps.at(index - 1).after,
                             touched, !haveRowsChanged)) {
        if (haveRowsChanged || !(mark() == before))
            Q_EMIT stepDone();
        return;
    }
    if (isOld && !touched.isEmpty())
        Q_EMIT pagesTouched(touched);
    if (haveRowsChanged)
        select(arrived.isEmpty() ? items() : arrived);
    if (!isOld)
        record(index, before);
    if (haveRowsChanged)
        Q_EMIT stepDone();
}

/// Selections that are the same share their memory.
void CProjectSelection::record(int index, const SMark &before)
{
    m_steps.resize(std::max(0, index - 1));
    SStep step{before, mark()};
    if (!m_steps.isEmpty() && m_steps.constLast().after == before)
        step.before = m_steps.constLast().after;
    if (step.after == step.before)
        step.after = step.before;
    m_steps.append(step);
}

/// What was selected elsewhere than where the step has changed something is left alone: what has
/// changed is to be seen.
bool CProjectSelection::bringBack(const SMark &mark, const QList<CItemModel *> &touched,
                                  bool withMember)
{
    const QList<CItemModel *> items = itemsOf(mark.rows);
    QList<CItemModel *> pages;
    for (CItemModel *each : items) {
        CItemModel *page = pageOf(each);
        if (!pages.contains(page))
            pages.append(page);
        if (page != each && !touched.isEmpty() && !touched.contains(page))
            return false;
    }
    pages.erase(std::remove_if(pages.begin(), pages.end(),
                               [&touched](CItemModel *each) { return !touched.contains(each); }),
                pages.end());
    if (!touched.isEmpty())
        Q_EMIT pagesTouched(pages.isEmpty() ? touched : pages);
    const QList<CItemModel *> members = withMember ? itemsOf(mark.member) : QList<CItemModel *>();
    if (members.isEmpty())
        select(items);
    else
        selectMember(members.constFirst());
    return true;
}
