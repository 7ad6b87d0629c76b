#pragma once

#include "kernels/Kernels.h"

namespace kivemu {
namespace {

struct SFourTexels
{
    uint32_t topLeft;
    uint32_t topRight;
    uint32_t bottomLeft;
    uint32_t bottomRight;
};

/// The mean of four texels at a position in 1/128 texel. The weights are whole numbers of 14 bits,
/// so that there is one rounding.
inline uint32_t bilinearMean(const SFourTexels &texels, uint32_t fx, uint32_t fy)
{
    const uint32_t bottomRight = fx * fy;
    const uint32_t topRight = fx * 128 - bottomRight;
    const uint32_t bottomLeft = fy * 128 - bottomRight;
    const uint32_t topLeft = 128 * 128 - fx * 128 - bottomLeft;
    uint32_t r = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const uint32_t sum = (texels.topLeft >> shift & 255) * topLeft +
                             (texels.topRight >> shift & 255) * topRight +
                             (texels.bottomLeft >> shift & 255) * bottomLeft +
                             (texels.bottomRight >> shift & 255) * bottomRight;
        r |= ((sum + 8192) >> 14) << shift;
    }
    return r;
}

inline void bilinearTexels(uint32_t *pixels, int count, const SBilinearRow &row)
{
    // 64 bits: the position behind the last pixel is not bounded.
    int64_t u = row.u;
    int64_t v = row.v;
    for (int i = 0; i < count; ++i, u += row.du, v += row.dv) {
        const uint32_t *top = row.texels + static_cast<ptrdiff_t>(v >> 16) * row.stride + (u >> 16);
        const uint32_t *bottom = top + row.stride;
        pixels[i] =
            bilinearMean({top[0], top[1], bottom[0], bottom[1]},
                         static_cast<uint32_t>(u >> 9 & 127), static_cast<uint32_t>(v >> 9 & 127));
    }
}

} // namespace
} // namespace kivemu
