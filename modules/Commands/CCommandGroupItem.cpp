#include "CCommandGroupItem.h"

#include "CItemModel.h"

CCommandGroupItem::CCommandGroupItem(QStandardItem *oldParent, QStandardItem *group,
                                     const RowOperations::Rows &rows, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Group Item"), parent),
      m_oldParent(oldParent),
      m_group(group),
      m_rows(rows)
{
}

void CCommandGroupItem::redo()
{
    const RowOperations::Items items = RowOperations::take(m_oldParent, m_rows);
    for (CItemModel *each : items)
        each->setGrouped(true);
    RowOperations::insert(m_group, RowOperations::span(0, items.size()), items);
}

void CCommandGroupItem::undo()
{
    const RowOperations::Items items =
        RowOperations::take(m_group, RowOperations::span(0, m_rows.size()));
    for (CItemModel *each : items)
        each->setGrouped(false);
    RowOperations::insert(m_oldParent, m_rows, items);
}
