#pragma once

#include "RowOperations.h"

#include <QUndoCommand>

/// Moves members of a group out of it, to neighbouring rows of its parent.
class CCommandUngroupItem final : public QUndoCommand
{
public:
    /// `rowsInGroup`, ascending, and `targetRow`, of the first of them, hold at the time of the
    /// redo.
    CCommandUngroupItem(QStandardItem *newParent, QStandardItem *group,
                        const RowOperations::Rows &rowsInGroup, int targetRow,
                        QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;

private:
    QStandardItem *const m_newParent; ///< not owned
    QStandardItem *const m_group;     ///< not owned
    const RowOperations::Rows m_rowsInGroup;
    const RowOperations::Rows m_targetRows;
};
