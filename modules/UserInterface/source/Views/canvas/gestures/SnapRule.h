#pragma once

#include <QVector>

class CItemView;

/// Where a dragged item lands: always on the nearest candidate, there is no tolerance.
namespace SnapRule {
/// One coordinate to land on.
struct Candidate
{
    double position;
    CItemView *view; ///< whose edge or centre it is; null for a line of the grid
};

/// The two lines of the grid about a coordinate.
void appendGridLines(QVector<Candidate> &candidates, double proposed, int spacing);
/// The candidate nearest to the coordinate, the first of equals. There must be one.
Candidate nearest(const QVector<Candidate> &candidates, double proposed);
} // namespace SnapRule
