#pragma once

#include <emmintrin.h>

#include "kernels/BilinearPlain.h"

namespace kivemu {
namespace {

/// One pixel: `left` and `right` hold the weights of the upper and the lower texel as word pairs.
inline __m128i bilinearSum(const uint32_t *top, int stride, __m128i left, __m128i right)
{
    const __m128i zero = _mm_setzero_si128();
    const __m128i upper = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(top));
    const __m128i lower = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(top + stride));
    const __m128i both = _mm_unpacklo_epi8(upper, lower);
    return _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi8(both, zero), left),
                         _mm_madd_epi16(_mm_unpackhi_epi8(both, zero), right));
}

/// Four neighbouring pixels.
inline __m128i bilinearFour(const SBilinearRow &row, __m128i u, __m128i v)
{
    // Column and row as word pairs, times (1, stride), give the texels' offsets.
    const __m128i whole =
        _mm_or_si128(_mm_srli_epi32(u, 16), _mm_and_si128(v, _mm_set1_epi32(~0xFFFF)));
    const __m128i offsets = _mm_madd_epi16(whole, _mm_set1_epi32(row.stride << 16 | 1));
    alignas(16) int32_t offset[4];
    _mm_store_si128(reinterpret_cast<__m128i *>(offset), offsets);

    const __m128i fraction = _mm_set1_epi32(127);
    const __m128i fx = _mm_and_si128(_mm_srli_epi32(u, 9), fraction);
    const __m128i fy = _mm_and_si128(_mm_srli_epi32(v, 9), fraction);
    const __m128i fx128 = _mm_slli_epi32(fx, 7);
    const __m128i bottomRight = _mm_mullo_epi16(fx, fy);
    const __m128i topRight = _mm_sub_epi32(fx128, bottomRight);
    const __m128i bottomLeft = _mm_sub_epi32(_mm_slli_epi32(fy, 7), bottomRight);
    const __m128i topLeft =
        _mm_sub_epi32(_mm_sub_epi32(_mm_set1_epi32(128 * 128), fx128), bottomLeft);
    const __m128i left = _mm_or_si128(topLeft, _mm_slli_epi32(bottomLeft, 16));
    const __m128i right = _mm_or_si128(topRight, _mm_slli_epi32(bottomRight, 16));

    const auto pixel = [&](int lane, __m128i laneLeft, __m128i laneRight) {
        const __m128i sum = bilinearSum(row.texels + offset[lane], row.stride, laneLeft, laneRight);
        return _mm_srli_epi32(_mm_add_epi32(sum, _mm_set1_epi32(8192)), 14);
    };
    const __m128i first = pixel(0, _mm_shuffle_epi32(left, 0x00), _mm_shuffle_epi32(right, 0x00));
    const __m128i second = pixel(1, _mm_shuffle_epi32(left, 0x55), _mm_shuffle_epi32(right, 0x55));
    const __m128i third = pixel(2, _mm_shuffle_epi32(left, 0xAA), _mm_shuffle_epi32(right, 0xAA));
    const __m128i fourth = pixel(3, _mm_shuffle_epi32(left, 0xFF), _mm_shuffle_epi32(right, 0xFF));
    return _mm_packus_epi16(_mm_packs_epi32(first, second), _mm_packs_epi32(third, fourth));
}

inline void bilinearSse2(uint32_t *pixels, int count, const SBilinearRow &row)
{
    const auto lanes = [](int32_t start, int32_t step) {
        const auto at = [&](uint32_t lane) {
            return static_cast<int>(static_cast<uint32_t>(start) +
                                    lane * static_cast<uint32_t>(step));
        };
        return _mm_setr_epi32(at(0), at(1), at(2), at(3));
    };
    const auto fourTimes = [](int32_t step) {
        return _mm_set1_epi32(static_cast<int>(4 * static_cast<uint32_t>(step)));
    };
    __m128i u = lanes(row.u, row.du);
    __m128i v = lanes(row.v, row.dv);
    const __m128i du = fourTimes(row.du);
    const __m128i dv = fourTimes(row.dv);
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        _mm_storeu_si128(reinterpret_cast<__m128i *>(pixels + i), bilinearFour(row, u, v));
        u = _mm_add_epi32(u, du);
        v = _mm_add_epi32(v, dv);
    }
    SBilinearRow rest = row;
    rest.u = _mm_cvtsi128_si32(u);
    rest.v = _mm_cvtsi128_si32(v);
    bilinearTexels(pixels + i, count - i, rest);
}

} // namespace
} // namespace kivemu
