#include "CCommandUngroupItem.h"

#include "CItemModel.h"

CCommandUngroupItem::CCommandUngroupItem(QStandardItem *newParent, QStandardItem *group,
                                         const RowOperations::Rows &rowsInGroup, int targetRow,
                                         QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Ungroup Item"), parent),
      m_newParent(newParent),
      m_group(group),
      m_rowsInGroup(rowsInGroup),
      m_targetRows(RowOperations::span(targetRow, rowsInGroup.size()))
{
}

void CCommandUngroupItem::redo()
{
    const RowOperations::Items items = RowOperations::take(m_group, m_rowsInGroup);
    for (CItemModel *each : items)
        each->setGrouped(false);
    RowOperations::insert(m_newParent, m_targetRows, items);
}

void CCommandUngroupItem::undo()
{
    const RowOperations::Items items = RowOperations::take(m_newParent, m_targetRows);
    for (CItemModel *each : items)
        each->setGrouped(true);
    RowOperations::insert(m_group, m_rowsInGroup, items);
}
