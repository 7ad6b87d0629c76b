#include "CDrawContext.h"

#include <algorithm>
#include <cmath>

namespace kivemu {

namespace {

constexpr double Pi = 3.14159265358979323846;

int roundToPixel(double value)
{
    constexpr double Farthest = 1 << 15;
    return static_cast<int>(std::lround(std::clamp(value, -Farthest, Farthest)));
}

SClip intersected(const SClip &a, const SClip &b)
{
    SClip clip{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
               std::min(a.bottom, b.bottom)};
    clip.right = std::max(clip.left, clip.right);
    clip.bottom = std::max(clip.top, clip.bottom);
    return clip;
}

bool equal(const SClip &a, const SClip &b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

Angle64 toAngle64(double degrees)
{
    return static_cast<Angle64>(std::lround(degrees * 64));
}

/// Both edges are rounded, so that rectangles which touch before touch afterwards.
struct SRectangle
{
    SRectangle(double x, double y, double width, double height)
        : topLeft{toSub16(x), toSub16(y)},
          size{toSub16(x + width) - topLeft.x, toSub16(y + height) - topLeft.y}
    {
    }
    /// From two opposite corners in any order.
    SRectangle(SVector a, SVector b)
        : SRectangle(std::min(a.x, b.x), std::min(a.y, b.y), std::abs(b.x - a.x),
                     std::abs(b.y - a.y))
    {
    }
    SPoint topLeft;
    SPoint size;
};

} // namespace

CDrawContext::CDrawContext(CDisplayListWriter &writer, int width, int height)
    : m_writer(writer), m_emittedScissor{0, 0, width, height}
{
    m_states.emplace_back();
    state().scissor = m_emittedScissor;
    state().limit = m_emittedScissor;
}

void CDrawContext::setScissor(double x, double y, double width, double height)
{
    const SClip wanted{roundToPixel(x), roundToPixel(y), roundToPixel(x + width),
                       roundToPixel(y + height)};
    state().scissor = intersected(wanted, state().limit);
}

void CDrawContext::rotate(double degrees, double x, double y)
{
    state().transform.rotate(degrees, x, y);
}

bool CDrawContext::save()
{
    const size_t base = m_itemBase.empty() ? 0 : m_itemBase.back();
    if (m_states.size() - base > MaxSaved)
        return false;
    const SState copy = state();
    m_states.push_back(copy);
    state().limit = state().scissor;
    return true;
}

bool CDrawContext::restore()
{
    const size_t base = m_itemBase.empty() ? 0 : m_itemBase.back();
    if (m_states.size() - base <= 1)
        return false;
    m_states.pop_back();
    return true;
}

void CDrawContext::beginItem(uint32_t tag)
{
    m_tag = tag;
    m_itemBase.push_back(m_states.size());
    const SState copy = state();
    m_states.push_back(copy);
    state().limit = state().scissor;
}

void CDrawContext::endItem()
{
    m_states.resize(m_itemBase.back());
    m_itemBase.pop_back();
    m_tag = 0;
}

void CDrawContext::takeBack(const SMark &mark)
{
    m_writer.takeBack(mark.list);
    m_emittedScissor = mark.scissor;
    m_emittedTag = mark.tag;
}

void CDrawContext::flushScissor()
{
    if (m_tag != m_emittedTag) {
        m_writer.item(m_tag);
        m_emittedTag = m_tag;
    }
    const SClip &clip = state().scissor;
    if (!equal(clip, m_emittedScissor)) {
        m_writer.setScissor(clip.left, clip.top, clip.right - clip.left, clip.bottom - clip.top);
        m_emittedScissor = clip;
    }
}

void CDrawContext::flush()
{
    flushScissor();
    m_writer.setBlend(state().blend);
    m_writer.setColour(state().colour);
}

void CDrawContext::flushForStroke()
{
    flush();
    m_writer.setLineWidth(toSub16(state().lineWidth));
}

SPoint CDrawContext::point(double x, double y) const
{
    const CTransform &transform = m_states.back().transform;
    if (transform.isIdentity())
        return {toSub16(x), toSub16(y)};
    const SVector mapped = transform.map(x, y);
    return {toSub16(mapped.x), toSub16(mapped.y)};
}

void CDrawContext::clear(Argb colour)
{
    flushScissor();
    m_writer.clear(colour);
}

void CDrawContext::disc(double x, double y, double radius)
{
    if (radius <= 0)
        return;
    flush();
    m_writer.disc(point(x, y), toSub16(radius));
}

void CDrawContext::line(double x0, double y0, double x1, double y1)
{
    flushForStroke();
    m_writer.line(point(x0, y0), point(x1, y1));
}

void CDrawContext::fillRect(double x, double y, double width, double height, double radius)
{
    if (width <= 0 || height <= 0)
        return;
    const CTransform &transform = state().transform;
    if (!transform.keepsRectangles()) {
        addOutline(x, y, width, height, radius);
        polygon();
        return;
    }
    flush();
    const SRectangle mapped =
        transform.isIdentity()
            ? SRectangle(x, y, width, height)
            : SRectangle(transform.map(x, y), transform.map(x + width, y + height));
    m_writer.fillRect(mapped.topLeft, mapped.size, toSub16(std::max(0.0, radius)));
}

void CDrawContext::strokeRect(double x, double y, double width, double height, double radius)
{
    if (width <= 0 || height <= 0)
        return;
    const CTransform &transform = state().transform;
    if (!transform.keepsRectangles()) {
        addOutline(x, y, width, height, radius);
        polyline(true);
        return;
    }
    flushForStroke();
    const SRectangle mapped =
        transform.isIdentity()
            ? SRectangle(x, y, width, height)
            : SRectangle(transform.map(x, y), transform.map(x + width, y + height));
    m_writer.strokeRect(mapped.topLeft, mapped.size, toSub16(std::max(0.0, radius)));
}

/// The points of a rectangle with round corners; enough of them that no edge strays from the circle
/// by more than a twentieth of a pixel.
void CDrawContext::addOutline(double x, double y, double width, double height, double radius)
{
    beginPoints();
    radius = std::clamp(radius, 0.0, std::min(width, height) / 2);
    const SVector corners[4] = {{x + width - radius, y + height - radius},
                                {x + radius, y + height - radius},
                                {x + radius, y + radius},
                                {x + width - radius, y + radius}};
    constexpr double MostSteps = 256;
    constexpr uint64_t WorkPerPoint = 48;
    const int steps =
        radius > 0 ? 2 + static_cast<int>(std::min(std::sqrt(radius) * 2.5, MostSteps)) : 0;
    m_work += 4 * static_cast<uint64_t>(steps + 1) * WorkPerPoint;
    for (int corner = 0; corner < 4; ++corner) {
        for (int step = 0; step <= steps; ++step) {
            const double turn = steps > 0 ? static_cast<double>(step) / steps : 0;
            const double angle = (corner + turn) * Pi / 2;
            addPoint(corners[corner].x + radius * std::cos(angle),
                     corners[corner].y + radius * std::sin(angle));
        }
    }
}

void CDrawContext::arc(double x, double y, double radius, double start, double sweep, EArcCaps caps)
{
    if (radius <= 0)
        return;
    flushForStroke();
    const double turned = std::fmod(start, 360) + state().transform.degrees();
    m_writer.arc(point(x, y), toSub16(radius), toAngle64(turned),
                 toAngle64(std::clamp(sweep, -360.0, 360.0)), caps);
}

bool CDrawContext::addPoint(double x, double y)
{
    if (m_points.size() == MaxPoints)
        return false;
    m_points.push_back(point(x, y));
    return true;
}

void CDrawContext::polyline(bool closed)
{
    flushForStroke();
    m_writer.polyline(m_points.data(), m_points.size(), closed);
}

void CDrawContext::polygon()
{
    if (m_points.size() < 3)
        return;
    flush();
    m_writer.polygon(m_points.data(), m_points.size());
}

void CDrawContext::hatchedBox(double x, double y, double width, double height)
{
    constexpr Argb Fill = 0x40C03030;
    constexpr Argb Lines = 0xA0E04848;
    constexpr double Spacing = 8;
    constexpr double MostLines = 64;
    setBlend(true);
    setColour(Fill);
    fillRect(x, y, width, height, 0);
    setColour(Lines);
    setLineWidth(1);
    // Each line runs where x + y = sum, from the right or top edge to the left or bottom one.
    constexpr uint64_t Work = 2000;
    m_work += Work;
    const double spacing = std::max(Spacing, (width + height) / MostLines);
    for (int i = 1; i * spacing < width + height; ++i) {
        const double sum = i * spacing;
        line(x + std::min(sum, width), y + std::max(0.0, sum - width),
             x + std::max(0.0, sum - height), y + std::min(sum, height));
    }
    strokeRect(x, y, width, height, 0);
}

} // namespace kivemu
