#include "HitArea.h"

QRectF HitArea::of(const QRectF &frame)
{
    QRectF rect = frame.normalized();
    if (rect.width() < LeastWidth)
        rect.adjust(-LeastWidth / 2, 0, LeastWidth / 2, 0);
    if (rect.height() < LeastWidth)
        rect.adjust(0, -LeastWidth / 2, 0, LeastWidth / 2);
    return rect;
}

QPainterPath HitArea::along(const QPainterPath &line, double width)
{
    const QRectF rect = line.boundingRect();
    if (rect.isNull()) { // all in one point, which has no stroke
        const double reach = width / 2;
        QPainterPath spot;
        spot.addRect(rect.adjusted(-reach, -reach, reach, reach));
        return spot;
    }
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::SquareCap);
    stroker.setJoinStyle(Qt::RoundJoin); // the tips of points as well
    return stroker.createStroke(line);
}
