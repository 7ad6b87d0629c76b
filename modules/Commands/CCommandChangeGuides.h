#pragma once

#include "ScreenGuides.h"

#include <QUndoCommand>

class CScreenModel;

/// Gives a screen other guides. The screen must outlive it, as an item of the project does.
class CCommandChangeGuides final : public QUndoCommand
{
public:
    CCommandChangeGuides(CScreenModel *screen, const ScreenGuideList &guides, const QString &text,
                         QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;

private:
    CScreenModel *const m_screen; ///< not owned
    const ScreenGuideList m_newGuides;
    const ScreenGuideList m_oldGuides;
};
