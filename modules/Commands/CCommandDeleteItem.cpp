#include "CCommandDeleteItem.h"

#include "CItemModel.h"
#include "CRemovedItems.h"
#include "PropertyKey.h"
#include "RowOperations.h"
#include "ShownText.h"

#include <QStandardItemModel>

CCommandDeleteItem::CCommandDeleteItem(CItemModel *item, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Delete %1").arg(ShownText::name(item->name())), parent),
      m_project(item->model()),
      m_parentItem(item->parent()),
      m_row(item->row())
{
    Q_ASSERT(m_project && m_parentItem);
}

void CCommandDeleteItem::redo()
{
    m_item = RowOperations::take(m_parentItem, m_row);
    CRemovedItems::of(m_project).keep(m_item);
}

void CCommandDeleteItem::undo()
{
    CRemovedItems::of(m_project).release(m_item);
    RowOperations::insert(m_parentItem, m_row, m_item);
    m_item = nullptr;
}
