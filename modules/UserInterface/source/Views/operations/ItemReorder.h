#pragma once

#include <QVector>

class CItemModel;

/// Moves items to another place in the order of a page, into and out of groups, as one step. No
/// item changes its place on the page; only what covers what does.
namespace ItemReorder {
using Items = QVector<CItemModel *>;

/// Nothing that is in a locked group leaves it and nothing comes into one, and no group comes into
/// itself.
bool canMove(const Items &items, const CItemModel &target);
/// Before the row of a screen or group, in the order of `items`; behind all with its row count.
/// Groups that have lost all their members go. Names that another item of the page has count up.
/// False when everything is in its place already.
bool move(const Items &items, CItemModel &target, int row);
} // namespace ItemReorder
