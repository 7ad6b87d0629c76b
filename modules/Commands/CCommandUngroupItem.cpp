#include "CCommandUngroupItem.h"

#include "CItemModel.h"
#include "RowOperations.h"

CCommandUngroupItem::CCommandUngroupItem(QStandardItem *newParent, QStandardItem *group,
                                         int rowInGroup, int targetRow, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Ungroup Item"), parent),
      m_newParent(newParent),
      m_group(group),
      m_rowInGroup(rowInGroup),
      m_targetRow(targetRow)
{
}

void CCommandUngroupItem::redo()
{
    CItemModel *item = RowOperations::take(m_group, m_rowInGroup);
    item->setGrouped(false);
    RowOperations::insert(m_newParent, m_targetRow, item);
}

void CCommandUngroupItem::undo()
{
    CItemModel *item = RowOperations::take(m_newParent, m_targetRow);
    item->setGrouped(true);
    RowOperations::insert(m_group, m_rowInGroup, item);
}
