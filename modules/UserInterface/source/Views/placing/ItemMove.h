#pragma once

#include <QPointF>
#include <QString>
#include <QVector>

#include <array>
#include <optional>

class CItemModel;
class QUndoCommand;

/// What a move sets of an item. Positions in the model are whole numbers; items between two points
/// keep their size.
namespace ItemMove {
struct SAxis
{
    QString key;
    int value;
    QString secondKey;
    std::optional<int> second; ///< of items between two points
};

/// Across and down, of an item that stood at `start`, with its second point at `second`.
std::array<SAxis, 2> axes(const CItemModel &item, const QPointF &start, const QPointF &second,
                          const QPointF &target);
/// Of where the item stands now.
std::array<SAxis, 2> axes(const CItemModel &item, const QPointF &target);
/// What moves the item there, in their order; the second point of an item goes along. Nothing for
/// an axis on which it stays. Owned by `parent` or, without one, by the caller.
QVector<QUndoCommand *> commands(CItemModel *item, const QPointF &target,
                                 QUndoCommand *parent = nullptr);
bool isBetweenTwoPoints(const CItemModel &item);
} // namespace ItemMove
