#include "PagePaint.h"

#include <QPainter>
#include <QPainterPath>

namespace {
constexpr int ShadowWidth = 6; ///< screen pixels
constexpr int ShadowAlpha = 14;

/// About the page only: what lies under it is not seen, and large.
void drawShadow(QPainter &painter, const QRectF &page, double pixel)
{
    QColor shade = Qt::black;
    shade.setAlpha(ShadowAlpha);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    for (int width = 1; width <= ShadowWidth; ++width) {
        const double reach = width * pixel;
        QPainterPath ring;
        ring.addRoundedRect(page.translated(0, 1).adjusted(-reach, -reach, reach, reach), reach,
                            reach);
        ring.addRect(page);
        painter.drawPath(ring);
    }
}

QColor deskOf(const QPalette &theme)
{
    const QColor window = theme.color(QPalette::Window);
    const bool isDark = window.lightness() < 128;
    const bool isAlmostWhite = window.lightness() > 224; // then pages would not stand out
    return isDark ? window.darker(130) : isAlmostWhite ? window.darker(107) : window.lighter(106);
}
} // namespace

void PagePaint::draw(QPainter &painter, const QRectF &exposed, const SPage &page)
{
    painter.fillRect(exposed, deskOf(page.theme));
    if (!page.rect.contains(exposed))
        drawShadow(painter, page.rect, page.pixel);
    painter.fillRect(page.rect, page.colour);
    QColor outline = page.theme.color(QPalette::WindowText);
    outline.setAlphaF(0.35);
    painter.setPen(QPen(outline, 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(page.rect.adjusted(-page.pixel, -page.pixel, 0, 0));
}
