#include "shapes/CRunBatch.h"
#include "shapes/Shapes.h"

#include <cmath>

namespace kivemu {
namespace {

// Below this radius working out where the inside of a row begins costs more than it saves.
constexpr double SmallRadius = 8;

/// A ramp of one pixel across the outline would add a twelfth of a pixel to the squared radius.
/// With that taken off, the coverage sums up to the disc's area.
SDiscCoverage discCoverage(double x, double y, double radius)
{
    const double corrected = radius * radius - 1.0 / 12;
    if (corrected > 0.25)
        return {x, y, static_cast<float>(std::sqrt(corrected) + 0.5), 1};
    // Too small for a full pixel: a cone one pixel wide, its height such that the sum is right.
    return {x, y, 1, static_cast<float>(3 * radius * radius)};
}

/// The pixels of a row whose centres are within `radius` of the centre.
SPixelRange chord(double x, double dy, double radius, const CPixelLimits &columns)
{
    const double square = radius * radius - dy * dy;
    const double half = square > 0 ? std::sqrt(square) : 0;
    return columns.centred(x - half, x + half);
}

} // namespace

void fillDisc(const SCanvas &canvas, SPoint centre, Sub16 radius, const SInk &ink)
{
    const double x = toPixels(centre.x);
    const double y = toPixels(centre.y);
    const double r = toPixels(radius);
    const CPixelLimits columns = columnsOf(canvas.clip);
    const SDiscCoverage disc = discCoverage(x, y, r);
    const double reach = disc.reach;
    const SPixelRange rows = rowsOf(canvas.clip).centred(y - reach, y + reach);
    CRunBatch edges([&](const SRun *runs, int count) {
        canvas.kernels->discRuns(canvas.target, runs, count, ink, disc);
    });
    if (r < SmallRadius) {
        const SPixelRange all = columns.centred(x - reach, x + reach);
        for (int row = rows.first; row < rows.end; ++row)
            edges.add(row, all);
        return;
    }
    CRunBatch insides(solidRuns(canvas, ink));
    for (int row = rows.first; row < rows.end; ++row) {
        const double dy = row + 0.5 - y;
        const SPixelRange outer = chord(x, dy, reach, columns);
        const SPixelRange inner = chord(x, dy, reach - 1, columns);
        if (inner.isEmpty()) {
            edges.add(row, outer);
            continue;
        }
        edges.add(row, {outer.first, inner.first});
        insides.add(row, inner);
        edges.add(row, {inner.end, outer.end});
    }
}

} // namespace kivemu
