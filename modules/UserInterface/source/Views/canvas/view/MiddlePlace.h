#pragma once

#include <QRectF>
#include <QVector>

/// Where something new goes that nobody points at: to the middle of what is seen.
namespace MiddlePlace {
constexpr int Step = 10; ///< pixels, down and to the right, or back where the room ends

/// The frame of that size, on whole pixels. It steps aside while another frame has the same corner
/// or the same middle, so that several in a row are all seen.
QRectF frame(const QRectF &room, const QSizeF &size, const QVector<QRectF> &others);
} // namespace MiddlePlace
