#include "CRectIndex.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double Cell = 64; ///< scene units
constexpr double MostCells = 1024;

/// The cells that a rectangle lies in, as a rectangle of cells.
QRectF cellsOf(const QRectF &rect)
{
    const QPointF first(std::floor(rect.left() / Cell), std::floor(rect.top() / Cell));
    const QPointF last(std::floor(rect.right() / Cell), std::floor(rect.bottom() / Cell));
    return {first, last};
}

bool isLarge(const QRectF &cells)
{
    return !((cells.width() + 1) * (cells.height() + 1) <= MostCells);
}

template<class Visit>
bool anyCell(const QRectF &cells, const Visit &visit)
{
    for (double y = cells.top(); y <= cells.bottom(); ++y) {
        for (double x = cells.left(); x <= cells.right(); ++x) {
            if (visit(qMakePair(static_cast<int>(x), static_cast<int>(y))))
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
    const QRectF cells = cellsOf(rect);
    if (isLarge(cells)) {
        m_large.append(rect);
        return;
    }
    anyCell(cells, [&](const QPair<int, int> &cell) {
        m_cells[cell].append(rect);
        return false;
    });
}

bool CRectIndex::intersects(const QRectF &rect) const
{
    if (meetsAny(m_large, rect))
        return true;
    const QRectF cells = cellsOf(rect);
    if (isLarge(cells)) // there are fewer that hold any
        return std::any_of(m_cells.begin(), m_cells.end(),
                           [&rect](const auto &each) { return meetsAny(each, rect); });
    return anyCell(cells, [&](const QPair<int, int> &cell) {
        const auto found = m_cells.constFind(cell);
        return found != m_cells.constEnd() && meetsAny(*found, rect);
    });
}
