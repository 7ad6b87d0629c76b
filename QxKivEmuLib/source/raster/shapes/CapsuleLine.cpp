#include "shapes/CapsuleLine.h"

namespace kivemu {
namespace {

constexpr double Unbounded = 1e12;

/// Cuts a line piece to the clip widened by `margin` on each side, by Liang and Barsky's method.
/// Within the clip the distance to what is left is the same, since the cut is farther away than
/// the coverage reaches.
bool cutToView(SPixelPoint &from, SPixelPoint &to, const SClip &clip, double margin)
{
    double first = 0;
    double last = 1;
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const auto cut = [&](double step, double room) { // keeps share * step <= room
        if (step == 0)
            return room >= 0;
        const double share = room / step;
        if (step < 0)
            first = std::max(first, share);
        else
            last = std::min(last, share);
        return first <= last;
    };
    if (!cut(-dx, from.x - (clip.left - margin)) || !cut(dx, clip.right + margin - from.x) ||
        !cut(-dy, from.y - (clip.top - margin)) || !cut(dy, clip.bottom + margin - from.y))
        return false;
    const SPixelPoint start = from;
    if (first > 0)
        from = {start.x + first * dx, start.y + first * dy};
    if (last < 1)
        to = {start.x + last * dx, start.y + last * dy};
    return true;
}

} // namespace

std::optional<CCapsuleLine> CCapsuleLine::create(SPoint from, SPoint to, Sub16 lineWidth,
                                                 const SClip &clip)
{
    SPixelPoint start{toPixels(from.x), toPixels(from.y)};
    SPixelPoint end{toPixels(to.x), toPixels(to.y)};
    const SStrokeReach stroke(toPixels(lineWidth));
    if (!cutToView(start, end, clip, stroke.reach + 2))
        return std::nullopt;
    return CCapsuleLine(start, end, stroke);
}

CCapsuleLine::CCapsuleLine(SPixelPoint from, SPixelPoint to, const SStrokeReach &stroke)
    : m_from(from),
      m_to(to),
      m_reach(stroke.reach),
      m_left(std::min(from.x, to.x) - m_reach),
      m_right(std::max(from.x, to.x) + m_reach),
      m_slope(0),
      m_halfRow(Unbounded)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length2 = dx * dx + dy * dy;
    if (std::fabs(dy) > std::fabs(dx) * 1e-6) {
        m_slope = dx / dy;
        m_halfRow = m_reach * std::sqrt(length2) / std::fabs(dy);
    }
    m_coverage = {from.x,
                  from.y,
                  static_cast<float>(dx),
                  static_cast<float>(dy),
                  length2 > 0 ? static_cast<float>(1 / length2) : 0,
                  static_cast<float>(stroke.reach),
                  static_cast<float>(stroke.scale)};
}

void drawLine(const SCanvas &canvas, SPoint from, SPoint to, Sub16 lineWidth, const SInk &ink)
{
    const auto line = CCapsuleLine::create(from, to, lineWidth, canvas.clip);
    if (!line)
        return;
    CRunBatch runs([&](const SRun *first, int count) {
        canvas.kernels->capsuleRuns(canvas.target, first, count, ink, line->coverage());
    });
    line->eachRow(canvas.clip, [&](int y, SPixelRange range) { runs.add(y, range); });
}

} // namespace kivemu
