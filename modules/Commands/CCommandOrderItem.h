#pragma once

#include <QUndoCommand>

class CItemModel;
class QStandardItem;

/// Moves an item to another row of its parent; screens move within the project.
/// The item carries its moving mark meanwhile, so that views do not take the move for a removal.
class CCommandOrderItem final : public QUndoCommand
{
public:
    /// The item must be in a project's tree.
    CCommandOrderItem(CItemModel *item, int newRow, QUndoCommand *parent = nullptr);

    void redo() override { move(m_oldRow, m_newRow); }
    void undo() override { move(m_newRow, m_oldRow); }

private:
    void move(int from, int to);

    CItemModel *const m_item;          ///< not owned
    QStandardItem *const m_parentItem; ///< not owned; the model's root for a screen
    const int m_oldRow;
    const int m_newRow;
};
