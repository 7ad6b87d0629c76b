#pragma once

#include "RowOperations.h"

#include <QUndoCommand>

class QStandardItemModel;

/// Takes items of one parent, with all their members, out of it.
/// The removed items belong to the project's CRemovedItems, not to the command.
class CCommandDeleteItem final : public QUndoCommand
{
public:
    /// At least one item of a project's tree, in the order of their rows.
    explicit CCommandDeleteItem(const RowOperations::Items &items, QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;
    int itemCount() const { return m_rows.size(); }

private:
    QStandardItemModel *const m_project; ///< not owned; owns the stack that owns this command
    QStandardItem *const m_parentItem;   ///< not owned
    const RowOperations::Rows m_rows;
    RowOperations::Items m_items; ///< the removed ones, while done
};
