#include "CRectIndex.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {
constexpr double Cell = 64; ///< scene units
constexpr double MostCells = 1024;
constexpr double Farthest = 1 << 30; ///< cells

/// The cells that a rectangle lies in, the last ones among them.
struct SCells
{
    int left;
    int top;
    int right;
    int bottom;
};

/// Nothing for very many cells, and for those that lie too far out to be counted.
std::optional<SCells> cellsOf(const QRectF &rect)
{
    const double left = std::floor(rect.left() / Cell);
    const double top = std::floor(rect.top() / Cell);
    const double right = std::floor(rect.right() / Cell);
    const double bottom = std::floor(rect.bottom() / Cell);
    const bool isNear =
        left >= -Farthest && top >= -Farthest && right <= Farthest && bottom <= Farthest;
    if (!isNear || (right - left + 1) * (bottom - top + 1) > MostCells)
        return std::nullopt;
    return SCells{static_cast<int>(left), static_cast<int>(top), static_cast<int>(right),
                  static_cast<int>(bottom)};
}

template<class Visit>
bool anyCell(const SCells &cells, const Visit &visit)
{
    for (int y = cells.top; y <= cells.bottom; ++y) {
        for (int x = cells.left; x <= cells.right; ++x) {
            if (visit(qMakePair(x, y)))
                return true;
        }
    }
    return false;
}

bool meetsAny(const QVector<QRectF> &rects, const QRectF &rect)
{
    return std::any_of(rects.begin(), rects.end(),
                       [&rect](const QRectF &each) { return each.intersects(rect); });
}
} // namespace

void CRectIndex::add(const QRectF &rect)
{
    const auto cells = cellsOf(rect);
    if (!cells) {
        m_large.append(rect);
        return;
    }
    anyCell(*cells, [&](const QPair<int, int> &cell) {
        m_cells[cell].append(rect);
        return false;
    });
}

bool CRectIndex::intersects(const QRectF &rect) const
{
    if (meetsAny(m_large, rect))
        return true;
    const auto cells = cellsOf(rect);
    if (!cells) // there are fewer that hold any
        return std::any_of(m_cells.begin(), m_cells.end(),
                           [&rect](const auto &each) { return meetsAny(each, rect); });
    return anyCell(*cells, [&](const QPair<int, int> &cell) {
        const auto found = m_cells.constFind(cell);
        return found != m_cells.constEnd() && meetsAny(*found, rect);
    });
}
