#include "CSnapAxis.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int Page = -1;
constexpr int Guide = -2;
constexpr double Same = 1e-6; // places are sums that were added up in another order
constexpr double HalfPixel = 0.5 + Same;
constexpr int MostNeighbours = 6; // on each side, whose gaps are looked at

bool isSame(double one, double other)
{
    return std::abs(one - other) <= Same;
}

bool isBefore(const CSnapAxis::STarget &target, double at)
{
    return target.at < at;
}

/// Whether both have a part of the other axis in common, so that they lie beside each other.
bool areInRow(const QRectF &one, const QRectF &other)
{
    return std::min(one.bottom(), other.bottom()) > std::max(one.top(), other.top());
}

QRectF bandBetween(const QRectF &before, const QRectF &after, const QRectF &row)
{
    const QRectF &second = areInRow(before, after) ? after : row;
    const double top = std::max(before.top(), second.top());
    const double bottom = std::min(before.bottom(), second.bottom());
    return {QPointF(before.right(), top), QPointF(after.left(), bottom)};
}
} // namespace

/// From the nearest one outwards.
struct CSnapAxis::SBeside
{
    QVector<QRectF> items;
    QVector<double> gaps; ///< between one and the next
};

CSnapAxis::CSnapAxis(QVector<QRectF> items, const QRectF &page, const QVector<double> &guides,
                     SnapKinds kinds)
    : m_items(std::move(items)), m_page(page), m_snapsToGaps(kinds.testFlag(ESnapKind::Gaps))
{
    if (kinds.testFlag(ESnapKind::Items)) {
        m_targets.reserve(m_items.size() * LineCount + LineCount);
        for (int index = 0; index < m_items.size(); ++index)
            addTargets(m_items.at(index), index);
    }
    if (kinds.testFlag(ESnapKind::Page))
        addTargets(page, Page);
    if (kinds.testFlag(ESnapKind::Guides)) {
        for (const double each : guides)
            m_targets.append({each, Guide});
    }
    std::sort(m_targets.begin(), m_targets.end(),
              [](const STarget &one, const STarget &other) { return one.at < other.at; });
}

CSnapAxis::Lines CSnapAxis::linesOf(const QRectF &frame)
{
    return {frame.left(), frame.center().x(), frame.right()};
}

void CSnapAxis::addTargets(const QRectF &rect, int item)
{
    for (const double at : linesOf(rect))
        m_targets.append({at, item});
}

QVector<CSnapAxis::SCandidate> CSnapAxis::candidates(const QRectF &frame, double tolerance) const
{
    QVector<SCandidate> found;
    const Lines lines = linesOf(frame);
    for (const ELine line : {First, Last, Middle}) {
        const double at = lines[line];
        const auto next = std::lower_bound(m_targets.begin(), m_targets.end(), at, isBefore);
        if (next != m_targets.end())
            found.append({line, next->at, HalfPixel});
        if (next != m_targets.begin())
            found.append({line, (next - 1)->at, HalfPixel});
    }
    if (m_snapsToGaps)
        addGapCandidates(frame, tolerance, found);
    const auto distanceOf = [&lines](const SCandidate &each) {
        return std::abs(each.at - lines[each.line]);
    };
    found.erase(
        std::remove_if(found.begin(), found.end(),
                       [&](const SCandidate &each) { return distanceOf(each) > tolerance; }),
        found.end());
    std::stable_sort(found.begin(), found.end(),
                     [&](const SCandidate &one, const SCandidate &other) {
                         return distanceOf(one) < distanceOf(other);
                     });
    return found;
}

/// What the frame lies over by more than `overlap` is no neighbour: grounds, cards.
CSnapAxis::SBeside CSnapAxis::beside(const QRectF &frame, bool isBefore, double overlap) const
{
    const auto gapTo = [isBefore](const QRectF &each, const QRectF &from) {
        return isBefore ? from.left() - each.right() : each.left() - from.right();
    };
    QVector<QRectF> row;
    for (const QRectF &each : m_items) {
        if (areInRow(each, frame) && gapTo(each, frame) >= -overlap)
            row.append(each);
    }
    SBeside found;
    QRectF from = frame;
    while (!row.isEmpty() && found.items.size() < MostNeighbours) {
        const auto nearest =
            std::min_element(row.begin(), row.end(), [&](const QRectF &one, const QRectF &other) {
                return gapTo(one, from) < gapTo(other, from);
            });
        if (!found.items.isEmpty())
            found.gaps.append(gapTo(*nearest, from));
        from = *nearest;
        found.items.append(from);
        row.erase(std::remove_if(row.begin(), row.end(),
                                 [&](const QRectF &each) {
                                     return each == from || gapTo(each, from) < -Same;
                                 }),
                  row.end());
    }
    return found;
}

void CSnapAxis::addGapCandidates(const QRectF &frame, double tolerance,
                                 QVector<SCandidate> &found) const
{
    const SBeside before = beside(frame, true, tolerance);
    const SBeside after = beside(frame, false, tolerance);
    for (const double gap : before.gaps + after.gaps) {
        if (gap <= Same)
            continue;
        if (!before.items.isEmpty())
            found.append({First, before.items.constFirst().right() + gap, Same});
        if (!after.items.isEmpty())
            found.append({Last, after.items.constFirst().left() - gap, Same});
    }
    if (before.items.isEmpty() || after.items.isEmpty())
        return;
    const double from = before.items.constFirst().right();
    const double to = after.items.constFirst().left();
    if (to - from > frame.width())
        found.append({Middle, (from + to) / 2, Same});
}

/// What has a line at a place, in the order of the items.
QVector<int> CSnapAxis::on(double at) const
{
    QVector<int> found;
    auto each = std::lower_bound(m_targets.begin(), m_targets.end(), at - Same, isBefore);
    for (; each != m_targets.end() && each->at <= at + Same; ++each)
        found.append(each->item);
    std::sort(found.begin(), found.end());
    return found;
}

void CSnapAxis::describe(const QRectF &frame, const Mask &mask,
                         const std::optional<SCandidate> &landed, SSnapped &result) const
{
    const Lines lines = linesOf(frame);
    std::array<QVector<int>, LineCount> found;
    for (const ELine line : {First, Middle, Last}) {
        const bool isNew = line == First || !isSame(lines[line], lines[line - 1]);
        if (mask[line] && isNew) // an empty frame has all in one place
            found[line] = on(lines[line]);
    }
    // Between two edges that are in line the middle is so anyway.
    const auto isTold = [&found](int item) {
        return std::binary_search(found[First].begin(), found[First].end(), item) &&
               std::binary_search(found[Last].begin(), found[Last].end(), item);
    };
    if (std::all_of(found[Middle].begin(), found[Middle].end(), isTold))
        found[Middle].clear();
    bool isAny = false;
    for (const ELine line : {Middle, First, Last}) {
        if (found[line].isEmpty())
            continue;
        describeAt(lines[line], frame, result);
        isAny = true;
    }
    if (landed && !isAny)
        describeAt(landed->at, frame, result);
    if (m_snapsToGaps)
        describeGaps(frame, result);
}

/// The line at a place, over all that is there, and the distances along it.
void CSnapAxis::describeAt(double at, const QRectF &frame, SSnapped &result) const
{
    const QVector<int> items = on(at);
    if (items.isEmpty())
        return;
    double first = frame.top();
    double last = frame.bottom();
    std::optional<double> before; // where the next neighbour ends
    std::optional<double> after;
    bool isPageWide = false;
    for (const int item : items) {
        isPageWide = isPageWide || item < 0;
        const QRectF &rect = item < 0 ? m_page : m_items.at(item);
        first = std::min(first, rect.top());
        last = std::max(last, rect.bottom());
        if (item < 0)
            continue;
        if (rect.bottom() <= frame.top())
            before = std::max(before.value_or(rect.bottom()), rect.bottom());
        if (rect.top() >= frame.bottom())
            after = std::min(after.value_or(rect.top()), rect.top());
    }
    if (isPageWide) {
        before = before.value_or(m_page.top());
        after = after.value_or(m_page.bottom());
    }
    result.lines.append({at, first, at, last});
    const auto tell = [&](double from, double to) {
        const auto isTold = [&](const QLineF &told) {
            return isSame(told.y1(), from) && isSame(told.y2(), to);
        };
        if (to - from > Same &&
            std::none_of(result.distances.begin(), result.distances.end(), isTold))
            result.distances.append({at, from, at, to});
    };
    if (before)
        tell(*before, frame.top());
    if (after)
        tell(frame.bottom(), *after);
}

/// All gaps in the row that are as wide as one beside the frame.
void CSnapAxis::describeGaps(const QRectF &frame, SSnapped &result) const
{
    const SBeside before = beside(frame, true, Same);
    const SBeside after = beside(frame, false, Same);
    QVector<QRectF> row = before.items;
    std::reverse(row.begin(), row.end());
    row.append(frame);
    row += after.items;
    const int own = before.items.size();
    const auto gapAfter = [&row](int index) {
        return row.at(index + 1).left() - row.at(index).right();
    };
    QVector<int> equal;
    for (const int beside : {own - 1, own}) {
        if (beside < 0 || beside + 1 >= row.size() || gapAfter(beside) <= Same)
            continue;
        QVector<int> same;
        for (int index = 0; index + 1 < row.size(); ++index) {
            if (isSame(gapAfter(index), gapAfter(beside)))
                same.append(index);
        }
        if (same.size() > 1 && !equal.contains(beside))
            equal += same;
    }
    for (const int index : qAsConst(equal))
        result.gaps.append({bandBetween(row.at(index), row.at(index + 1), frame), Qt::Horizontal});
}
