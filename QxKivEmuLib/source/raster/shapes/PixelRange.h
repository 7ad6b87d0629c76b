#pragma once

#include "raster/RasterTypes.h"

namespace kivemu {

/// A length or position in pixels. Every Sub16 and every sum of a few is exact in a double.
inline double toPixels(int64_t sub16)
{
    return static_cast<double>(sub16) * (1.0 / 16);
}

/// The largest whole number that is not above `value`, cut to low .. high (0 <= low).
inline int floorWithin(double value, int low, int high)
{
    if (!(value > low))
        return low;
    return value >= high ? high : static_cast<int>(value);
}

/// The smallest whole number that is not below `value`, cut to low .. high (0 <= low).
inline int ceilWithin(double value, int low, int high)
{
    const int below = floorWithin(value, low, high);
    return below < value && below < high ? below + 1 : below;
}

/// Whole pixels from `first` up to but not including `end`.
struct SPixelRange
{
    int first;
    int end;
    bool isEmpty() const { return first >= end; }
    int count() const { return end - first; }
};

/// The pixels that are touched by low .. high.
inline SPixelRange touchedPixels(double low, double high, int clipLow, int clipHigh)
{
    return {floorWithin(low, clipLow, clipHigh), ceilWithin(high, clipLow, clipHigh)};
}

/// The pixels whose centres lie within low .. high.
inline SPixelRange centredPixels(double low, double high, int clipLow, int clipHigh)
{
    return {ceilWithin(low - 0.5, clipLow, clipHigh), floorWithin(high + 0.5, clipLow, clipHigh)};
}

} // namespace kivemu
