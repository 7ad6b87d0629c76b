#pragma once

#include "executor/BitmapFormats.h"

#include <cstdint>
#include <vector>

namespace bench {

/// A bitmap as it lies in RAM_G, its palette apart.
struct SBitmapSample
{
    kivemu::EBitmapFormat format;
    const char *name;
    int width;
    int height;
    std::vector<uint8_t> pixels;
    std::vector<uint8_t> palette; ///< empty for formats without one
};

/// A picture of a soft-edged disc in all 14 formats; those without alpha, and DXT1, have it on a
/// coloured ground. Sides must be multiples of 8.
std::vector<SBitmapSample> bitmapSamples(int width, int height);

} // namespace bench
