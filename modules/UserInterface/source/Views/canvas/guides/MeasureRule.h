#pragma once

#include <QLineF>
#include <QRectF>
#include <QVector>

/// How far one rectangle lies from another.
namespace MeasureRule {
struct SDistance
{
    QLineF line; ///< along one axis, from the first rectangle to the second
    QLineF
        lead; ///< along an edge of the second one to the line, where it does not reach it; or null
    int length = 0; ///< scene units, at least 1
};

/// Gaps of rectangles that lie beside each other; otherwise from each edge to the same one of the
/// other. Nothing where there is no distance.
QVector<SDistance> distances(const QRectF &from, const QRectF &to);
} // namespace MeasureRule
