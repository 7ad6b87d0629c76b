#pragma once

#include <QPen>

#include <array>

class QPainter;
class QPainterPath;
class QRectF;

/// Frames on the canvas: a light line beside a dark one, a logical pixel each at every zoom, so
/// that they are seen on every picture.
namespace FramePaint {
/// `width`: of the light line, in logical pixels.
void drawRect(QPainter &painter, const QRectF &rect, Qt::PenStyle style, double width = 1);
/// What has no inside: the light line on a wider dark one.
void drawPath(QPainter &painter, const QPainterPath &path);
/// What handles are drawn with, in screen pixels: the ground first, then the light line.
std::array<QPen, 2> handlePens();
} // namespace FramePaint
