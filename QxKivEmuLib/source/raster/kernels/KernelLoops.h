#pragma once

#include "kernels/Coverage.h"

// The loops of all kernels, made once per vector type.

namespace kivemu {
namespace {

template<class V>
struct TKernelLoops
{
    using Floats = typename V::Floats;
    using Ints = typename V::Ints;
    using Colour = typename V::Colour;
    static constexpr int Lanes = V::Lanes;

    static void fillRow(uint32_t *pixels, int count, const Colour &colour, uint32_t value)
    {
        if (count < Lanes) {
            for (int i = 0; i < count; ++i)
                pixels[i] = value;
            return;
        }
        if (V::fillLong(pixels, count, value))
            return;
        // The first and the last vector may overlap the aligned ones in between.
        uint32_t *end = pixels + count;
        V::fill(pixels, colour);
        V::fill(end - Lanes, colour);
        pixels += Lanes - static_cast<int>(reinterpret_cast<uintptr_t>(pixels) / 4 % Lanes);
        constexpr ptrdiff_t AtOnce = ptrdiff_t{4} * Lanes;
        for (; end - pixels >= AtOnce; pixels += AtOnce)
            for (ptrdiff_t i = 0; i < AtOnce; i += Lanes)
                V::fill(pixels + i, colour);
        for (; end - pixels >= Lanes; pixels += Lanes)
            V::fill(pixels, colour);
    }

    static void mixRow(uint32_t *pixels, int count, const typename V::Mix &mix,
                       const Colour &colour, int alpha)
    {
        int i = 0;
        for (; i + Lanes <= count; i += Lanes)
            V::mix(pixels + i, mix);
        if (i < count)
            V::blend(pixels + i, V::keepFirst(Ints(alpha), count - i), colour);
    }

    static void fillRuns(const STarget &target, const SRun *runs, int count, const SInk &ink)
    {
        const Colour colour(ink.colour);
        const SRun *end = runs + count;
        if (ink.alpha == 255) {
            for (; runs != end; ++runs)
                fillRow(target.row(runs->y) + runs->x, runs->count, colour, ink.colour);
            return;
        }
        const typename V::Mix mix(ink.colour, ink.alpha);
        for (; runs != end; ++runs)
            mixRow(target.row(runs->y) + runs->x, runs->count, mix, colour, ink.alpha);
    }

    /// Coverage, cut to 0 .. 1, as an alpha of 0 .. full, rounded.
    static Ints toAlpha(Floats coverage, Floats full)
    {
        const Floats cut = V::min(V::max(coverage, Floats(0)), Floats(1));
        return V::truncate(cut * full + Floats(0.5f));
    }

    template<class Coverage, class Shape>
    static void shapeRuns(const STarget &target, const SRun *runs, int count, const SInk &ink,
                          const Shape &shape)
    {
        Coverage coverage(shape);
        const Colour colour(ink.colour);
        const Floats full(static_cast<float>(ink.alpha) * coverage.scale());
        const Floats step(static_cast<float>(Lanes));
        for (const SRun *run = runs; run != runs + count; ++run) {
            coverage.beginRow(*run);
            uint32_t *pixels = target.row(run->y) + run->x;
            Floats offset = V::ramp();
            int left = run->count;
            for (; left > Lanes; left -= Lanes) {
                V::blend(pixels, toAlpha(coverage.at(offset), full), colour);
                pixels += Lanes;
                offset = offset + step;
            }
            const Ints last = V::keepFirst(toAlpha(coverage.at(offset), full), left);
            V::blend(pixels, last, colour);
        }
    }

    template<class Coverage, class Shape>
    static void shapeMask(const SMaskTarget &mask, const SRun *runs, int count, const Shape &shape)
    {
        Coverage coverage(shape);
        const Floats full(255 * coverage.scale());
        const Floats step(static_cast<float>(Lanes));
        for (const SRun *run = runs; run != runs + count; ++run) {
            coverage.beginRow(*run);
            uint8_t *bytes = mask.at(run->x, run->y);
            Floats offset = V::ramp();
            for (int left = run->count; left > 0; left -= Lanes) {
                V::maxBytes(bytes, V::keepFirst(toAlpha(coverage.at(offset), full), left));
                bytes += Lanes;
                offset = offset + step;
            }
        }
    }

    static void maskRows(uint32_t *pixels, size_t stride, const uint8_t *coverage,
                         size_t coverageStride, int width, int rows, const SInk &ink)
    {
        const Colour colour(ink.colour);
        const Ints full(ink.alpha);
        for (int y = 0; y < rows; ++y, pixels += stride, coverage += coverageStride)
            for (int x = 0; x < width; x += Lanes) {
                Ints alpha = V::loadBytes(coverage + x);
                if (V::allAre(alpha, 0)) // much of a glyph's box is empty
                    continue;
                if (ink.alpha != 255)
                    alpha = V::scale(alpha, full);
                V::blend(pixels + x, V::keepFirst(alpha, width - x), colour);
            }
    }

    /// Calls group(column, place) for each touched group of a row, in order, and clears its bit.
    template<class T, class Group>
    static void eachTouched(const TTouchedGrid<T> &grid, int row, Group group)
    {
        uint64_t *touched = grid.touched + static_cast<size_t>(row) * grid.touchedStride;
        T *values = grid.values + static_cast<size_t>(row) * grid.stride;
        for (size_t word = 0; word < grid.touchedStride; ++word) {
            uint64_t bits = touched[word];
            touched[word] = 0;
            for (; bits != 0; bits &= bits - 1) {
                const int index = static_cast<int>(word) * 64 + __builtin_ctzll(bits);
                const int column = index * TTouchedGrid<T>::GroupSize;
                group(column, values + column);
            }
        }
    }

    static void sweepCells(const STarget &target, const SCellGrid &grid, const SInk &ink)
    {
        const Colour colour(ink.colour);
        const Ints full(ink.alpha);
        for (int row = grid.firstRow; row < grid.endRow; ++row) {
            uint32_t *pixels = target.row(grid.top + row) + grid.left;
            Ints sum(0);
            int done = 0;
            const auto fillUpTo = [&](int column) {
                const Ints alpha = V::foldCells(sum, full);
                if (column > done && !V::allAre(alpha, 0))
                    spanOf(pixels + done, column - done, V::first(alpha), colour, ink.colour);
            };
            eachTouched(grid, row, [&](int column, int32_t *cells) {
                fillUpTo(column < grid.width ? column : grid.width);
                for (int i = 0; i < SCellGrid::GroupSize; i += Lanes) {
                    const Ints alpha = V::takeCells(cells + i, sum, full);
                    const int left = grid.width - column - i;
                    V::blend(pixels + column + i, V::keepFirst(alpha, left), colour);
                }
                done = column + SCellGrid::GroupSize;
            });
            fillUpTo(grid.width);
        }
    }

    static void spanOf(uint32_t *pixels, int count, int alpha, const Colour &colour, uint32_t value)
    {
        if (alpha == 255)
            fillRow(pixels, count, colour, value);
        else
            mixRow(pixels, count, typename V::Mix(value, alpha), colour, alpha);
    }

    static void sweepMask(const STarget &target, const SMaskGrid &grid, const SInk &ink)
    {
        const Colour colour(ink.colour);
        const Ints full(ink.alpha);
        for (int row = grid.firstRow; row < grid.endRow; ++row) {
            uint32_t *pixels = target.row(grid.top + row) + grid.left;
            eachTouched(grid, row, [&](int column, uint8_t *bytes) {
                for (int i = 0; i < SMaskGrid::GroupSize; i += Lanes) {
                    const Ints alpha = V::scale(V::loadBytes(bytes + i), full);
                    V::blend(pixels + column + i, alpha, colour);
                }
                for (int i = 0; i < SMaskGrid::GroupSize; ++i)
                    bytes[i] = 0;
            });
        }
    }

    static void overVector(uint32_t *pixels, const typename V::Pixels &above)
    {
        const Ints alpha = V::alphaOf(above);
        if (V::allAre(alpha, 255))
            V::store(pixels, above);
        else if (!V::isNothing(above))
            V::over(pixels, above);
    }

    static void overRow(uint32_t *pixels, const uint32_t *source, int count)
    {
        int i = 0;
        for (; i + Lanes <= count; i += Lanes)
            overVector(pixels + i, V::load(source + i));
        if (i < count)
            overVector(pixels + i, V::keepFirst(V::load(source + i), count - i));
    }

    static void tintRow(uint32_t *pixels, int count, uint32_t tint)
    {
        const Colour colour(tint);
        int i = 0;
        for (; i < count; i += Lanes)
            V::store(pixels + i, V::tint(V::load(pixels + i), colour));
    }

    static void colourRow(uint32_t *pixels, const uint32_t *colours, const uint8_t *coverage,
                          int count)
    {
        for (int i = 0; i < count; i += Lanes) {
            const typename V::Pixels above = V::load(colours + i);
            Ints alpha = V::alphaOf(above);
            if (coverage)
                alpha = V::scale(alpha, V::loadBytes(coverage + i));
            V::blend(pixels + i, V::keepFirst(alpha, count - i), above);
        }
    }
};

template<class V>
constexpr SKernels kernelTable()
{
    using Loops = TKernelLoops<V>;
    return {
        Loops::fillRuns,
        Loops::template shapeRuns<TDiscCoverage<V>, SDiscCoverage>,
        Loops::template shapeRuns<TCapsuleCoverage<V>, SCapsuleCoverage>,
        Loops::template shapeRuns<TRingCoverage<V>, SRingCoverage>,
        Loops::template shapeRuns<TButtArcCoverage<V>, SArcCoverage>,
        Loops::template shapeRuns<TRoundArcCoverage<V>, SArcCoverage>,
        Loops::template shapeRuns<TBoxCoverage<V>, SFrameCoverage>,
        Loops::template shapeRuns<TFrameCoverage<V>, SFrameCoverage>,
        Loops::template shapeMask<TCapsuleCoverage<V>, SCapsuleCoverage>,
        Loops::template shapeMask<TBoxCoverage<V>, SFrameCoverage>,
        Loops::maskRows,
        Loops::sweepCells,
        Loops::sweepMask,
        Loops::overRow,
        Loops::tintRow,
        V::bilinear,
        Loops::colourRow,
    };
}

} // namespace
} // namespace kivemu
