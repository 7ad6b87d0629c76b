#pragma once

#include "RowOperations.h"

#include <QUndoCommand>

/// Moves items from their parent to the front of a group, in their order.
class CCommandGroupItem final : public QUndoCommand
{
public:
    /// `rows`: those of the items in `oldParent` at the time of the redo, ascending. `group` need
    /// not be in the tree yet.
    CCommandGroupItem(QStandardItem *oldParent, QStandardItem *group,
                      const RowOperations::Rows &rows, QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;
    int itemCount() const { return m_rows.size(); }

private:
    QStandardItem *const m_oldParent; ///< not owned
    QStandardItem *const m_group;     ///< not owned
    const RowOperations::Rows m_rows;
};
