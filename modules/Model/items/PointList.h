#pragma once

#include <QPointF>
#include <QString>
#include <QVector>

class CItemModel;

/// The points of a "pointlist" property, "x,y;x,y;…", relative to the item's position.
namespace PointList {
using Points = QVector<QPointF>;

/// What does not read as a point is left out.
Points parse(const QString &text);
/// Whole numbers.
QString format(const Points &points);
/// Where a new point goes in the list: between the ends of the segment that is nearest to it.
/// Closed lists have a segment from the last point to the first.
int insertionIndex(const Points &points, const QPointF &point, bool closed);

Points ofItem(const CItemModel &item);
bool isClosed(const CItemModel &item);
/// The least number of points that an item of the kind can be drawn with.
int minimumCount(const CItemModel &item);
} // namespace PointList
