#pragma once

#include "raster/RasterTypes.h"

namespace kivemu {

constexpr int FullTurn = 360 * 64; ///< in 1/64 degree

/// A unit vector.
struct SDirection
{
    double x;
    double y;
};

/// The direction of an angle. The standard library's sine differs in the last bit from one
/// processor to the next; this one gives the same frame everywhere. Multiples of 90 degrees are
/// exact.
SDirection direction(int64_t angle);

} // namespace kivemu
