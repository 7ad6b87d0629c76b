#include "shapes/CapsuleLine.h"
#include "shapes/TouchedGrids.h"

#include <cstring>

namespace kivemu {
namespace {

/// Whether a row is covered already: many wide pieces over each other then cost little more than
/// one. Narrow rows are not worth asking.
bool isFull(const uint8_t *bytes, int count)
{
    constexpr int WorthAsking = 64;
    return count >= WorthAsking && bytes[0] == 255 &&
           std::memcmp(bytes, bytes + 1, static_cast<size_t>(count - 1)) == 0;
}

/// Adds one piece to the mask, which keeps the largest coverage of each pixel.
void addPiece(const SCanvas &canvas, CMaskGrid &mask, const CCapsuleLine &line)
{
    const SClip &clip = canvas.clip;
    const SMaskTarget target{mask.row(0), mask.grid().stride, clip.left, clip.top};
    CRunBatch runs([&](const SRun *first, int count) {
        canvas.kernels->capsuleMask(target, first, count, line.coverage());
    });
    line.eachRow(clip, [&](int y, SPixelRange range) {
        if (isFull(target.at(range.first, y), range.count()))
            return;
        runs.add(y, range);
        mask.touch(y - clip.top, range.first - clip.left, range.end - 1 - clip.left);
        mask.touchRows(y - clip.top, y - clip.top + 1);
    });
}

} // namespace

void strokePolyline(const SCanvas &canvas, CMaskGrid &mask, const SPoint *points, int count,
                    bool closed, Sub16 lineWidth, const SInk &ink)
{
    mask.begin(canvas.clip);
    const auto piece = [&](const SPoint &from, const SPoint &to) {
        if (const auto line = CCapsuleLine::create(from, to, lineWidth, canvas.clip))
            addPiece(canvas, mask, *line);
    };
    for (int i = 1; i < count; ++i)
        piece(points[i - 1], points[i]);
    if (closed || count == 1)
        piece(points[count - 1], points[0]);
    canvas.kernels->sweepMask(canvas.target, mask.grid(), ink);
}

} // namespace kivemu
