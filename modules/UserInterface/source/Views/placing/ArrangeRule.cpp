#include "ArrangeRule.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {
using namespace ArrangeRule;

double placeOf(const SSpan &span, EEdge edge)
{
    switch (edge) {
    case EEdge::First:
        return span.first;
    case EEdge::Last:
        return span.last;
    default:
        return (span.first + span.last) / 2;
    }
}

/// Half a pixel is no reason to move: only so the second time changes nothing.
int wholeStep(double distance)
{
    return static_cast<int>(std::copysign(std::ceil(std::abs(distance) - 0.5), distance));
}

/// The numbers of the spans, by their place along the axis.
QVector<int> sorted(const Spans &spans, EEdge edge)
{
    QVector<int> order(spans.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int left, int right) {
        return placeOf(spans.at(left), edge) < placeOf(spans.at(right), edge);
    });
    return order;
}

/// `total` in `count` parts, of which the first are larger by the pixels that do not come out even.
class CParts
{
public:
    CParts(double total, int count)
        : m_size(static_cast<int>(std::floor(total / count))),
          m_rest(static_cast<int>(std::floor(total - double(m_size) * count)))
    {
    }
    int at(int index) const { return m_size + (index < m_rest ? 1 : 0); }

private:
    const int m_size;
    const int m_rest;
};

/// Calls for each two neighbours of `order` that stay, and what lies between them.
template<typename Function>
void forEachStretch(const Spans &spans, const QVector<int> &order, Function function)
{
    int from = 0;
    for (int to = 1; to < order.size(); ++to) {
        if (to + 1 < order.size() && !spans.at(order.at(to)).isFixed)
            continue;
        function(from, to);
        from = to;
    }
}
} // namespace

SSpan ArrangeRule::reference(const Spans &spans)
{
    const auto isFixed = [](const SSpan &each) { return each.isFixed; };
    const bool anyFixed = std::any_of(spans.begin(), spans.end(), isFixed);
    std::optional<SSpan> all;
    for (const SSpan &each : spans) {
        if (anyFixed && !each.isFixed)
            continue;
        all = all ? SSpan{std::min(all->first, each.first), std::max(all->last, each.last)} : each;
    }
    return *all;
}

QVector<int> ArrangeRule::align(const Spans &spans, const SSpan &to, EEdge edge)
{
    // Middles lie on a pixel or between two. Those that cannot be met are all missed to the same
    // side, and so that the middle of all, asked again, is the same.
    const double target = placeOf(to, edge);
    QVector<int> steps;
    for (const SSpan &each : spans) {
        const double place = placeOf(each, edge);
        const int step = edge == EEdge::Middle
                             ? static_cast<int>(std::floor(std::ceil(target) - place))
                             : wholeStep(target - place);
        steps.append(each.isFixed ? 0 : step);
    }
    return steps;
}

QVector<int> ArrangeRule::distribute(const Spans &spans, EEdge edge)
{
    const QVector<int> order = sorted(spans, edge);
    const auto place = [&](int index) { return placeOf(spans.at(order.at(index)), edge); };
    QVector<int> steps(spans.size(), 0);
    forEachStretch(spans, order, [&](int from, int to) {
        const CParts parts(place(to) - place(from), to - from);
        double target = place(from);
        for (int index = from + 1; index < to; ++index) {
            target += parts.at(index - from - 1);
            steps[order.at(index)] = wholeStep(target - place(index));
        }
    });
    return steps;
}

QVector<int> ArrangeRule::distributeGaps(const Spans &spans, std::optional<int> gap)
{
    const QVector<int> order = sorted(spans, EEdge::Middle);
    const auto span = [&](int index) -> const SSpan & { return spans.at(order.at(index)); };
    QVector<int> steps(spans.size(), 0);
    if (gap) {
        for (int index = 1; index < order.size(); ++index) {
            const double before = span(index - 1).last + steps.at(order.at(index - 1));
            if (!span(index).isFixed)
                steps[order.at(index)] = wholeStep(before + *gap - span(index).first);
        }
        return steps;
    }
    forEachStretch(spans, order, [&](int from, int to) {
        double room = span(to).first - span(from).last;
        for (int index = from + 1; index < to; ++index)
            room -= span(index).last - span(index).first;
        const CParts parts(room, to - from);
        double end = span(from).last;
        for (int index = from + 1; index < to; ++index) {
            const double target = end + parts.at(index - from - 1);
            steps[order.at(index)] = wholeStep(target - span(index).first);
            end = target + span(index).last - span(index).first;
        }
    });
    return steps;
}
