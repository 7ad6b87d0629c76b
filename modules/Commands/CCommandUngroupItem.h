#pragma once

#include <QUndoCommand>

class QStandardItem;

/// Moves one member of a group out of it.
class CCommandUngroupItem final : public QUndoCommand
{
public:
    /// `rowInGroup` and `targetRow` hold at the time of the redo.
    CCommandUngroupItem(QStandardItem *newParent, QStandardItem *group, int rowInGroup,
                        int targetRow, QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;

private:
    QStandardItem *const m_newParent; ///< not owned
    QStandardItem *const m_group;     ///< not owned
    const int m_rowInGroup;
    const int m_targetRow;
};
