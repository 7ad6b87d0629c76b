#pragma once

#include <cstdint>
#include <cstring>

#include <emmintrin.h>

#include "kernels/BilinearSse2.h"

// Four pixels a step with what every x86-64 has. The members are explained in VectorPlain.h.

namespace kivemu {
namespace {

struct SSse2
{
    static constexpr int Lanes = 4;

    struct Floats
    {
        __m128 v;
        Floats() = default;
        Floats(__m128 value) : v(value) {}
        explicit Floats(float value) : v(_mm_set1_ps(value)) {}
    };
    struct Ints
    {
        __m128i v;
        Ints() = default;
        Ints(__m128i value) : v(value) {}
        explicit Ints(int32_t value) : v(_mm_set1_epi32(value)) {}
    };
    struct Pixels
    {
        __m128i v;
    };
    struct Colour
    {
        __m128i pixels;
        __m128i words;
        explicit Colour(uint32_t colour)
            : pixels(_mm_set1_epi32(static_cast<int>(colour))),
              words(_mm_unpacklo_epi8(pixels, _mm_setzero_si128()))
        {
        }
    };
    struct Mix
    {
        __m128i rest;  ///< 255 - alpha
        __m128i share; ///< colour * alpha, and the rounding of by255()
        Mix(uint32_t colour, int alpha)
            : rest(_mm_set1_epi16(static_cast<short>(255 - alpha))),
              share(_mm_add_epi16(
                  _mm_mullo_epi16(Colour(colour).words, _mm_set1_epi16(static_cast<short>(alpha))),
                  _mm_set1_epi16(128)))
        {
        }
    };

    friend Floats operator+(Floats a, Floats b) { return _mm_add_ps(a.v, b.v); }
    friend Floats operator-(Floats a, Floats b) { return _mm_sub_ps(a.v, b.v); }
    friend Floats operator*(Floats a, Floats b) { return _mm_mul_ps(a.v, b.v); }
    static Floats max(Floats a, Floats b) { return _mm_max_ps(a.v, b.v); }
    static Floats min(Floats a, Floats b) { return _mm_min_ps(a.v, b.v); }
    static Floats sqrt(Floats a) { return _mm_sqrt_ps(a.v); }
    static Floats abs(Floats a) { return _mm_andnot_ps(_mm_set1_ps(-0.0f), a.v); }
    static Floats choose(Floats sign, Floats a, Floats b)
    {
        const __m128 mask = _mm_cmpge_ps(sign.v, _mm_setzero_ps());
        return _mm_or_ps(_mm_and_ps(mask, a.v), _mm_andnot_ps(mask, b.v));
    }
    static Floats ramp() { return _mm_setr_ps(0, 1, 2, 3); }

    static Ints truncate(Floats a) { return _mm_cvttps_epi32(a.v); }
    static __m128i firstLanes(int count)
    {
        return _mm_cmpgt_epi32(_mm_set1_epi32(count), _mm_setr_epi32(0, 1, 2, 3));
    }
    static Ints keepFirst(Ints a, int count) { return _mm_and_si128(a.v, firstLanes(count)); }
    static bool allAre(Ints a, int32_t value)
    {
        return _mm_movemask_epi8(_mm_cmpeq_epi32(a.v, _mm_set1_epi32(value))) == 0xFFFF;
    }
    static int32_t first(Ints a) { return _mm_cvtsi128_si32(a.v); }
    static Ints loadBytes(const uint8_t *bytes)
    {
        const __m128i zero = _mm_setzero_si128();
        return _mm_unpacklo_epi16(_mm_unpacklo_epi8(loadFour(bytes), zero), zero);
    }
    static void maxBytes(uint8_t *bytes, Ints a)
    {
        const __m128i words = _mm_packs_epi32(a.v, a.v);
        const __m128i larger = _mm_max_epu8(_mm_packus_epi16(words, words), loadFour(bytes));
        const int four = _mm_cvtsi128_si32(larger);
        std::memcpy(bytes, &four, sizeof four);
    }
    static __m128i loadFour(const uint8_t *bytes)
    {
        int four;
        std::memcpy(&four, bytes, sizeof four);
        return _mm_cvtsi32_si128(four);
    }
    static Ints scale(Ints a, Ints b)
    {
        return by255(_mm_add_epi16(_mm_mullo_epi16(a.v, b.v), _mm_set1_epi16(128)));
    }

    /// Words to which 128 has been added already.
    static __m128i by255(__m128i words) { return _mm_mulhi_epu16(words, _mm_set1_epi16(257)); }
    static __m128i mixWords(__m128i below, __m128i colour, __m128i alpha)
    {
        const __m128i rest = _mm_sub_epi16(_mm_set1_epi16(255), alpha);
        const __m128i sum =
            _mm_add_epi16(_mm_mullo_epi16(below, rest), _mm_mullo_epi16(colour, alpha));
        return by255(_mm_add_epi16(sum, _mm_set1_epi16(128)));
    }
    static void blendWords(uint32_t *pixels, Ints alpha, __m128i low, __m128i high)
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i below = loadAny(pixels);
        const __m128i twice = _mm_or_si128(alpha.v, _mm_slli_epi32(alpha.v, 16));
        storeAny(pixels, _mm_packus_epi16(mixWords(_mm_unpacklo_epi8(below, zero), low,
                                                   _mm_unpacklo_epi32(twice, twice)),
                                          mixWords(_mm_unpackhi_epi8(below, zero), high,
                                                   _mm_unpackhi_epi32(twice, twice))));
    }
    static void blend(uint32_t *pixels, Ints alpha, const Colour &colour)
    {
        blendWords(pixels, alpha, colour.words, colour.words);
    }
    static void blend(uint32_t *pixels, Ints alpha, Pixels colours)
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i opaque =
            _mm_or_si128(colours.v, _mm_set1_epi32(static_cast<int>(0xFF000000)));
        blendWords(pixels, alpha, _mm_unpacklo_epi8(opaque, zero), _mm_unpackhi_epi8(opaque, zero));
    }
    static void mix(uint32_t *pixels, const Mix &mix)
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i below = loadAny(pixels);
        const __m128i low = _mm_mullo_epi16(_mm_unpacklo_epi8(below, zero), mix.rest);
        const __m128i high = _mm_mullo_epi16(_mm_unpackhi_epi8(below, zero), mix.rest);
        storeAny(pixels, _mm_packus_epi16(by255(_mm_add_epi16(low, mix.share)),
                                          by255(_mm_add_epi16(high, mix.share))));
    }
    static void fill(uint32_t *pixels, const Colour &colour) { storeAny(pixels, colour.pixels); }

    static bool fillLong(uint32_t *pixels, int count, uint32_t value)
    {
        // The processor's own string store moves whole cache lines; starting it takes a while.
        constexpr int WorthIt = 160;
        if (count < WorthIt)
            return false;
        auto left = static_cast<size_t>(count);
        __asm__ volatile("rep stosl" : "+D"(pixels), "+c"(left) : "a"(value) : "memory");
        return true;
    }

    static __m128i loadAny(const uint32_t *pixels)
    {
        return _mm_loadu_si128(reinterpret_cast<const __m128i *>(pixels));
    }
    static void storeAny(uint32_t *pixels, __m128i value)
    {
        _mm_storeu_si128(reinterpret_cast<__m128i *>(pixels), value);
    }
    static Pixels load(const uint32_t *pixels) { return {loadAny(pixels)}; }
    static void store(uint32_t *pixels, Pixels a) { storeAny(pixels, a.v); }
    static Pixels keepFirst(Pixels a, int count) { return {_mm_and_si128(a.v, firstLanes(count))}; }
    static bool isNothing(Pixels a) { return allAre(a.v, 0); }
    static Ints alphaOf(Pixels a) { return _mm_srli_epi32(a.v, 24); }
    static void over(uint32_t *pixels, Pixels source)
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i below = loadAny(pixels);
        const __m128i alpha = _mm_srli_epi32(source.v, 24);
        const __m128i rest =
            _mm_sub_epi16(_mm_set1_epi16(255), _mm_or_si128(alpha, _mm_slli_epi32(alpha, 16)));
        const __m128i low =
            _mm_mullo_epi16(_mm_unpacklo_epi8(below, zero), _mm_unpacklo_epi32(rest, rest));
        const __m128i high =
            _mm_mullo_epi16(_mm_unpackhi_epi8(below, zero), _mm_unpackhi_epi32(rest, rest));
        const __m128i half = _mm_set1_epi16(128);
        const __m128i shown =
            _mm_packus_epi16(by255(_mm_add_epi16(low, half)), by255(_mm_add_epi16(high, half)));
        storeAny(pixels, _mm_adds_epu8(source.v, shown));
    }
    static Pixels tint(Pixels a, const Colour &tint)
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i half = _mm_set1_epi16(128);
        const __m128i low = _mm_mullo_epi16(_mm_unpacklo_epi8(a.v, zero), tint.words);
        const __m128i high = _mm_mullo_epi16(_mm_unpackhi_epi8(a.v, zero), tint.words);
        return {
            _mm_packus_epi16(by255(_mm_add_epi16(low, half)), by255(_mm_add_epi16(high, half)))};
    }

    static Ints takeCells(int32_t *cells, Ints &sum, Ints alpha)
    {
        auto *place = reinterpret_cast<__m128i *>(cells);
        __m128i totals = _mm_loadu_si128(place);
        _mm_storeu_si128(place, _mm_setzero_si128());
        totals = _mm_add_epi32(totals, _mm_slli_si128(totals, 4));
        totals = _mm_add_epi32(totals, _mm_slli_si128(totals, 8));
        totals = _mm_add_epi32(totals, sum.v);
        sum = _mm_shuffle_epi32(totals, _MM_SHUFFLE(3, 3, 3, 3));
        return foldCells(totals, alpha);
    }
    static Ints foldCells(Ints sums, Ints alpha)
    {
        const __m128i full = _mm_set1_epi32(FullCell);
        const __m128i period = _mm_and_si128(sums.v, _mm_set1_epi32(2 * FullCell - 1));
        const __m128i offPeak = _mm_sub_epi32(period, full);
        const __m128i sign = _mm_srai_epi32(offPeak, 31);
        const __m128i area = _mm_sub_epi32(full, _mm_sub_epi32(_mm_xor_si128(offPeak, sign), sign));
        const __m128i scaled = _mm_madd_epi16(_mm_srli_epi32(area, 3), alpha.v);
        return _mm_srli_epi32(_mm_add_epi32(scaled, _mm_set1_epi32(1 << (FullCellShift - 4))),
                              FullCellShift - 3);
    }

    static void bilinear(uint32_t *pixels, int count, const SBilinearRow &row)
    {
        bilinearSse2(pixels, count, row);
    }
};

} // namespace
} // namespace kivemu
