#pragma once

#include "RowOperations.h"

#include <QUndoCommand>

/// Moves items to other rows of their parent, in their order; screens move within the project.
/// The items carry their moving mark meanwhile, so that views do not take the move for a removal.
class CCommandOrderItem final : public QUndoCommand
{
public:
    /// At least one item of a project's tree, in the order of their rows; `newRows`, ascending, are
    /// theirs afterwards.
    CCommandOrderItem(const RowOperations::Items &items, const RowOperations::Rows &newRows,
                      QUndoCommand *parent = nullptr);

    void redo() override { move(m_oldRows, m_newRows); }
    void undo() override { move(m_newRows, m_oldRows); }
    const RowOperations::Items &items() const { return m_items; }

private:
    void move(const RowOperations::Rows &from, const RowOperations::Rows &to);

    const RowOperations::Items m_items; ///< not owned
    QStandardItem *const m_parentItem;  ///< not owned; the model's root for screens
    const RowOperations::Rows m_oldRows;
    const RowOperations::Rows m_newRows;
};
