#pragma once

#include <QPersistentModelIndex>
#include <QRect>
#include <QVector>

class CItemModel;
class QPainter;
class QPoint;
class QTreeView;

/// Items that are dragged to another place of the tree: finds the place under the pointer, marks it
/// and moves them there, as one step.
class CExplorerItemDrag
{
public:
    explicit CExplorerItemDrag(QTreeView *tree) : m_tree(tree) {}

    /// Front first. None are dragged any more with an empty list.
    void begin(const QVector<CItemModel *> &items);
    bool isActive() const { return !m_items.isEmpty(); }
    /// False where the items cannot go.
    bool follow(const QPoint &position);
    void leave();
    /// To where follow() has led; what was moved.
    QVector<CItemModel *> drop();
    void paint(QPainter *painter) const;

private:
    CItemModel *itemAt(const QModelIndex &index) const;
    void placeBefore(const QModelIndex &row);
    void placeBehind(const QModelIndex &row, int x);
    void placeInto(const QModelIndex &row);
    int bottomOf(QModelIndex row) const;

    QTreeView *const m_tree;
    QVector<CItemModel *> m_items;  ///< not owned; while they are dragged
    QPersistentModelIndex m_target; ///< of the screen or group; invalid: they can go nowhere
    int m_row = 0;
    QRect m_mark; ///< on the viewport: a line, or the row of what they come into
};
