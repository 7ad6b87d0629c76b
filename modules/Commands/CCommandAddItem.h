#pragma once

#include <QUndoCommand>

#include <memory>

class CItemModel;
class QStandardItem;

/// Puts a new item in front of all others of its parent.
/// Owns the item while it is undone.
class CCommandAddItem final : public QUndoCommand
{
public:
    CCommandAddItem(QStandardItem *parentItem, CItemModel *item, QUndoCommand *parent = nullptr);
    ~CCommandAddItem() override;

    void redo() override;
    void undo() override;

private:
    QStandardItem *const m_parentItem;  ///< not owned
    std::unique_ptr<CItemModel> m_item; ///< held exactly while undone
};
