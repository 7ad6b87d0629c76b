#pragma once

#include "raster/RasterTypes.h"

#include <algorithm>
#include <cstdint>

namespace kivemu {

// Numbers of the writer as the halves of operand words, cut to what these hold.

inline int64_t clampCoordinate(int64_t value)
{
    return std::clamp<int64_t>(value, INT16_MIN, INT16_MAX);
}

inline uint32_t clampLength(int64_t value)
{
    return static_cast<uint32_t>(std::clamp<int64_t>(value, 0, UINT16_MAX));
}

inline uint32_t pair(int64_t low, int64_t high)
{
    return static_cast<uint32_t>(low & 0xFFFF) | static_cast<uint32_t>(high & 0xFFFF) << 16;
}

inline uint32_t pointWord(SPoint point)
{
    return pair(clampCoordinate(point.x), clampCoordinate(point.y));
}

} // namespace kivemu
