#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QVector>

/// What something that is dragged can be in line with, scene units.
struct SSnapReferences
{
    QVector<QRectF> items; ///< what each takes up on the page
    QRectF page;
    QVector<double> upright; ///< x of guides from top to bottom
    QVector<double> level;   ///< y of guides from left to right
};

/// A gap that others are equal to.
struct SSnapGap
{
    QRectF band; ///< between the two items, where both of them are beside it
    Qt::Orientation along = Qt::Horizontal;

    /// Whether it tells the same as a distance.
    bool spans(const QLineF &line) const
    {
        return along == Qt::Horizontal ? line.x1() == band.left() && line.x2() == band.right()
                                       : line.y1() == band.top() && line.y2() == band.bottom();
    }
    double length() const { return along == Qt::Horizontal ? band.width() : band.height(); }
};

/// Where a drag lands, and why; scene units.
struct SSnapped
{
    QPointF offset;            ///< from where the drag began
    QVector<QLineF> lines;     ///< that edges and middles lie on
    QVector<QLineF> distances; ///< along them, from what is dragged to its next neighbour
    QVector<SSnapGap> gaps;
};
