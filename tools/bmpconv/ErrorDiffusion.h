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
/// to and fro so that no pattern leans to one side. Of its error a pixel hands on `visible` / 255
/// (a number a pixel): what is not seen need not be made up for. Every result lies within one gap
/// between codes of its value, and a value that has a code of its own keeps it. The errors are
/// those of the coded values, because the chip also blends and scales these and not light.
std::vector<uint8_t> quantisePlane(const SPlane &plane, int bits, EDither dither,
                                   const std::vector<uint8_t> &visible);

} // namespace kivtools
