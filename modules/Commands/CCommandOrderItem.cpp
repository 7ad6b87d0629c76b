#include "CCommandOrderItem.h"

#include "CItemModel.h"

CCommandOrderItem::CCommandOrderItem(const RowOperations::Items &items,
                                     const RowOperations::Rows &newRows, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Order Item"), parent),
      m_items(items),
      m_parentItem(RowOperations::parentOf(*items.constFirst())),
      m_oldRows(RowOperations::rowsOf(items)),
      m_newRows(newRows)
{
    Q_ASSERT(m_items.size() == m_newRows.size());
}

void CCommandOrderItem::move(const RowOperations::Rows &from, const RowOperations::Rows &to)
{
    for (CItemModel *each : m_items)
        each->setMoving(true);
    RowOperations::insert(m_parentItem, to, RowOperations::take(m_parentItem, from));
    for (CItemModel *each : m_items)
        each->setMoving(false);
}
