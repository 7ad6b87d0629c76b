#include "GuideLook.h"

#include <QPainter>

namespace {
const QColor Usual(139, 108, 255); // apart from frames, snap lines and the grid
constexpr double Width = 1;        // pixels
constexpr double Glow = 5;
constexpr int GlowAlpha = 90;

QRectF band(Qt::Orientation orientation, double pixel, double width, const QSizeF &view)
{
    const double from = pixel - (width - Width) / 2;
    return orientation == Qt::Vertical ? QRectF(from, 0, width, view.height())
                                       : QRectF(0, from, view.width(), width);
}
} // namespace

QColor GuideLook::colourOf(const SScreenGuide &guide)
{
    return guide.color.isValid() ? guide.color : Usual;
}

void GuideLook::paint(QPainter &painter, const SScreenGuide &guide, EState state, double pixel,
                      const QSizeF &view)
{
    const QColor colour = colourOf(guide);
    if (state == EState::Hot) {
        QColor glow = colour;
        glow.setAlpha(GlowAlpha);
        painter.fillRect(band(guide.orientation, pixel, Glow, view), glow);
    }
    const QRectF line = band(guide.orientation, pixel, Width, view);
    if (!guide.isLocked)
        return painter.fillRect(line, colour);
    const QPointF half(Width / 2, Width / 2); // where a pen is crisp
    painter.setPen(QPen(colour, Width, Qt::DashLine, Qt::FlatCap));
    painter.drawLine(line.topLeft() + half, guide.orientation == Qt::Vertical
                                                ? line.bottomLeft() + half
                                                : line.topRight() + half);
}
