#include "CAutosaver.h"

#include "CProjectModel.h"

#include <QUndoStack>

CAutosaver::CAutosaver(CProjectSession *session) : m_session(session)
{
}

CAutosaver::ETick CAutosaver::tick()
{
    if (isMacroOpen(m_session->project()) || (m_isBusy && m_isBusy()))
        return ETick::Postponed;
    if (m_isEditing && m_isEditing() && ++m_editorWaits <= MaxEditorWaits)
        return ETick::Postponed;
    m_editorWaits = 0;
    m_session->autosave();
    return ETick::Done;
}

/// The stack does not say so itself; but only while a macro is open does it hold a command above
/// its index and still refuse to redo it.
bool CAutosaver::isMacroOpen(const CProjectModel *project)
{
    if (!project)
        return false;
    const QUndoStack *stack = project->undoStack();
    return stack->index() < stack->count() && !stack->canRedo();
}
