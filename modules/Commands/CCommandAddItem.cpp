#include "CCommandAddItem.h"

#include "CItemModel.h"
#include "PropertyKey.h"
#include "RowOperations.h"
#include "ShownText.h"

CCommandAddItem::CCommandAddItem(QStandardItem *parentItem, CItemModel *item, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Add %1").arg(ShownText::name(item->name())), parent),
      m_parentItem(parentItem),
      m_item(item)
{
}

CCommandAddItem::~CCommandAddItem() = default;

void CCommandAddItem::redo()
{
    if (const CItemModel *parent = CItemModel::fromItem(m_parentItem))
        RowOperations::setGrouped({m_item.get()}, *parent);
    RowOperations::insert(m_parentItem, 0, m_item.release());
}

void CCommandAddItem::undo()
{
    m_item.reset(RowOperations::take(m_parentItem, 0));
}
