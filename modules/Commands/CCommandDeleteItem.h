#pragma once

#include <QUndoCommand>

class CItemModel;
class QStandardItem;
class QStandardItemModel;

/// Takes an item, with all its members, out of its parent.
/// The removed item belongs to the project's CRemovedItems, not to the command.
class CCommandDeleteItem final : public QUndoCommand
{
public:
    /// The item must be in a project's tree.
    explicit CCommandDeleteItem(CItemModel *item, QUndoCommand *parent = nullptr);

    void redo() override;
    void undo() override;

private:
    QStandardItemModel *const m_project; ///< not owned; owns the stack that owns this command
    QStandardItem *const m_parentItem;   ///< not owned
    const int m_row;
    CItemModel *m_item = nullptr; ///< the removed item, while done
};
