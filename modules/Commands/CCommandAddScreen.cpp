#include "CCommandAddScreen.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "RowOperations.h"
#include "ShownText.h"

CCommandAddScreen::CCommandAddScreen(CScreenModel *screen, CProjectModel *project,
                                     QUndoCommand *parent)
    : QUndoCommand(QObject::tr("Add %1").arg(ShownText::name(screen->text())), parent),
      m_project(project),
      m_screen(screen)
{
}

CCommandAddScreen::~CCommandAddScreen() = default;

void CCommandAddScreen::redo()
{
    m_row = m_project->rowCount();
    m_project->appendRow(m_screen.release());
}

void CCommandAddScreen::undo()
{
    m_screen.reset(RowOperations::take(m_project->invisibleRootItem(), m_row));
}
