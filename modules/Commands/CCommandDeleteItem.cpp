#include "CCommandDeleteItem.h"

#include "CItemModel.h"
#include "CRemovedItems.h"
#include "ShownText.h"

#include <QStandardItemModel>

CCommandDeleteItem::CCommandDeleteItem(const RowOperations::Items &items, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Delete %1").arg(ShownText::name(items.constFirst()->name())),
                   parent),
      m_project(items.constFirst()->model()),
      m_parentItem(items.constFirst()->parent()),
      m_rows(RowOperations::rowsOf(items))
{
    Q_ASSERT(m_project && m_parentItem);
}

void CCommandDeleteItem::redo()
{
    m_items = RowOperations::take(m_parentItem, m_rows);
    CRemovedItems &removed = CRemovedItems::of(m_project);
    for (CItemModel *each : qAsConst(m_items))
        removed.keep(each);
}

void CCommandDeleteItem::undo()
{
    CRemovedItems &removed = CRemovedItems::of(m_project);
    for (CItemModel *each : qAsConst(m_items))
        removed.release(each);
    RowOperations::insert(m_parentItem, m_rows, m_items);
    m_items.clear();
}
