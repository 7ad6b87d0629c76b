#pragma once

#include "ProjectFonts.h"

#include <QUndoCommand>

class CProjectModel;

/// Gives the project other fonts: added, changed and removed ones in one step. Font files stay
/// where they are, also those that no font uses any more, so that an undo finds them. Sets no text:
/// it is pushed inside a macro that has one.
class CCommandChangeFonts final : public QUndoCommand
{
public:
    CCommandChangeFonts(CProjectModel *project, const ProjectFontList &fonts,
                        QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;

private:
    CProjectModel *const m_project; ///< not owned
    const ProjectFontList m_newFonts;
    const ProjectFontList m_oldFonts;
};
