#include "FramePaint.h"

#include "CanvasRoles.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {
/// Cosmetic widths are in pixels of the device.
QPen penOf(const QPainter &painter, const QColor &colour, Qt::PenStyle style, double width)
{
    QPen pen(colour, width * painter.device()->devicePixelRatioF(), style, Qt::SquareCap,
             Qt::MiterJoin);
    pen.setCosmetic(true);
    return pen;
}
} // namespace

void FramePaint::drawRect(QPainter &painter, const QRectF &rect, Qt::PenStyle style, double width)
{
    painter.setBrush(Qt::NoBrush);
    const double pixel = width / painter.worldTransform().m11();
    if (std::min(rect.width(), rect.height()) > 4 * pixel) { // inside, where it is painted anew
        painter.setPen(penOf(painter, CanvasColour::FrameShade, Qt::SolidLine, 1));
        painter.drawRect(rect.adjusted(pixel, pixel, -pixel, -pixel));
    }
    painter.setPen(penOf(painter, CanvasColour::Outline, style, width));
    painter.drawRect(rect);
}

std::array<QPen, 2> FramePaint::handlePens()
{
    return {QPen(CanvasColour::FrameShade, 3, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin),
            QPen(CanvasColour::Handle, 0)};
}

void FramePaint::drawPath(QPainter &painter, const QPainterPath &path)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(penOf(painter, CanvasColour::FrameShade, Qt::SolidLine, 3));
    painter.drawPath(path);
    painter.setPen(penOf(painter, CanvasColour::Outline, Qt::SolidLine, 1));
    painter.drawPath(path);
}
