#pragma once

#include <cstdint>

namespace kivemu {

using Sub16 = int32_t;   ///< a length in sixteenths of a pixel; pixel centres lie at 8, 24, …
using Angle64 = int32_t; ///< an angle in 1/64 degree, clockwise from three o'clock
using Argb = uint32_t;   ///< 0xAARRGGBB, colour not multiplied by alpha

struct SPoint
{
    Sub16 x;
    Sub16 y;
};

/// Whole pixels; right and bottom lie outside.
struct SClip
{
    int left;
    int top;
    int right;
    int bottom;
};

/// How a shape's pixels get onto the target.
struct SPaint
{
    Argb colour = 0;
    bool blend = true; ///< off: alpha counts as opaque, edges are still smoothed by coverage
};

enum class EArcCaps { Round, Butt };

enum class EKernelSet { Plain, Sse2, Avx2 };

} // namespace kivemu
