#include "MeasureRule.h"

#include <algorithm>
#include <cmath>

namespace {
/// A rectangle along one axis.
struct SSpan
{
    double first;
    double last;
};

struct SAxis
{
    bool isAcross; ///< along x

    SSpan along(const QRectF &rect) const
    {
        return isAcross ? SSpan{rect.left(), rect.right()} : SSpan{rect.top(), rect.bottom()};
    }
    SAxis other() const { return {!isAcross}; }
    QPointF point(double along, double beside) const
    {
        return isAcross ? QPointF(along, beside) : QPointF(beside, along);
    }
};

bool areApart(const SSpan &one, const SSpan &other)
{
    return one.last <= other.first || other.last <= one.first;
}

class CMeasure
{
public:
    CMeasure(const QRectF &from, const QRectF &to) : m_from(from), m_to(to) {}

    bool isBeside(SAxis axis) const { return areApart(axis.along(m_from), axis.along(m_to)); }
    void addGap(SAxis axis)
    {
        const SSpan from = axis.along(m_from);
        const SSpan to = axis.along(m_to);
        if (from.last <= to.first)
            add(axis, from.last, to.first);
        else if (to.last <= from.first)
            add(axis, from.first, to.last);
    }
    void addEdges(SAxis axis)
    {
        const SSpan from = axis.along(m_from);
        const SSpan to = axis.along(m_to);
        add(axis, from.first, to.first);
        add(axis, from.last, to.last);
    }
    const QVector<MeasureRule::SDistance> &distances() const { return m_distances; }

private:
    void add(SAxis axis, double start, double end)
    {
        MeasureRule::SDistance distance;
        distance.length = static_cast<int>(std::lround(std::abs(end - start)));
        if (distance.length == 0)
            return;
        const SSpan from = axis.other().along(m_from);
        const SSpan to = axis.other().along(m_to);
        const bool isReached = !areApart(from, to);
        // Where both are, so that the line touches both.
        const double beside =
            isReached ? (std::max(from.first, to.first) + std::min(from.last, to.last)) / 2
                      : (from.first + from.last) / 2;
        distance.line = {axis.point(start, beside), axis.point(end, beside)};
        if (!isReached)
            distance.lead = {axis.point(end, beside),
                             axis.point(end, beside < to.first ? to.first : to.last)};
        m_distances.append(distance);
    }

    const QRectF m_from;
    const QRectF m_to;
    QVector<MeasureRule::SDistance> m_distances;
};
} // namespace

QVector<MeasureRule::SDistance> MeasureRule::distances(const QRectF &from, const QRectF &to)
{
    CMeasure measure(from, to);
    const SAxis across{true};
    const SAxis down{false};
    const bool isBeside = measure.isBeside(across) || measure.isBeside(down);
    for (const SAxis axis : {across, down}) {
        if (isBeside)
            measure.addGap(axis);
        else
            measure.addEdges(axis);
    }
    return measure.distances();
}
