#include "CCommandPasteScreen.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CUnusedIds.h"
#include "RowOperations.h"

CCommandPasteScreen::CCommandPasteScreen(CProjectModel *project, SItemElement element, int row,
                                         std::shared_ptr<SUnused> unused, QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Paste"), parent),
      m_project(project),
      m_element(std::move(element)),
      m_unused(std::move(unused)),
      m_row(row),
      m_rowCount(project->rowCount())
{
}

CCommandPasteScreen::~CCommandPasteScreen() = default;

void CCommandPasteScreen::redo()
{
    if (m_taken.empty()) {
        m_project->buildScreen(m_element, m_row, m_unused.get());
        m_element = {};
        m_unused.reset();
        return;
    }
    for (; !m_taken.empty(); m_taken.pop_back())
        m_project->appendRow(m_taken.back().release());
}

void CCommandPasteScreen::undo()
{
    while (m_project->rowCount() > m_rowCount)
        m_taken.emplace_back(
            RowOperations::take(m_project->invisibleRootItem(), m_project->rowCount() - 1));
}
