#pragma once

#include "RasterTypes.h"

#include <cstdint>

namespace kivemu {

/// What a shape costs to draw, from its geometry alone: about the pixels that it touches within the
/// clip, so that the same list costs the same with every set of kernels and on every machine.
namespace drawingwork {

/// In sixteenths of a pixel; wide enough for sums of any two lengths.
struct SBox
{
    double left;
    double top;
    double right;
    double bottom;

    static SBox of(SPoint topLeft, SPoint size);
    static SBox about(SPoint centre, Sub16 radius);
};

/// A shape that fills the box; `weight` of a plain fill is 1.
uint64_t ofBox(const SClip &clip, const SBox &box, int weight = 1);
/// A stroke of `length` along a path within the box.
uint64_t ofStroke(const SClip &clip, const SBox &box, double length, Sub16 lineWidth);
uint64_t ofLine(const SClip &clip, SPoint from, SPoint to, Sub16 lineWidth);
uint64_t ofPolyline(const SClip &clip, const SPoint *points, int count, bool closed,
                    Sub16 lineWidth);
uint64_t ofPolygon(const SClip &clip, const SPoint *points, int count);

} // namespace drawingwork

} // namespace kivemu
