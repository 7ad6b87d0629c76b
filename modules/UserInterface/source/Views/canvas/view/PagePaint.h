#pragma once

#include <QColor>
#include <QPalette>
#include <QRectF>

class QPainter;

/// The page below everything that lies on it, and the desk below the page, which it stands out from
/// in every theme.
namespace PagePaint {
struct SPage
{
    QRectF rect;    ///< scene units
    QColor colour;  ///< of the page
    QPalette theme; ///< which the desk goes with
    double pixel;   ///< of the screen, in scene units
};

/// What of it lies in `exposed`, in scene units.
void draw(QPainter &painter, const QRectF &exposed, const SPage &page);
} // namespace PagePaint
