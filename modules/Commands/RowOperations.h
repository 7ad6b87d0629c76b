#pragma once

class CItemModel;
class QStandardItem;
class QStandardItemModel;

/// The few steps that the commands are made of. Rows are as the command stored them and must be
/// valid: the stack replays commands strictly in reverse order.
namespace RowOperations {

/// Takes a row out of the parent and gives its item, now owned by the caller.
CItemModel *take(QStandardItem *parent, int row);
/// Puts an item into the parent, which owns it from now on.
void insert(QStandardItem *parent, int row, CItemModel *item);

} // namespace RowOperations
