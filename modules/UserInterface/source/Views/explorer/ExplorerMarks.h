#pragma once

#include <QRect>

/// The marks at the end of an item's row, which are clicked: the eye hides and shows the item, the
/// lock locks and unlocks it.
namespace ExplorerMarks {
constexpr int Side = 16;  // pixels
constexpr int Width = 44; ///< of a row's end that is theirs

enum EMark { None, Eye, Lock };

QRect place(EMark mark, const QRect &row);
/// None between and beside them.
EMark at(const QPoint &position, const QRect &row);
} // namespace ExplorerMarks
