#include "GuideLook.h"

#include <QPainter>

namespace {
const QColor Usual(139, 108, 255); // apart from frames, snap lines and the grid
constexpr double Width = 1;        // pixels
constexpr double Glow = 5;
constexpr int GlowAlpha = 90;
constexpr int LockedAlpha = 150;

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
    QColor colour = colourOf(guide);
    if (state == EState::Hot) {
        QColor glow = colour;
        glow.setAlpha(GlowAlpha);
        painter.fillRect(band(guide.orientation, pixel, Glow, view), glow);
    }
    if (guide.isLocked)
        colour.setAlpha(LockedAlpha);
    painter.fillRect(band(guide.orientation, pixel, Width, view),
                     guide.isLocked ? QBrush(colour, Qt::Dense4Pattern) : QBrush(colour));
}
