#include "shapes/CellLine.h"

#include <utility>

namespace kivemu {
namespace {

constexpr int UnitMask = CCellLines::Unit - 1;

/// Whole steps that together make up `total` in `parts` parts of one size, rounding evenly, as
/// along a drawn line: no error adds up and the last part ends where it must.
class CEvenSteps
{
public:
    /// Positions start at `from` and reach `from + total` after `parts` parts of `parts` in all.
    CEvenSteps(int from, int64_t total, int64_t parts)
        : m_position(static_cast<double>(from) + 0.5),
          m_slope(static_cast<double>(total) / static_cast<double>(parts))
    {
    }
    int at(int part) const { return static_cast<int>(m_position + m_slope * part); }

private:
    double m_position;
    double m_slope;
};

} // namespace

void CCellLines::add(int x0, int y0, int x1, int y1)
{
    if (y0 == y1)
        return;
    const bool down = y0 < y1;
    const int firstRow = std::min(y0, y1) >> UnitShift;
    const int endRow = (std::max(y0, y1) + UnitMask) >> UnitShift;
    m_cells.touchRows(firstRow, endRow);
    if (endRow - firstRow == 1) {
        addRow(firstRow, x0, y0, x1, y1);
        return;
    }
    const CEvenSteps columns(x0, x1 - x0, down ? y1 - y0 : y0 - y1);
    int x = x0;
    int y = y0;
    while (y != y1) {
        const int row = down ? y >> UnitShift : (y - 1) >> UnitShift;
        const int border = (down ? row + 1 : row) << UnitShift;
        const bool last = down ? border >= y1 : border <= y1;
        const int nextY = last ? y1 : border;
        const int nextX = last ? x1 : columns.at(down ? nextY - y0 : y0 - nextY);
        addRow(row, x, y, nextX, nextY);
        x = nextX;
        y = nextY;
    }
}

void CCellLines::addRow(int row, int x0, int y0, int x1, int y1)
{
    int32_t *cells = m_cells.row(row);
    // Left to right; the height keeps the direction of the edge.
    const int sign = x0 <= x1 ? 1 : -1;
    if (sign < 0) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const int firstColumn = x0 >> UnitShift;
    const int lastColumn = x1 >> UnitShift;
    m_cells.touch(row, firstColumn, lastColumn + 1);
    if (firstColumn == lastColumn) {
        addCell(cells, firstColumn, sign * (y1 - y0), (x0 & UnitMask) + (x1 & UnitMask));
        return;
    }
    const CEvenSteps heights(y0, y1 - y0, x1 - x0);
    int y = y0;
    int inside = x0 & UnitMask;
    for (int column = firstColumn; column < lastColumn; ++column) {
        const int nextY = heights.at(((column + 1) << UnitShift) - x0);
        addCell(cells, column, sign * (nextY - y), inside + Unit);
        y = nextY;
        inside = 0;
    }
    addCell(cells, lastColumn, sign * (y1 - y), x1 & UnitMask);
}

void CCellLines::addCell(int32_t *row, int column, int height, int twiceX)
{
    row[column] += height * (2 * Unit - twiceX);
    row[column + 1] += height * twiceX;
}

} // namespace kivemu
