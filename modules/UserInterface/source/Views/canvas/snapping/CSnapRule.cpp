#include "CSnapRule.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double Probe = 16;       // scene units, enough for whole numbers not to matter
constexpr double LeastShare = 0.1; // of the pointer's way that a line must go to be dragged by it

QRectF transposed(const QRectF &rect)
{
    return {rect.y(), rect.x(), rect.height(), rect.width()};
}

QLineF transposed(const QLineF &line)
{
    return {line.y1(), line.x1(), line.y2(), line.x2()};
}

QVector<QRectF> transposed(QVector<QRectF> rects)
{
    for (QRectF &each : rects)
        each = transposed(each);
    return rects;
}

/// As the axis sees it.
QRectF forAxis(int axis, const QRectF &rect)
{
    return axis == 0 ? rect : transposed(rect);
}
} // namespace

/// What is dragged, and how far its lines go for each unit that the pointer goes.
struct CSnapRule::SDrag
{
    OutlineAt outlineAt;
    std::array<std::array<QPointF, CSnapAxis::LineCount>, 2> shares;

    CSnapAxis::Lines linesAt(int axis, const QPointF &offset) const
    {
        return CSnapAxis::linesOf(forAxis(axis, outlineAt(offset)));
    }
    void probe(const QPointF &offset)
    {
        const std::array<QPointF, 2> ways = {QPointF(Probe, 0), QPointF(0, Probe)};
        for (const QPointF &way : ways) {
            const QRectF ahead = outlineAt(offset + way);
            const QRectF behind = outlineAt(offset - way);
            for (size_t axis = 0; axis < 2; ++axis) {
                const auto to = CSnapAxis::linesOf(forAxis(int(axis), ahead));
                const auto from = CSnapAxis::linesOf(forAxis(int(axis), behind));
                for (size_t line = 0; line < to.size(); ++line)
                    shares.at(axis).at(line) +=
                        way / Probe * ((to.at(line) - from.at(line)) / (2 * Probe));
            }
        }
    }
    double shareOf(int axis, int line) const
    {
        const QPointF &share = shares.at(size_t(axis)).at(size_t(line));
        return QPointF::dotProduct(share, share);
    }
};

struct CSnapRule::SLanding
{
    int axis;
    CSnapAxis::SCandidate on;
    QPointF offset;

    bool holds(const SDrag &drag, const QPointF &at) const
    {
        return std::abs(drag.linesAt(axis, at).at(on.line) - on.at) <= on.slack;
    }
};

CSnapRule::CSnapRule(const SSnapReferences &references, SnapKinds kinds)
    : m_axes{CSnapAxis(references.items, references.page, references.upright, kinds),
             CSnapAxis(transposed(references.items), transposed(references.page), references.level,
                       kinds)}
{
}

/// On the nearest candidate that the drag can reach without losing what the other axis has landed
/// on.
std::optional<CSnapRule::SLanding> CSnapRule::land(const SDrag &drag, int axis,
                                                   const QPointF &offset, double tolerance,
                                                   const std::optional<SLanding> &other) const
{
    const QRectF frame = forAxis(axis, drag.outlineAt(offset));
    const CSnapAxis::Lines lines = CSnapAxis::linesOf(frame);
    for (const auto &each : m_axes.at(size_t(axis)).candidates(frame, tolerance)) {
        const double share = drag.shareOf(axis, each.line);
        const double away = each.at - lines.at(each.line);
        if (share < LeastShare || std::abs(away) > tolerance * std::sqrt(share))
            continue;
        const QPointF &way = drag.shares.at(size_t(axis)).at(each.line);
        const SLanding landing{axis, each, offset + way * (away / share)};
        if (landing.holds(drag, landing.offset) && (!other || other->holds(drag, landing.offset)))
            return landing;
    }
    return {};
}

SSnapped CSnapRule::snap(const OutlineAt &outlineAt, const QPointF &offset, double tolerance) const
{
    SDrag drag{outlineAt, {}};
    drag.probe(offset);
    // Both may depend on each other, as when proportions are kept: the nearer one goes first.
    std::array<std::optional<SLanding>, 2> landed;
    for (int axis = 0; axis < 2; ++axis)
        landed.at(size_t(axis)) = land(drag, axis, offset, tolerance, {});
    const auto reach = [&](const std::optional<SLanding> &each) {
        return each ? QLineF(offset, each->offset).length() : tolerance * 2;
    };
    const int first = reach(landed.at(1)) < reach(landed.at(0)) ? 1 : 0;
    SSnapped result{offset, {}, {}, {}};
    if (const auto &one = landed.at(size_t(first))) {
        auto &other = landed.at(size_t(1 - first));
        other = land(drag, 1 - first, one->offset, tolerance, one);
        result.offset = other ? other->offset : one->offset;
    }

    const QRectF frame = outlineAt(result.offset);
    for (int axis = 0; axis < 2; ++axis) {
        CSnapAxis::Mask mask;
        for (size_t line = 0; line < mask.size(); ++line)
            mask.at(line) = drag.shareOf(axis, int(line)) >= LeastShare;
        std::optional<CSnapAxis::SCandidate> on;
        if (const auto &landing = landed.at(size_t(axis)))
            on = landing->on;
        SSnapped its;
        m_axes.at(size_t(axis)).describe(forAxis(axis, frame), mask, on, its);
        for (const QLineF &each : qAsConst(its.lines))
            result.lines.append(axis == 0 ? each : transposed(each));
        for (const QLineF &each : qAsConst(its.distances))
            result.distances.append(axis == 0 ? each : transposed(each));
        for (const SSnapGap &each : qAsConst(its.gaps))
            result.gaps.append(axis == 0 ? each : SSnapGap{transposed(each.band), Qt::Vertical});
    }
    const auto isGap = [&result](const QLineF &line) {
        return std::any_of(result.gaps.begin(), result.gaps.end(),
                           [&line](const SSnapGap &gap) { return gap.spans(line); });
    };
    result.distances.erase(std::remove_if(result.distances.begin(), result.distances.end(), isGap),
                           result.distances.end());
    return result;
}
