#include "CCommandChangeFonts.h"

#include "CProjectModel.h"

CCommandChangeFonts::CCommandChangeFonts(CProjectModel *project, const ProjectFontList &fonts,
                                         QUndoCommand *parent)
    : QUndoCommand(parent), m_project(project), m_newFonts(fonts), m_oldFonts(project->fonts())
{
}

void CCommandChangeFonts::redo()
{
    m_project->setFonts(m_newFonts);
}

void CCommandChangeFonts::undo()
{
    m_project->setFonts(m_oldFonts);
}
