#include "CCommandPaste.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "RowOperations.h"

#include <QDomElement>

CCommandPaste::CCommandPaste(CScreenModel *target, const QDomElement &element, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Paste"), parent),
      m_target(target),
      m_rowCount(target->rowCount()),
      m_holding(std::make_unique<CScreenModel>(static_cast<CProjectModel *>(target->model())))
{
    m_holding->loadFromElement(element);
}

CCommandPaste::~CCommandPaste() = default;

void CCommandPaste::redo()
{
    while (m_holding->hasChildren())
        RowOperations::insert(m_target, 0,
                              RowOperations::take(m_holding.get(), m_holding->rowCount() - 1));
}

void CCommandPaste::undo()
{
    for (int count = m_target->rowCount() - m_rowCount; count > 0; --count)
        RowOperations::insert(m_holding.get(), m_holding->rowCount(),
                              RowOperations::take(m_target, 0));
}
