#pragma once

#include <QUndoCommand>

#include <memory>

class CItemModel;
class QStandardItem;

/// Puts a new item at a given row of its parent.
/// Owns the item while it is undone.
class CCommandInsertItem final : public QUndoCommand
{
public:
    CCommandInsertItem(QStandardItem *parentItem, CItemModel *item, int row,
                       QUndoCommand *parent = nullptr);
    ~CCommandInsertItem() override;

    void redo() override;
    void undo() override;

private:
    QStandardItem *const m_parentItem;  ///< not owned
    std::unique_ptr<CItemModel> m_item; ///< held exactly while undone
    const int m_row;
};
