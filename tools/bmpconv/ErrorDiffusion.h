#pragma once

#include <cstdint>
#include <vector>

namespace kivtools {

/// One channel of an image: 8-bit values, rows without padding.
struct SPlane
{
    int width = 0;
    int height = 0;
    std::vector<uint8_t> values;
};

enum class EDither { None, ErrorDiffusion };

/// Turns the values into codes of `bits` bits.
/// With error diffusion what rounding loses at a pixel is made up for by its neighbours, rows taken
/// to and fro so that no pattern leans to one side. `visible` (a value a pixel) says how much of a
/// pixel is seen: one of 0 takes no error in and gives none away, others give away that share of
/// 255. Every result lies within one step of its value, and a value that has a code of its own
/// keeps it. The errors are those of the coded values, because the chip also blends and scales
/// these and not light.
std::vector<uint8_t> quantisePlane(const SPlane &plane, int bits, EDither dither,
                                   const std::vector<uint8_t> &visible);

} // namespace kivtools
