#pragma once

#include <QUndoCommand>

class CItemModel;
class CScreenModel;
class QStandardItemModel;

/// Takes a screen out of the project.
/// The removed screen belongs to the project's CRemovedItems, not to the command.
class CCommandDeleteScreen final : public QUndoCommand
{
public:
    /// The screen must be in a project.
    explicit CCommandDeleteScreen(CScreenModel *screen, QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;

private:
    QStandardItemModel *const m_project; ///< not owned; owns the stack that owns this command
    const int m_row;
    CItemModel *m_screen = nullptr; ///< the removed screen, while done
};
