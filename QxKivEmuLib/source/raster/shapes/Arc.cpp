#include "shapes/CapsuleLine.h"
#include "shapes/Trigonometry.h"

namespace kivemu {
namespace {

/// The rectangle that the middle line of an arc reaches, seen from its centre.
struct SReach
{
    double left;
    double top;
    double right;
    double bottom;

    void include(SDirection direction, double radius)
    {
        left = std::min(left, direction.x * radius);
        top = std::min(top, direction.y * radius);
        right = std::max(right, direction.x * radius);
        bottom = std::max(bottom, direction.y * radius);
    }
};

/// For a sweep of less than a full turn; start within 0 .. FullTurn.
SReach arcReach(int64_t start, int64_t sweep, double radius)
{
    const SDirection first = direction(start);
    SReach reach{first.x * radius, first.y * radius, first.x * radius, first.y * radius};
    reach.include(direction(start + sweep), radius);
    constexpr int64_t Quarter = FullTurn / 4;
    for (int64_t axis = (start / Quarter + 1) * Quarter; axis < start + sweep; axis += Quarter)
        reach.include(direction(axis), radius);
    return reach;
}

/// Calls row(y, range) for the pixels of a ring within a rectangle about its centre.
template<class Row>
void eachRingRow(const SRingCoverage &ring, double radius, double reach, const SReach &area,
                 const SClip &clip, Row row)
{
    const SPixelRange rows =
        rowsOf(clip).touched(ring.y + area.top - reach, ring.y + area.bottom + reach);
    const SPixelRange columns =
        columnsOf(clip).touched(ring.x + area.left - reach, ring.x + area.right + reach);
    const CPixelLimits limits(columns.first, columns.end);
    const auto chord = [&](double dy, double chordRadius) {
        const double square = chordRadius * chordRadius - dy * dy;
        const double half = chordRadius > 0 && square > 0 ? std::sqrt(square) : 0;
        return limits.centred(ring.x - half, ring.x + half);
    };
    for (int y = rows.first; y < rows.end; ++y) {
        const double dy = y + 0.5 - ring.y;
        const SPixelRange outer = chord(dy, radius + reach);
        const SPixelRange hole = chord(dy, radius - reach);
        if (hole.isEmpty()) {
            row(y, outer);
            continue;
        }
        row(y, {outer.first, hole.first});
        row(y, {hole.end, outer.end});
    }
}

EWedge wedgeKind(int64_t sweep)
{
    constexpr int64_t Quarter = FullTurn / 4;
    if (sweep < Quarter)
        return EWedge::Narrow;
    if (sweep <= 2 * Quarter)
        return EWedge::Convex;
    return sweep <= 3 * Quarter ? EWedge::Reflex : EWedge::NearlyFull;
}

} // namespace

void strokeArc(const SCanvas &canvas, SPoint centre, Sub16 radius, Angle64 start, Angle64 sweep,
               Sub16 lineWidth, EArcCaps caps, const SInk &ink)
{
    const int64_t length = std::abs(int64_t{sweep});
    const int64_t first = sweep < 0 ? int64_t{start} + sweep : start;
    const int64_t begin = (first % FullTurn + FullTurn) % FullTurn;
    const double r = toPixels(radius);
    const SStrokeReach stroke(toPixels(lineWidth));
    const SRingCoverage ring{toPixels(centre.x), toPixels(centre.y), static_cast<float>(r),
                             static_cast<float>(stroke.reach), static_cast<float>(stroke.scale)};
    const auto draw = [&](auto kernel, const auto &shape, const SReach &area) {
        CRunBatch runs(
            [&](const SRun *list, int count) { kernel(canvas.target, list, count, ink, shape); });
        eachRingRow(ring, r, stroke.reach, area, canvas.clip,
                    [&](int y, SPixelRange range) { runs.add(y, range); });
    };
    if (length >= FullTurn) {
        draw(canvas.kernels->ringRuns, ring, SReach{-r, -r, r, r});
        return;
    }
    const SDirection from = direction(begin);
    const SDirection to = direction(begin + length);
    const SArcCoverage arc{ring,
                           wedgeKind(length),
                           static_cast<float>(from.x),
                           static_cast<float>(from.y),
                           static_cast<float>(to.x),
                           static_cast<float>(to.y)};
    const bool isRound = caps == EArcCaps::Round;
    if (!isRound && length == 0)
        return;
    draw(isRound ? canvas.kernels->roundArcRuns : canvas.kernels->buttArcRuns, arc,
         arcReach(begin, length, r));
}

} // namespace kivemu
