#pragma once

#include <QPointF>
#include <QString>

#include <array>
#include <optional>

class CItemModel;

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
bool isBetweenTwoPoints(const CItemModel &item);
} // namespace ItemMove
