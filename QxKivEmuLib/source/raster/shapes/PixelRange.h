#pragma once

#include "raster/RasterTypes.h"

namespace kivemu {

/// A length or position in pixels. Every Sub16 and every sum of a few is exact in a double.
inline double toPixels(int64_t sub16)
{
    return static_cast<double>(sub16) * (1.0 / 16);
}

/// Whole pixels from `first` up to but not including `end`.
struct SPixelRange
{
    int first;
    int end;
    bool isEmpty() const { return first >= end; }
    int count() const { return end - first; }
};

/// One axis of the clip: turns positions into whole pixels inside of it. Written so that it costs
/// no branches: shapes ask for several ranges a row.
class CPixelLimits
{
public:
    /// 0 <= low <= high
    CPixelLimits(int low, int high) : m_low(low), m_high(high) {}

    /// The largest whole number that is not above `value`.
    int floor(double value) const { return static_cast<int>(cut(value)); }
    /// The smallest whole number that is not below `value`.
    int ceil(double value) const
    {
        const double inside = cut(value);
        const int below = static_cast<int>(inside);
        return below + (below < inside ? 1 : 0);
    }

    /// The pixels that are touched by low .. high.
    SPixelRange touched(double low, double high) const { return {floor(low), ceil(high)}; }
    /// The pixels that lie completely within low .. high.
    SPixelRange covered(double low, double high) const { return {ceil(low), floor(high)}; }
    /// The pixels whose centres lie within low .. high; of the limits themselves, `high` counts.
    SPixelRange centred(double low, double high) const
    {
        return {floor(low + 0.5), floor(high + 0.5)};
    }

private:
    double cut(double value) const
    {
        const double raised = value > m_low ? value : m_low;
        return raised < m_high ? raised : m_high;
    }

    double m_low;
    double m_high;
};

inline CPixelLimits columnsOf(const SClip &clip)
{
    return {clip.left, clip.right};
}

inline CPixelLimits rowsOf(const SClip &clip)
{
    return {clip.top, clip.bottom};
}

} // namespace kivemu
