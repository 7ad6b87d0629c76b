#include "CCommandInsertItem.h"

#include "CItemModel.h"
#include "PropertyKey.h"
#include "RowOperations.h"
#include "ShownText.h"

CCommandInsertItem::CCommandInsertItem(QStandardItem *parentItem, CItemModel *item, int row,
                                       QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Insert %1").arg(ShownText::name(item->name())), parent),
      m_parentItem(parentItem),
      m_item(item),
      m_row(row)
{
}

CCommandInsertItem::~CCommandInsertItem() = default;

void CCommandInsertItem::redo()
{
    RowOperations::insert(m_parentItem, m_row, m_item.release());
}

void CCommandInsertItem::undo()
{
    m_item.reset(RowOperations::take(m_parentItem, m_row));
}
