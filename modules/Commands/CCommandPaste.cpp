#include "CCommandPaste.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemXml.h"
#include "RowOperations.h"

CCommandPaste::CCommandPaste(CItemModel *target, std::unique_ptr<CScreenModel> holding,
                             QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Paste"), parent),
      m_target(target),
      m_rowCount(target->rowCount()),
      m_holding(std::move(holding))
{
}

CCommandPaste::CCommandPaste(CItemModel *target, const SItemElement &element, QUndoCommand *parent)
    : CCommandPaste(target,
                    std::make_unique<CScreenModel>(static_cast<CProjectModel *>(target->model())),
                    parent)
{
    ItemXml::read(*m_holding, element);
}

CCommandPaste::~CCommandPaste() = default;

void CCommandPaste::redo()
{
    const RowOperations::Rows rows = RowOperations::span(0, m_holding->rowCount());
    const RowOperations::Items items = RowOperations::take(m_holding.get(), rows);
    RowOperations::setGrouped(items, *m_target);
    RowOperations::insert(m_target, rows, items);
}

void CCommandPaste::undo()
{
    const RowOperations::Rows rows = RowOperations::span(0, m_target->rowCount() - m_rowCount);
    RowOperations::insert(m_holding.get(), rows, RowOperations::take(m_target, rows));
}
