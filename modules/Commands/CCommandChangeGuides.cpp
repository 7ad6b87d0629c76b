#include "CCommandChangeGuides.h"

#include "CScreenModel.h"

CCommandChangeGuides::CCommandChangeGuides(CScreenModel *screen, const ScreenGuideList &guides,
                                           const QString &text, QUndoCommand *parent)
    : QUndoCommand(text, parent),
      m_screen(screen),
      m_newGuides(guides),
      m_oldGuides(screen->guides())
{
}

void CCommandChangeGuides::redo()
{
    m_screen->setGuides(m_newGuides);
}

void CCommandChangeGuides::undo()
{
    m_screen->setGuides(m_oldGuides);
}
