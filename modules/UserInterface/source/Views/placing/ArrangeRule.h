#pragma once

#include <QVector>

#include <optional>

/// Where items go when they are aligned or distributed, along one axis. Only numbers: each answer
/// holds, for each span, by how many whole pixels it moves. Doing the same again moves nothing.
namespace ArrangeRule {
enum class EEdge { First, Middle, Last };

/// What an item takes up along the axis.
struct SSpan
{
    double first;
    double last;
    bool isFixed = false; ///< stays, and the others have to do with it
};
using Spans = QVector<SSpan>;

/// What the spans take up together; the fixed ones alone when there are any: others align to what
/// cannot move. There must be a span.
SSpan reference(const Spans &spans);
/// Onto an edge or the middle of `to`.
QVector<int> align(const Spans &spans, const SSpan &to, EEdge edge);
/// The edges (or middles) at equal distances. Outermost and fixed spans stay, and what lies between
/// two of these is distributed there; pixels that do not come out even go to the first gaps.
QVector<int> distribute(const Spans &spans, EEdge edge);
/// The same for the gaps between the spans. With `gap`, only the first and the fixed ones stay, and
/// each other one lies this far behind the one before it.
QVector<int> distributeGaps(const Spans &spans, std::optional<int> gap = {});
} // namespace ArrangeRule
