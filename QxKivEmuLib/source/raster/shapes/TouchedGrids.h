#pragma once

#include "kernels/Kernels.h"

#include <algorithm>
#include <vector>

namespace kivemu {

/// The memory of a touched grid, kept from shape to shape. Whoever fills it has it swept by the
/// kernel, which zeroes it again.
template<class T>
class CTouchedGrid
{
public:
    using Grid = TTouchedGrid<T>;

    /// Covers a rectangle of the surface from now on.
    void begin(const SClip &area)
    {
        const int width = area.right - area.left;
        const int height = area.bottom - area.top;
        // Room for the cell behind the last pixel, and for whole vectors.
        const auto groups = static_cast<size_t>(width / Grid::GroupSize) + 2;
        m_grid.stride = groups * Grid::GroupSize;
        m_grid.touchedStride = (groups + 63) / 64;
        m_grid.left = area.left;
        m_grid.top = area.top;
        m_grid.width = width;
        m_grid.firstRow = height;
        m_grid.endRow = 0;
        const auto rows = static_cast<size_t>(height);
        if (m_values.size() < m_grid.stride * rows)
            m_values.resize(m_grid.stride * rows);
        if (m_touched.size() < m_grid.touchedStride * rows)
            m_touched.resize(m_grid.touchedStride * rows);
        m_grid.values = m_values.data();
        m_grid.touched = m_touched.data();
    }

    T *row(int y) { return m_grid.values + static_cast<size_t>(y) * m_grid.stride; }

    /// Marks the columns first .. last of a row.
    void touch(int y, int first, int last)
    {
        uint64_t *bits = m_grid.touched + static_cast<size_t>(y) * m_grid.touchedStride;
        for (int group = first / Grid::GroupSize; group <= last / Grid::GroupSize; ++group)
            bits[group >> 6] |= uint64_t{1} << (group & 63);
    }
    void touchRows(int first, int end)
    {
        m_grid.firstRow = std::min(m_grid.firstRow, first);
        m_grid.endRow = std::max(m_grid.endRow, end);
    }

    const Grid &grid() const { return m_grid; }

private:
    Grid m_grid{};
    std::vector<T> m_values;
    std::vector<uint64_t> m_touched;
};

class CCellGrid : public CTouchedGrid<int32_t>
{
};
class CMaskGrid : public CTouchedGrid<uint8_t>
{
};

} // namespace kivemu
