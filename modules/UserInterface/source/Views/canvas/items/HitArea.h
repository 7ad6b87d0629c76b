#pragma once

#include <QPainterPath>
#include <QRectF>

/// Where a press takes what is too thin to be hit as it is drawn. In scene units.
namespace HitArea {
constexpr double LeastWidth = 8; ///< thinner frames and lines are hard to hit

/// A frame, wide and high enough.
QRectF of(const QRectF &frame);
/// All about a line, also about one whose points are all the same.
QPainterPath along(const QPainterPath &line, double width);
} // namespace HitArea
