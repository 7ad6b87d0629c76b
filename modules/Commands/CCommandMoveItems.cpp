#include "CCommandMoveItems.h"

#include "CItemModel.h"

#include <algorithm>

CCommandMoveItems::CCommandMoveItems(const RowOperations::Items &items, CItemModel *target, int row,
                                     QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Move Item"), parent), m_items(items), m_target(target)
{
    RowOperations::Items byRow = items;
    std::sort(byRow.begin(), byRow.end(), [](const CItemModel *left, const CItemModel *right) {
        return left->row() < right->row();
    });
    int first = row;
    for (CItemModel *each : qAsConst(byRow)) {
        CItemModel *const from = each->parentItem();
        auto source =
            std::find_if(m_sources.begin(), m_sources.end(),
                         [from](const SSource &candidate) { return candidate.parent == from; });
        if (source == m_sources.end())
            source = m_sources.insert(m_sources.end(), {from, {}, {}});
        source->items.append(each);
        source->rows.append(each->row());
        if (from == target && each->row() < row)
            --first;
    }
    m_targetRows = RowOperations::span(first, items.size());
}

void CCommandMoveItems::redo()
{
    for (const SSource &each : qAsConst(m_sources))
        RowOperations::take(each.parent, each.rows);
    RowOperations::setGrouped(m_items, *m_target);
    RowOperations::insert(m_target, m_targetRows, m_items);
}

void CCommandMoveItems::undo()
{
    RowOperations::take(m_target, m_targetRows);
    for (const SSource &each : qAsConst(m_sources)) {
        RowOperations::setGrouped(each.items, *each.parent);
        RowOperations::insert(each.parent, each.rows, each.items);
    }
}
