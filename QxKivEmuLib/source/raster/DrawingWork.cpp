#include "DrawingWork.h"

#include <algorithm>
#include <cmath>

namespace kivemu::drawingwork {

namespace {

constexpr double Pixel = 16;
constexpr uint64_t PerShape = 64; ///< also a shape of one pixel has to be set up
constexpr uint64_t PerEdgeRow = 4;

/// The pixels of a range of sixteenths within from..to.
double within(double first, double last, int from, int to)
{
    return std::max(0.0, std::min(std::ceil(last / Pixel), double(to)) -
                             std::max(std::floor(first / Pixel), double(from)));
}

double area(const SClip &clip, const SBox &box)
{
    return within(box.left, box.right, clip.left, clip.right) *
           within(box.top, box.bottom, clip.top, clip.bottom);
}

uint64_t whole(double pixels)
{
    return PerShape + static_cast<uint64_t>(pixels);
}

} // namespace

SBox SBox::of(SPoint topLeft, SPoint size)
{
    const double left = topLeft.x;
    const double top = topLeft.y;
    return {left, top, left + size.x, top + size.y};
}

SBox SBox::about(SPoint centre, Sub16 radius)
{
    const double x = centre.x;
    const double y = centre.y;
    return {x - radius, y - radius, x + radius, y + radius};
}

uint64_t ofBox(const SClip &clip, const SBox &box, int weight)
{
    return whole(area(clip, box) * weight);
}

uint64_t ofStroke(const SClip &clip, const SBox &box, double length, Sub16 lineWidth)
{
    constexpr double Edges = 2; // pixels beside the line that are partly covered
    const double width = lineWidth;
    const double half = width / 2;
    const double filled =
        area(clip, {box.left - half, box.top - half, box.right + half, box.bottom + half});
    const double path = (length + width) / Pixel * (width / Pixel + Edges);
    return whole(std::min(filled, path));
}

uint64_t ofLine(const SClip &clip, SPoint from, SPoint to, Sub16 lineWidth)
{
    const SBox box{
        static_cast<double>(std::min(from.x, to.x)), static_cast<double>(std::min(from.y, to.y)),
        static_cast<double>(std::max(from.x, to.x)), static_cast<double>(std::max(from.y, to.y))};
    const double dx = box.right - box.left;
    const double dy = box.bottom - box.top;
    const double length = std::sqrt(dx * dx + dy * dy); // not hypot, whose rounding is left open
    return ofStroke(clip, box, length, lineWidth);
}

uint64_t ofPolyline(const SClip &clip, const SPoint *points, int count, bool closed,
                    Sub16 lineWidth)
{
    uint64_t work = 0;
    for (int i = 1; i < count; ++i)
        work += ofLine(clip, points[i - 1], points[i], lineWidth);
    return closed && count > 0 ? work + ofLine(clip, points[count - 1], points[0], lineWidth)
                               : work;
}

uint64_t ofPolygon(const SClip &clip, const SPoint *points, int count)
{
    uint64_t work = PerShape;
    SBox box = SBox::of(points[0], {0, 0});
    for (int i = 0; i < count; ++i) {
        const SPoint &point = points[i];
        const SPoint &next = points[(i + 1) % count];
        box.left = std::min<double>(box.left, point.x);
        box.right = std::max<double>(box.right, point.x);
        box.top = std::min<double>(box.top, point.y);
        box.bottom = std::max<double>(box.bottom, point.y);
        const double rows =
            within(std::min(point.y, next.y), std::max(point.y, next.y), clip.top, clip.bottom);
        work += PerEdgeRow * (1 + static_cast<uint64_t>(rows));
    }
    return work + static_cast<uint64_t>(area(clip, box));
}

} // namespace kivemu::drawingwork
