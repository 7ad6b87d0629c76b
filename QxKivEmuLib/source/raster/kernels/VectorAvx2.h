#pragma once

#include <cstdint>

#include <immintrin.h>

#include "kernels/BilinearSse2.h"

// Eight pixels a step. The members are explained in VectorPlain.h. Unpacking and packing stay
// within the two halves of a register, so that pixels come out in the order in which they went in.

namespace kivemu {
namespace {

struct SAvx2
{
    static constexpr int Lanes = 8;

    struct Floats
    {
        __m256 v;
        Floats() = default;
        Floats(__m256 value) : v(value) {}
        explicit Floats(float value) : v(_mm256_set1_ps(value)) {}
    };
    struct Ints
    {
        __m256i v;
        Ints() = default;
        Ints(__m256i value) : v(value) {}
        explicit Ints(int32_t value) : v(_mm256_set1_epi32(value)) {}
    };
    struct Pixels
    {
        __m256i v;
    };
    struct Colour
    {
        __m256i pixels;
        __m256i words;
        explicit Colour(uint32_t colour)
            : pixels(_mm256_set1_epi32(static_cast<int>(colour))),
              words(_mm256_unpacklo_epi8(pixels, _mm256_setzero_si256()))
        {
        }
    };
    struct Mix
    {
        __m256i rest;
        __m256i share;
        Mix(uint32_t colour, int alpha)
            : rest(_mm256_set1_epi16(static_cast<short>(255 - alpha))),
              share(
                  _mm256_add_epi16(_mm256_mullo_epi16(Colour(colour).words,
                                                      _mm256_set1_epi16(static_cast<short>(alpha))),
                                   _mm256_set1_epi16(128)))
        {
        }
    };

    friend Floats operator+(Floats a, Floats b) { return _mm256_add_ps(a.v, b.v); }
    friend Floats operator-(Floats a, Floats b) { return _mm256_sub_ps(a.v, b.v); }
    friend Floats operator*(Floats a, Floats b) { return _mm256_mul_ps(a.v, b.v); }
    static Floats max(Floats a, Floats b) { return _mm256_max_ps(a.v, b.v); }
    static Floats min(Floats a, Floats b) { return _mm256_min_ps(a.v, b.v); }
    static Floats sqrt(Floats a) { return _mm256_sqrt_ps(a.v); }
    static Floats abs(Floats a) { return _mm256_andnot_ps(_mm256_set1_ps(-0.0f), a.v); }
    static Floats choose(Floats sign, Floats a, Floats b)
    {
        return _mm256_blendv_ps(b.v, a.v, _mm256_cmp_ps(sign.v, _mm256_setzero_ps(), _CMP_GE_OQ));
    }
    static Floats ramp() { return _mm256_setr_ps(0, 1, 2, 3, 4, 5, 6, 7); }

    static Ints truncate(Floats a) { return _mm256_cvttps_epi32(a.v); }
    static __m256i firstLanes(int count)
    {
        return _mm256_cmpgt_epi32(_mm256_set1_epi32(count),
                                  _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
    }
    static Ints keepFirst(Ints a, int count) { return _mm256_and_si256(a.v, firstLanes(count)); }
    static bool allAre(Ints a, int32_t value)
    {
        return _mm256_movemask_epi8(_mm256_cmpeq_epi32(a.v, _mm256_set1_epi32(value))) == -1;
    }
    static int32_t first(Ints a) { return _mm_cvtsi128_si32(_mm256_castsi256_si128(a.v)); }
    static Ints loadBytes(const uint8_t *bytes)
    {
        return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i *>(bytes)));
    }
    static void maxBytes(uint8_t *bytes, Ints a)
    {
        const __m128i words =
            _mm_packs_epi32(_mm256_castsi256_si128(a.v), _mm256_extracti128_si256(a.v, 1));
        auto *place = reinterpret_cast<__m128i *>(bytes);
        _mm_storel_epi64(place,
                         _mm_max_epu8(_mm_packus_epi16(words, words), _mm_loadl_epi64(place)));
    }
    static Ints scale(Ints a, Ints b)
    {
        return by255(_mm256_add_epi16(_mm256_mullo_epi16(a.v, b.v), _mm256_set1_epi16(128)));
    }

    static __m256i by255(__m256i words)
    {
        return _mm256_mulhi_epu16(words, _mm256_set1_epi16(257));
    }
    static __m256i mixWords(__m256i below, __m256i colour, __m256i alpha)
    {
        const __m256i rest = _mm256_sub_epi16(_mm256_set1_epi16(255), alpha);
        const __m256i sum =
            _mm256_add_epi16(_mm256_mullo_epi16(below, rest), _mm256_mullo_epi16(colour, alpha));
        return by255(_mm256_add_epi16(sum, _mm256_set1_epi16(128)));
    }
    static void blendWords(uint32_t *pixels, Ints alpha, __m256i low, __m256i high)
    {
        const __m256i zero = _mm256_setzero_si256();
        const __m256i below = loadAny(pixels);
        const __m256i twice = _mm256_or_si256(alpha.v, _mm256_slli_epi32(alpha.v, 16));
        storeAny(pixels, _mm256_packus_epi16(mixWords(_mm256_unpacklo_epi8(below, zero), low,
                                                      _mm256_unpacklo_epi32(twice, twice)),
                                             mixWords(_mm256_unpackhi_epi8(below, zero), high,
                                                      _mm256_unpackhi_epi32(twice, twice))));
    }
    static void blend(uint32_t *pixels, Ints alpha, const Colour &colour)
    {
        blendWords(pixels, alpha, colour.words, colour.words);
    }
    static void blend(uint32_t *pixels, Ints alpha, Pixels colours)
    {
        const __m256i zero = _mm256_setzero_si256();
        const __m256i opaque =
            _mm256_or_si256(colours.v, _mm256_set1_epi32(static_cast<int>(0xFF000000)));
        blendWords(pixels, alpha, _mm256_unpacklo_epi8(opaque, zero),
                   _mm256_unpackhi_epi8(opaque, zero));
    }
    static void mix(uint32_t *pixels, const Mix &mix)
    {
        const __m256i zero = _mm256_setzero_si256();
        const __m256i below = loadAny(pixels);
        const __m256i low = _mm256_mullo_epi16(_mm256_unpacklo_epi8(below, zero), mix.rest);
        const __m256i high = _mm256_mullo_epi16(_mm256_unpackhi_epi8(below, zero), mix.rest);
        storeAny(pixels, _mm256_packus_epi16(by255(_mm256_add_epi16(low, mix.share)),
                                             by255(_mm256_add_epi16(high, mix.share))));
    }
    static void fill(uint32_t *pixels, const Colour &colour) { storeAny(pixels, colour.pixels); }

    static bool fillLong(uint32_t *, int, uint32_t) { return false; }

    static __m256i loadAny(const uint32_t *pixels)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i *>(pixels));
    }
    static void storeAny(uint32_t *pixels, __m256i value)
    {
        _mm256_storeu_si256(reinterpret_cast<__m256i *>(pixels), value);
    }
    static Pixels load(const uint32_t *pixels) { return {loadAny(pixels)}; }
    static void store(uint32_t *pixels, Pixels a) { storeAny(pixels, a.v); }
    static Pixels keepFirst(Pixels a, int count)
    {
        return {_mm256_and_si256(a.v, firstLanes(count))};
    }
    static bool isNothing(Pixels a) { return _mm256_testz_si256(a.v, a.v) != 0; }
    static Ints alphaOf(Pixels a) { return _mm256_srli_epi32(a.v, 24); }
    static void over(uint32_t *pixels, Pixels source)
    {
        const __m256i zero = _mm256_setzero_si256();
        const __m256i below = loadAny(pixels);
        const __m256i alpha = _mm256_srli_epi32(source.v, 24);
        const __m256i rest = _mm256_sub_epi16(_mm256_set1_epi16(255),
                                              _mm256_or_si256(alpha, _mm256_slli_epi32(alpha, 16)));
        const __m256i low = _mm256_mullo_epi16(_mm256_unpacklo_epi8(below, zero),
                                               _mm256_unpacklo_epi32(rest, rest));
        const __m256i high = _mm256_mullo_epi16(_mm256_unpackhi_epi8(below, zero),
                                                _mm256_unpackhi_epi32(rest, rest));
        const __m256i half = _mm256_set1_epi16(128);
        const __m256i shown = _mm256_packus_epi16(by255(_mm256_add_epi16(low, half)),
                                                  by255(_mm256_add_epi16(high, half)));
        storeAny(pixels, _mm256_adds_epu8(source.v, shown));
    }
    static Pixels tint(Pixels a, const Colour &tint)
    {
        const __m256i zero = _mm256_setzero_si256();
        const __m256i half = _mm256_set1_epi16(128);
        const __m256i low = _mm256_mullo_epi16(_mm256_unpacklo_epi8(a.v, zero), tint.words);
        const __m256i high = _mm256_mullo_epi16(_mm256_unpackhi_epi8(a.v, zero), tint.words);
        return {_mm256_packus_epi16(by255(_mm256_add_epi16(low, half)),
                                    by255(_mm256_add_epi16(high, half)))};
    }

    static Ints takeCells(int32_t *cells, Ints &sum, Ints alpha)
    {
        auto *place = reinterpret_cast<__m256i *>(cells);
        __m256i totals = _mm256_loadu_si256(place);
        _mm256_storeu_si256(place, _mm256_setzero_si256());
        totals = _mm256_add_epi32(totals, _mm256_slli_si256(totals, 4));
        totals = _mm256_add_epi32(totals, _mm256_slli_si256(totals, 8));
        // So far each half by itself: the lower half's total goes to the upper one.
        const __m256i lowerHalf = _mm256_permute2x128_si256(totals, totals, 0x08);
        totals = _mm256_add_epi32(totals, _mm256_shuffle_epi32(lowerHalf, 0xFF));
        totals = _mm256_add_epi32(totals, sum.v);
        sum = _mm256_permutevar8x32_epi32(totals, _mm256_set1_epi32(7));
        return foldCells(totals, alpha);
    }
    static Ints foldCells(Ints sums, Ints alpha)
    {
        const __m256i full = _mm256_set1_epi32(FullCell);
        const __m256i period = _mm256_and_si256(sums.v, _mm256_set1_epi32(2 * FullCell - 1));
        const __m256i area =
            _mm256_sub_epi32(full, _mm256_abs_epi32(_mm256_sub_epi32(period, full)));
        const __m256i scaled = _mm256_madd_epi16(_mm256_srli_epi32(area, 3), alpha.v);
        return _mm256_srli_epi32(
            _mm256_add_epi32(scaled, _mm256_set1_epi32(1 << (FullCellShift - 4))),
            FullCellShift - 3);
    }

    static void bilinear(uint32_t *pixels, int count, const SBilinearRow &row)
    {
        bilinearSse2(pixels, count, row);
    }
};

} // namespace
} // namespace kivemu
