#include "CCommandGroupItem.h"

#include "CItemModel.h"
#include "RowOperations.h"

CCommandGroupItem::CCommandGroupItem(QStandardItem *oldParent, QStandardItem *group, int row,
                                     QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Group Item"), parent),
      m_oldParent(oldParent),
      m_group(group),
      m_row(row)
{
}

void CCommandGroupItem::redo()
{
    CItemModel *item = RowOperations::take(m_oldParent, m_row);
    item->setGrouped(true);
    RowOperations::insert(m_group, 0, item);
}

void CCommandGroupItem::undo()
{
    CItemModel *item = RowOperations::take(m_group, 0);
    item->setGrouped(false);
    RowOperations::insert(m_oldParent, m_row, item);
}
