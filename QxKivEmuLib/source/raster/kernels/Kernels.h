#pragma once

#include "raster/RasterTypes.h"

#include <cstddef>
#include <cstdint>

// The inner loops of the rasterizer. The shapes decide which pixels may be touched and hand them
// over as runs; a kernel works out the coverage of each pixel and blends. There is one table per
// instruction set, all made from the same loops, and each gives the same bytes: per pixel the same
// operations in the same order, none of them contracted or reassociated.

namespace kivemu {

/// The pixels to draw on; kernels may rewrite up to eight pixels behind a run as they are.
struct STarget
{
    uint32_t *pixels;
    size_t stride; ///< pixels from row to row

    uint32_t *row(int y) const { return pixels + static_cast<size_t>(y) * stride; }
};

/// Bytes of coverage for a part of the surface, its first one for the pixel (left, top). A row
/// holds eight bytes more than may be drawn on.
struct SMaskTarget
{
    uint8_t *bytes;
    size_t stride;
    int left;
    int top;

    uint8_t *at(int x, int y) const
    {
        return bytes + static_cast<ptrdiff_t>(stride) * (y - top) + (x - left);
    }
};

/// `count` pixels of row `y` from column `x` on; all inside the target.
struct SRun
{
    int y;
    int x;
    int count;
};

struct SInk
{
    uint32_t colour; ///< 0xFFRRGGBB
    int alpha;       ///< 1 .. 255
};

// Coverage formulas. Centres are in pixels with the surface's origin; coverage is a function of the
// distance between the pixel's centre and the shape's outline: 0 from `reach` on, and full one
// pixel further in. `scale` thins out what is narrower than a pixel.

struct SDiscCoverage
{
    double x;
    double y;
    float reach;
    float scale;
};

/// All pixels within a distance of a line piece.
struct SCapsuleCoverage
{
    double x;
    double y;
    float dx; ///< from one end to the other
    float dy;
    float inverseLength2; ///< 1 / (dx * dx + dy * dy); 0 for a point
    float reach;
    float scale;
};

/// All pixels within a distance of a circle's outline.
struct SRingCoverage
{
    double x;
    double y;
    float radius;
    float reach;
    float scale;
};

enum class EWedge {
    Narrow,     ///< less than a quarter: both edges may run through one pixel
    Convex,     ///< up to a half: inside of both edges
    Reflex,     ///< more: inside of one of them
    NearlyFull, ///< the gap is less than a quarter
};

/// A piece of a ring between two directions, clockwise.
struct SArcCoverage
{
    SRingCoverage ring;
    EWedge wedge;
    float startX; ///< unit vectors
    float startY;
    float endX;
    float endY;
};

/// A rectangle with round corners: exact area along its sides, distance in its corners.
struct SBoxCoverage
{
    float halfWidth;
    float halfHeight;
    float cornerX; ///< from the centre to the corners' centres
    float cornerY;
    float reach; ///< corner radius and a half; large for sharp corners
};

/// What lies inside `outer` and outside `inner`.
struct SFrameCoverage
{
    double x; ///< the common centre
    double y;
    SBoxCoverage outer;
    SBoxCoverage inner;
};

/// Pixels in groups of eight with a bit for each group that was touched, both per row. The kernels
/// that read such a grid leave it zeroed. Columns and rows count from (left, top) of the surface;
/// nothing is drawn from column `width` on.
template<class T>
struct TTouchedGrid
{
    static constexpr int GroupSize = 8;

    T *values;
    size_t stride;
    uint64_t *touched;
    size_t touchedStride;
    int left;
    int top;
    int width;
    int firstRow;
    int endRow;
};

/// Signed areas, FullCell for a whole pixel; the coverage of a pixel is the sum of its row up to
/// and including it, by the even-odd rule.
using SCellGrid = TTouchedGrid<int32_t>;
constexpr int FullCellShift = 17;
constexpr int32_t FullCell = 1 << FullCellShift;

/// 8-bit coverage.
using SMaskGrid = TTouchedGrid<uint8_t>;

/// Texel positions in 1/65536, (0, 0) being the centre of texel (0, 0).
struct SBilinearRow
{
    const uint32_t *texels; ///< texel (0, 0); one more on every side must be readable
    int stride;
    int32_t u;
    int32_t v;
    int32_t du;
    int32_t dv;
};

struct SKernels
{
    using Runs = const SRun *;

    /// One coverage for all: full.
    void (*fillRuns)(const STarget &, Runs, int count, const SInk &);
    void (*discRuns)(const STarget &, Runs, int count, const SInk &, const SDiscCoverage &);
    void (*capsuleRuns)(const STarget &, Runs, int count, const SInk &, const SCapsuleCoverage &);
    void (*ringRuns)(const STarget &, Runs, int count, const SInk &, const SRingCoverage &);
    void (*buttArcRuns)(const STarget &, Runs, int count, const SInk &, const SArcCoverage &);
    void (*roundArcRuns)(const STarget &, Runs, int count, const SInk &, const SArcCoverage &);
    /// Only `outer` counts.
    void (*boxRuns)(const STarget &, Runs, int count, const SInk &, const SFrameCoverage &);
    void (*frameRuns)(const STarget &, Runs, int count, const SInk &, const SFrameCoverage &);

    /// Keeps the larger of what the mask has and the shape's coverage.
    void (*capsuleMask)(const SMaskTarget &, Runs, int count, const SCapsuleCoverage &);
    void (*boxMask)(const SMaskTarget &, Runs, int count, const SFrameCoverage &);

    /// `rows` rows of `width` coverage bytes, their right end readable up to a multiple of eight.
    void (*maskRows)(uint32_t *pixels, size_t stride, const uint8_t *coverage,
                     size_t coverageStride, int width, int rows, const SInk &);
    void (*sweepCells)(const STarget &, const SCellGrid &, const SInk &);
    void (*sweepMask)(const STarget &, const SMaskGrid &, const SInk &);

    /// Premultiplied pixels over what is there; up to eight source pixels behind are read.
    void (*overRow)(uint32_t *pixels, const uint32_t *source, int count);
    /// Multiplies premultiplied pixels by a premultiplied colour.
    void (*tintRow)(uint32_t *pixels, int count, uint32_t tint);
    void (*bilinearRow)(uint32_t *pixels, int count, const SBilinearRow &);
    /// Pixels that are not premultiplied, each with its own alpha, through coverage bytes (null:
    /// full); both readable up to a multiple of eight.
    void (*colourRow)(uint32_t *pixels, const uint32_t *colours, const uint8_t *coverage,
                      int count);
};

bool hasKernelSet(EKernelSet set);
EKernelSet bestKernelSet();
/// The plain ones when the program was built without the set.
const SKernels &kernelSet(EKernelSet set);

} // namespace kivemu
