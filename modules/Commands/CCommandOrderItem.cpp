#include "CCommandOrderItem.h"

#include "CItemModel.h"
#include "RowOperations.h"

#include <QStandardItemModel>

CCommandOrderItem::CCommandOrderItem(CItemModel *item, int newRow, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Order Item"), parent),
      m_item(item),
      m_parentItem(item->parent() ? item->parent() : item->model()->invisibleRootItem()),
      m_oldRow(item->row()),
      m_newRow(newRow)
{
}

void CCommandOrderItem::move(int from, int to)
{
    m_item->setMoving(true);
    RowOperations::insert(m_parentItem, to, RowOperations::take(m_parentItem, from));
    m_item->setMoving(false);
}
