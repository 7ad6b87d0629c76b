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

double area(const SClip &clip, double left, double top, double right, double bottom)
{
    return within(left, right, clip.left, clip.right) * within(top, bottom, clip.top, clip.bottom);
}

uint64_t whole(double pixels)
{
    return PerShape + static_cast<uint64_t>(pixels);
}

} // namespace

uint64_t ofBox(const SClip &clip, SPoint topLeft, SPoint size, int weight)
{
    const double left = topLeft.x;
    const double top = topLeft.y;
    return whole(area(clip, left, top, left + size.x, top + size.y) * weight);
}

uint64_t ofStroke(const SClip &clip, SPoint corner, SPoint opposite, double length, Sub16 lineWidth)
{
    constexpr double Edges = 2; // pixels beside the line that are partly covered
    const double half = lineWidth / 2.0;
    const double box =
        area(clip, std::min(corner.x, opposite.x) - half, std::min(corner.y, opposite.y) - half,
             std::max(corner.x, opposite.x) + half, std::max(corner.y, opposite.y) + half);
    const double path = (length + lineWidth) / Pixel * (lineWidth / Pixel + Edges);
    return whole(std::min(box, path));
}

uint64_t ofLine(const SClip &clip, SPoint from, SPoint to, Sub16 lineWidth)
{
    const double dx = double(to.x) - from.x;
    const double dy = double(to.y) - from.y;
    const double length = std::sqrt(dx * dx + dy * dy); // not hypot, whose rounding is left open
    return ofStroke(clip, from, to, length, lineWidth);
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
    double left = points[0].x;
    double top = points[0].y;
    double right = left;
    double bottom = top;
    for (int i = 0; i < count; ++i) {
        const SPoint &point = points[i];
        const SPoint &next = points[(i + 1) % count];
        left = std::min<double>(left, point.x);
        right = std::max<double>(right, point.x);
        top = std::min<double>(top, point.y);
        bottom = std::max<double>(bottom, point.y);
        const double rows =
            within(std::min(point.y, next.y), std::max(point.y, next.y), clip.top, clip.bottom);
        work += PerEdgeRow * (1 + static_cast<uint64_t>(rows));
    }
    return work + static_cast<uint64_t>(area(clip, left, top, right, bottom));
}

} // namespace kivemu::drawingwork
