#pragma once

#include "kernels/Kernels.h"

// The coverage formulas, one class each: beginRow() for a run, then at() for the pixels that lie
// `offset` columns behind its start. The caller cuts results to 0 .. 1 and multiplies by scale().

namespace kivemu {
namespace {

/// From a point to the centre of the run's first pixel.
struct SRowOffset
{
    float x;
    float y;
    SRowOffset(const SRun &run, double fromX, double fromY)
        : x(static_cast<float>(run.x + 0.5 - fromX)), y(static_cast<float>(run.y + 0.5 - fromY))
    {
    }
};

template<class V>
class TDiscCoverage
{
public:
    using Floats = typename V::Floats;

    explicit TDiscCoverage(const SDiscCoverage &disc) : m_disc(disc), m_reach(disc.reach) {}
    void beginRow(const SRun &run)
    {
        const SRowOffset start(run, m_disc.x, m_disc.y);
        m_x = Floats(start.x);
        m_y2 = Floats(start.y * start.y);
    }
    Floats at(Floats offset) const
    {
        const Floats x = m_x + offset;
        return m_reach - V::sqrt(x * x + m_y2);
    }
    float scale() const { return m_disc.scale; }

private:
    const SDiscCoverage &m_disc;
    const Floats m_reach;
    Floats m_x;
    Floats m_y2;
};

template<class V>
class TCapsuleCoverage
{
public:
    using Floats = typename V::Floats;

    explicit TCapsuleCoverage(const SCapsuleCoverage &line)
        : m_line(line),
          m_dx(line.dx),
          m_dy(line.dy),
          m_along(line.dx * line.inverseLength2),
          m_reach(line.reach)
    {
    }
    void beginRow(const SRun &run)
    {
        const SRowOffset start(run, m_line.x, m_line.y);
        m_x = Floats(start.x);
        m_y = Floats(start.y);
        m_alongRow = Floats(start.y * m_line.dy * m_line.inverseLength2);
    }
    Floats at(Floats offset) const
    {
        const Floats x = m_x + offset;
        const Floats share = V::min(V::max(x * m_along + m_alongRow, Floats(0)), Floats(1));
        const Floats ex = x - share * m_dx;
        const Floats ey = m_y - share * m_dy;
        return m_reach - V::sqrt(ex * ex + ey * ey);
    }
    float scale() const { return m_line.scale; }

private:
    const SCapsuleCoverage &m_line;
    const Floats m_dx;
    const Floats m_dy;
    const Floats m_along;
    const Floats m_reach;
    Floats m_x;
    Floats m_y;
    Floats m_alongRow;
};

template<class V>
class TRingCoverage
{
public:
    using Floats = typename V::Floats;

    explicit TRingCoverage(const SRingCoverage &ring)
        : m_ring(ring), m_radius(ring.radius), m_reach(ring.reach)
    {
    }
    void beginRow(const SRun &run)
    {
        const SRowOffset start(run, m_ring.x, m_ring.y);
        m_x = Floats(start.x);
        m_y = Floats(start.y);
        m_y2 = Floats(start.y * start.y);
    }
    Floats x(Floats offset) const { return m_x + offset; }
    Floats y() const { return m_y; }
    Floats fromOutline(Floats x) const { return V::abs(V::sqrt(x * x + m_y2) - m_radius); }
    Floats inside(Floats distance) const { return m_reach - distance; }
    Floats at(Floats offset) const { return inside(fromOutline(x(offset))); }
    float scale() const { return m_ring.scale; }

private:
    const SRingCoverage &m_ring;
    const Floats m_radius;
    const Floats m_reach;
    Floats m_x;
    Floats m_y;
    Floats m_y2;
};

/// The two edges of an arc as signed distances, positive on the arc's side.
template<class V>
class TWedge
{
public:
    using Floats = typename V::Floats;

    explicit TWedge(const SArcCoverage &arc)
        : m_startX(arc.startX), m_startY(arc.startY), m_endX(arc.endX), m_endY(arc.endY)
    {
    }
    Floats fromStart(Floats x, Floats y) const { return y * m_startX - x * m_startY; }
    Floats fromEnd(Floats x, Floats y) const { return x * m_endY - y * m_endX; }

private:
    const Floats m_startX;
    const Floats m_startY;
    const Floats m_endX;
    const Floats m_endY;
};

template<class V>
class TButtArcCoverage
{
public:
    using Floats = typename V::Floats;

    explicit TButtArcCoverage(const SArcCoverage &arc)
        : m_ring(arc.ring), m_wedge(arc), m_kind(arc.wedge)
    {
    }
    void beginRow(const SRun &run) { m_ring.beginRow(run); }
    Floats at(Floats offset) const
    {
        const Floats x = m_ring.x(offset);
        return cut(m_ring.inside(m_ring.fromOutline(x))) * betweenEdges(x, m_ring.y());
    }
    float scale() const { return m_ring.scale(); }

private:
    Floats betweenEdges(Floats x, Floats y) const
    {
        const Floats start = cut(Floats(0.5f) + m_wedge.fromStart(x, y));
        const Floats end = cut(Floats(0.5f) + m_wedge.fromEnd(x, y));
        switch (m_kind) {
        case EWedge::Narrow:
            return V::max(start + end - Floats(1), Floats(0));
        case EWedge::Convex:
            return V::min(start, end);
        case EWedge::Reflex:
            return V::max(start, end);
        case EWedge::NearlyFull:
            break;
        }
        return V::min(start + end, Floats(1));
    }
    static Floats cut(Floats share) { return V::min(V::max(share, Floats(0)), Floats(1)); }

    TRingCoverage<V> m_ring;
    const TWedge<V> m_wedge;
    const EWedge m_kind;
};

template<class V>
class TRoundArcCoverage
{
public:
    using Floats = typename V::Floats;

    explicit TRoundArcCoverage(const SArcCoverage &arc)
        : m_ring(arc.ring),
          m_wedge(arc),
          m_reflex(arc.wedge > EWedge::Convex),
          m_startX(arc.startX * arc.ring.radius),
          m_startY(arc.startY * arc.ring.radius),
          m_endX(arc.endX * arc.ring.radius),
          m_endY(arc.endY * arc.ring.radius)
    {
    }
    void beginRow(const SRun &run) { m_ring.beginRow(run); }
    Floats at(Floats offset) const
    {
        const Floats x = m_ring.x(offset);
        const Floats y = m_ring.y();
        const Floats start = m_wedge.fromStart(x, y);
        const Floats end = m_wedge.fromEnd(x, y);
        const Floats between = m_reflex ? V::max(start, end) : V::min(start, end);
        const Floats fromCaps = V::sqrt(
            V::min(distance2(x - m_startX, y - m_startY), distance2(x - m_endX, y - m_endY)));
        return m_ring.inside(V::choose(between, m_ring.fromOutline(x), fromCaps));
    }
    float scale() const { return m_ring.scale(); }

private:
    static Floats distance2(Floats x, Floats y) { return x * x + y * y; }

    TRingCoverage<V> m_ring;
    const TWedge<V> m_wedge;
    const bool m_reflex;
    const Floats m_startX;
    const Floats m_startY;
    const Floats m_endX;
    const Floats m_endY;
};

template<class V>
class TBoxPart
{
public:
    using Floats = typename V::Floats;

    explicit TBoxPart(const SBoxCoverage &box)
        : m_box(box), m_halfWidth(box.halfWidth), m_cornerX(box.cornerX), m_reach(box.reach)
    {
    }
    void beginRow(float y)
    {
        const float low = y - 0.5f > -m_box.halfHeight ? y - 0.5f : -m_box.halfHeight;
        const float high = y + 0.5f < m_box.halfHeight ? y + 0.5f : m_box.halfHeight;
        m_rowShare = Floats(high > low ? high - low : 0);
        const float beyond = (y < 0 ? -y : y) - m_box.cornerY;
        m_y2 = Floats(beyond > 0 ? beyond * beyond : 0);
    }
    /// 0 .. 1
    Floats at(Floats x) const
    {
        const Floats half(0.5f);
        const Floats zero(0);
        const Floats high = V::min(x + half, m_halfWidth);
        const Floats low = V::max(x - half, zero - m_halfWidth);
        const Floats area = V::max(high - low, zero) * m_rowShare;
        const Floats beyond = V::max(V::abs(x) - m_cornerX, zero);
        const Floats inside = m_reach - V::sqrt(beyond * beyond + m_y2);
        return V::max(V::min(area, inside), zero);
    }

private:
    const SBoxCoverage &m_box;
    const Floats m_halfWidth;
    const Floats m_cornerX;
    const Floats m_reach;
    Floats m_rowShare;
    Floats m_y2;
};

template<class V>
class TBoxCoverage
{
public:
    using Floats = typename V::Floats;

    explicit TBoxCoverage(const SFrameCoverage &frame) : m_frame(frame), m_outer(frame.outer) {}
    void beginRow(const SRun &run)
    {
        const SRowOffset start(run, m_frame.x, m_frame.y);
        m_x = Floats(start.x);
        m_outer.beginRow(start.y);
    }
    Floats at(Floats offset) const { return m_outer.at(m_x + offset); }
    float scale() const { return 1; }

private:
    const SFrameCoverage &m_frame;
    TBoxPart<V> m_outer;
    Floats m_x;
};

template<class V>
class TFrameCoverage
{
public:
    using Floats = typename V::Floats;

    explicit TFrameCoverage(const SFrameCoverage &frame)
        : m_frame(frame), m_outer(frame.outer), m_inner(frame.inner)
    {
    }
    void beginRow(const SRun &run)
    {
        const SRowOffset start(run, m_frame.x, m_frame.y);
        m_x = Floats(start.x);
        m_outer.beginRow(start.y);
        m_inner.beginRow(start.y);
    }
    Floats at(Floats offset) const
    {
        const Floats x = m_x + offset;
        return m_outer.at(x) - m_inner.at(x);
    }
    float scale() const { return 1; }

private:
    const SFrameCoverage &m_frame;
    TBoxPart<V> m_outer;
    TBoxPart<V> m_inner;
    Floats m_x;
};

} // namespace
} // namespace kivemu
