#pragma once

#include <QUndoCommand>

#include <memory>

class CItemModel;
class CProjectModel;
class CScreenModel;

/// Appends a new screen to the project.
/// Owns the screen while it is undone.
class CCommandAddScreen final : public QUndoCommand
{
public:
    CCommandAddScreen(CScreenModel *screen, CProjectModel *project, QUndoCommand *parent = nullptr);
    ~CCommandAddScreen() override;

    void redo() override;
    void undo() override;

private:
    CProjectModel *const m_project;       ///< not owned
    std::unique_ptr<CItemModel> m_screen; ///< held exactly while undone
    int m_row = 0;                        ///< where the last redo put it
};
