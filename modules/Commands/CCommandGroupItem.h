#pragma once

#include <QUndoCommand>

class QStandardItem;

/// Moves one item from its parent to the front of a group.
class CCommandGroupItem final : public QUndoCommand
{
public:
    /// `row`: the item's row in `oldParent` at the time of the redo. `group` need not be in the
    /// tree yet.
    CCommandGroupItem(QStandardItem *oldParent, QStandardItem *group, int row,
                      QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;

private:
    QStandardItem *const m_oldParent; ///< not owned
    QStandardItem *const m_group;     ///< not owned
    const int m_row;
};
