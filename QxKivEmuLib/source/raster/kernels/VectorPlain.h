#pragma once

#include <cmath>
#include <cstdint>

#include "kernels/BilinearPlain.h"

// The reference: what each operation of a vector means, in plain C++. The other vectors have the
// same members and must give the same bits. Included by one translation unit only; the unnamed
// namespace keeps code that is compiled for one processor from being linked into another's.

namespace kivemu {
namespace {

struct SPlain
{
    static constexpr int Lanes = 4;

    struct Floats
    {
        float v[Lanes];
        Floats() = default;
        explicit Floats(float value)
        {
            for (float &lane : v)
                lane = value;
        }
    };
    struct Ints
    {
        int32_t v[Lanes];
        Ints() = default;
        explicit Ints(int32_t value)
        {
            for (int32_t &lane : v)
                lane = value;
        }
    };
    struct Pixels
    {
        uint32_t v[Lanes];
    };
    /// A colour to blend with; its alpha must be 255.
    struct Colour
    {
        uint32_t value;
        explicit Colour(uint32_t colour) : value(colour) {}
    };
    /// A colour to blend with at one alpha.
    struct Mix
    {
        uint32_t colour;
        uint32_t alpha;
        Mix(uint32_t mixColour, int mixAlpha)
            : colour(mixColour), alpha(static_cast<uint32_t>(mixAlpha))
        {
        }
    };

    template<class Op>
    static Floats each(const Floats &a, const Floats &b, Op op)
    {
        Floats r{};
        for (int i = 0; i < Lanes; ++i)
            r.v[i] = op(a.v[i], b.v[i]);
        return r;
    }
    friend Floats operator+(const Floats &a, const Floats &b)
    {
        return each(a, b, [](float x, float y) { return x + y; });
    }
    friend Floats operator-(const Floats &a, const Floats &b)
    {
        return each(a, b, [](float x, float y) { return x - y; });
    }
    friend Floats operator*(const Floats &a, const Floats &b)
    {
        return each(a, b, [](float x, float y) { return x * y; });
    }
    static Floats max(const Floats &a, const Floats &b)
    {
        return each(a, b, [](float x, float y) { return x > y ? x : y; });
    }
    static Floats min(const Floats &a, const Floats &b)
    {
        return each(a, b, [](float x, float y) { return x < y ? x : y; });
    }
    static Floats sqrt(const Floats &a)
    {
        return each(a, a, [](float x, float) { return std::sqrt(x); });
    }
    static Floats abs(const Floats &a)
    {
        return each(a, a, [](float x, float) { return std::fabs(x); });
    }
    /// Per lane: `a` where `sign` is 0 or more, else `b`.
    static Floats choose(const Floats &sign, const Floats &a, const Floats &b)
    {
        Floats r{};
        for (int i = 0; i < Lanes; ++i)
            r.v[i] = sign.v[i] >= 0 ? a.v[i] : b.v[i];
        return r;
    }
    /// 0, 1, 2, …
    static Floats ramp()
    {
        Floats r{};
        for (int i = 0; i < Lanes; ++i)
            r.v[i] = static_cast<float>(i);
        return r;
    }

    static Ints truncate(const Floats &a)
    {
        Ints r{};
        for (int i = 0; i < Lanes; ++i)
            r.v[i] = static_cast<int32_t>(a.v[i]);
        return r;
    }
    /// Zero from lane `count` on.
    static Ints keepFirst(Ints a, int count)
    {
        for (int i = 0; i < Lanes; ++i)
            a.v[i] = i < count ? a.v[i] : 0;
        return a;
    }
    static bool allAre(const Ints &a, int32_t value)
    {
        for (int32_t lane : a.v)
            if (lane != value)
                return false;
        return true;
    }
    static int32_t first(const Ints &a) { return a.v[0]; }
    static Ints loadBytes(const uint8_t *bytes)
    {
        Ints r{};
        for (int i = 0; i < Lanes; ++i)
            r.v[i] = bytes[i];
        return r;
    }
    /// The larger of the bytes that are there and the lanes.
    static void maxBytes(uint8_t *bytes, const Ints &a)
    {
        for (int i = 0; i < Lanes; ++i)
            if (a.v[i] > bytes[i])
                bytes[i] = static_cast<uint8_t>(a.v[i]);
    }
    /// a * b / 255, rounded; both 0 .. 255.
    static Ints scale(const Ints &a, const Ints &b)
    {
        Ints r{};
        for (int i = 0; i < Lanes; ++i)
            r.v[i] = static_cast<int32_t>(by255(static_cast<uint32_t>(a.v[i] * b.v[i])));
        return r;
    }

    /// Rounded division by 255, exact for 0 .. 255 * 255.
    static uint32_t by255(uint32_t value) { return (value + 128) * 257 >> 16; }
    static uint32_t mixChannels(uint32_t below, uint32_t colour, uint32_t alpha)
    {
        uint32_t r = 0;
        for (int shift = 0; shift < 32; shift += 8)
            r |= by255((below >> shift & 255) * (255 - alpha) + (colour >> shift & 255) * alpha)
                 << shift;
        return r;
    }

    static void blend(uint32_t *pixels, const Ints &alpha, const Colour &colour)
    {
        for (int i = 0; i < Lanes; ++i)
            pixels[i] = mixChannels(pixels[i], colour.value, static_cast<uint32_t>(alpha.v[i]));
    }
    /// As blend(), each lane with its own colour, whose alpha does not count.
    static void blend(uint32_t *pixels, const Ints &alpha, const Pixels &colours)
    {
        for (int i = 0; i < Lanes; ++i)
            pixels[i] = mixChannels(pixels[i], colours.v[i] | 0xFF000000u,
                                    static_cast<uint32_t>(alpha.v[i]));
    }
    static void mix(uint32_t *pixels, const Mix &mix)
    {
        for (int i = 0; i < Lanes; ++i)
            pixels[i] = mixChannels(pixels[i], mix.colour, mix.alpha);
    }
    static void fill(uint32_t *pixels, const Colour &colour)
    {
        for (int i = 0; i < Lanes; ++i)
            pixels[i] = colour.value;
    }

    /// A faster way for many pixels, if there is one: false leaves them as they are.
    static bool fillLong(uint32_t *, int, uint32_t) { return false; }

    static Pixels load(const uint32_t *pixels)
    {
        Pixels r{};
        for (int i = 0; i < Lanes; ++i)
            r.v[i] = pixels[i];
        return r;
    }
    static void store(uint32_t *pixels, const Pixels &a)
    {
        for (int i = 0; i < Lanes; ++i)
            pixels[i] = a.v[i];
    }
    static Pixels keepFirst(Pixels a, int count)
    {
        for (int i = 0; i < Lanes; ++i)
            a.v[i] = i < count ? a.v[i] : 0;
        return a;
    }
    /// All channels of all pixels are 0.
    static bool isNothing(const Pixels &a)
    {
        uint32_t all = 0;
        for (uint32_t pixel : a.v)
            all |= pixel;
        return all == 0;
    }
    static Ints alphaOf(const Pixels &a)
    {
        Ints r{};
        for (int i = 0; i < Lanes; ++i)
            r.v[i] = static_cast<int32_t>(a.v[i] >> 24);
        return r;
    }
    /// Premultiplied pixels over what is there; channels that exceed their alpha saturate.
    static void over(uint32_t *pixels, const Pixels &source)
    {
        for (int i = 0; i < Lanes; ++i) {
            const uint32_t rest = 255 - (source.v[i] >> 24);
            uint32_t r = 0;
            for (int shift = 0; shift < 32; shift += 8) {
                const uint32_t sum =
                    (source.v[i] >> shift & 255) + by255((pixels[i] >> shift & 255) * rest);
                r |= (sum < 255 ? sum : 255) << shift;
            }
            pixels[i] = r;
        }
    }
    static Pixels tint(Pixels a, const Colour &tint)
    {
        for (uint32_t &pixel : a.v) {
            uint32_t r = 0;
            for (int shift = 0; shift < 32; shift += 8)
                r |= by255((pixel >> shift & 255) * (tint.value >> shift & 255)) << shift;
            pixel = r;
        }
        return a;
    }

    /// Takes the next cells of a row (leaving zeros) and gives their coverage times `alpha`;
    /// `sum` is what the row adds up to so far.
    static Ints takeCells(int32_t *cells, Ints &sum, const Ints &alpha)
    {
        Ints totals{};
        int32_t total = sum.v[0];
        for (int i = 0; i < Lanes; ++i) {
            total += cells[i];
            cells[i] = 0;
            totals.v[i] = total;
        }
        sum = Ints(total);
        return foldCells(totals, alpha);
    }
    /// Even-odd: the sum runs up to a full pixel and down again.
    static Ints foldCells(const Ints &sums, const Ints &alpha)
    {
        Ints r{};
        for (int i = 0; i < Lanes; ++i) {
            const int32_t period = sums.v[i] & (2 * FullCell - 1);
            const int32_t offPeak = period - FullCell;
            const int32_t area = FullCell - (offPeak < 0 ? -offPeak : offPeak);
            r.v[i] = ((area >> 3) * alpha.v[i] + (1 << (FullCellShift - 4))) >> (FullCellShift - 3);
        }
        return r;
    }

    static void bilinear(uint32_t *pixels, int count, const SBilinearRow &row)
    {
        bilinearTexels(pixels, count, row);
    }
};

} // namespace
} // namespace kivemu
