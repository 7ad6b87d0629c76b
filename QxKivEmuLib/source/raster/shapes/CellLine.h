#pragma once

#include "shapes/TouchedGrids.h"

namespace kivemu {

/// Adds the edges of a polygon to a grid of cells. Coordinates count from the grid's corner in
/// units of 1/256 pixel.
///
/// An edge adds, to each pixel that it crosses, the area to the right of it (signed by its
/// direction), and what is left of its height to the next pixel, so that the sum of a row up to a
/// pixel is the area covered in that pixel.
class CCellLines
{
public:
    static constexpr int UnitShift = 8;
    static constexpr int Unit = 1 << UnitShift;

    explicit CCellLines(CCellGrid &cells) : m_cells(cells) {}

    /// Both ends must lie within 0 .. width * Unit and 0 .. height * Unit.
    void add(int x0, int y0, int x1, int y1);

private:
    void addRow(int row, int x0, int y0, int x1, int y1);
    void addCell(int32_t *row, int column, int height, int twiceX);

    CCellGrid &m_cells;
};

} // namespace kivemu
