#include "CDrawContext.h"
#include "LuaColour.h"

#include <algorithm>
#include <cmath>

namespace kivemu {

namespace {

constexpr double Pi = 3.14159265358979323846;

/// The part of a convex shape whose points p have p * normal >= from.
std::vector<SVector> clipped(const std::vector<SVector> &shape, SVector normal, double from)
{
    std::vector<SVector> part;
    for (size_t i = 0; i < shape.size(); ++i) {
        const SVector p = shape[i];
        const SVector q = shape[(i + 1) % shape.size()];
        const double inP = p.x * normal.x + p.y * normal.y - from;
        const double inQ = q.x * normal.x + q.y * normal.y - from;
        if (inP >= 0)
            part.push_back(p);
        if ((inP >= 0) != (inQ >= 0)) {
            const double t = inP / (inP - inQ);
            part.push_back({p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)});
        }
    }
    return part;
}

} // namespace

/// The chip fills upright rectangles with gradients; others are laid down as bands.
void CDrawContext::gradient(double x, double y, double width, double height, Argb from, Argb to,
                            double direction, double radius)
{
    if (width <= 0 || height <= 0)
        return;
    const CTransform &transform = state().transform;
    const double turned = std::fmod(direction, 360) + transform.degrees();
    radius = std::max(0.0, radius);
    if (transform.keepsRectangles()) {
        flushScissor();
        m_writer.setBlend(state().blend);
        const SVector a = transform.map(x, y);
        const SVector b = transform.map(x + width, y + height);
        const SPoint topLeft{toSub16(std::min(a.x, b.x)), toSub16(std::min(a.y, b.y))};
        const SPoint size{toSub16(std::max(a.x, b.x)) - topLeft.x,
                          toSub16(std::max(a.y, b.y)) - topLeft.y};
        m_writer.gradient(topLeft, size, toSub16(radius),
                          static_cast<Angle64>(std::lround(turned * 64)), from, to);
        return;
    }
    const double radians = std::fmod(direction, 360) * (Pi / 180);
    const double extent =
        (std::abs(std::cos(radians)) * width + std::abs(std::sin(radians)) * height) / 2;
    addOutline(x, y, width, height, radius);
    std::vector<SVector> outline;
    for (const SPoint &corner : m_points)
        outline.push_back({corner.x / 16.0, corner.y / 16.0});
    gradientBands(outline, transform.map(x + width / 2, y + height / 2), turned * (Pi / 180),
                  extent, from, to);
}

/// `outline` is convex and in the frame's coordinates; so are `centre` and `direction` (radians).
/// An opaque band reaches from its own start to the far end of the shape, so that no seam lets the
/// background through; translucent ones must not cover each other and end where the next starts.
void CDrawContext::gradientBands(const std::vector<SVector> &outline, SVector centre,
                                 double direction, double extent, Argb from, Argb to)
{
    constexpr int MostBands = 48;
    constexpr uint64_t WorkPerBand = 200;
    constexpr uint64_t WorkPerPoint = 20;
    const Argb outside = state().colour;
    const SVector along{std::cos(direction), std::sin(direction)};
    const double origin = centre.x * along.x + centre.y * along.y - extent;
    const bool isOpaque = (from & to) >> 24 == 0xFF || !state().blend;
    const int bands = std::clamp(static_cast<int>(extent), 2, MostBands);
    const double step = 2 * extent / bands;
    for (int band = 0; band < bands; ++band) {
        std::vector<SVector> shape = outline;
        if (band > 0)
            shape = clipped(shape, along, origin + step * band);
        if (!isOpaque && band + 1 < bands)
            shape = clipped(shape, {-along.x, -along.y}, -(origin + step * (band + 1)));
        m_work += WorkPerBand + (outline.size() + shape.size()) * WorkPerPoint;
        m_points.clear();
        for (const SVector &corner : shape)
            m_points.push_back({toSub16(corner.x), toSub16(corner.y)});
        setColour(mixColours(from, to, (band + 0.5) / bands));
        polygon();
    }
    setColour(outside);
}

} // namespace kivemu
