#pragma once

#include <QVector>

class CItemModel;
class QStandardItem;

/// The few steps that the commands are made of. Rows are in ascending order, as the command stored
/// them, and must be valid: the stack replays commands strictly in reverse order.
/// However many rows they are, the model tells of each run of neighbours once.
namespace RowOperations {

using Rows = QVector<int>;
using Items = QVector<CItemModel *>;

struct Run
{
    int first;
    int count;
};
/// The runs of neighbours among ascending rows.
QVector<Run> runsOf(const Rows &rows);
/// So many rows from `first` on.
Rows span(int first, int count);
/// Of children of one parent, in the order of their rows.
Rows rowsOf(const Items &items);
/// Marks items as members, or as none, for a parent that they go to.
void setGrouped(const Items &items, const CItemModel &parent);
/// The item's parent, also of a screen, which is the model's root; null in no tree.
QStandardItem *parentOf(const CItemModel &item);

/// Takes rows out of the parent and gives their items, now owned by the caller.
Items take(QStandardItem *parent, const Rows &rows);
/// Puts items where they have these rows afterwards; the parent owns them from now on.
void insert(QStandardItem *parent, const Rows &rows, const Items &items);
/// The same for one.
CItemModel *take(QStandardItem *parent, int row);
void insert(QStandardItem *parent, int row, CItemModel *item);

} // namespace RowOperations
