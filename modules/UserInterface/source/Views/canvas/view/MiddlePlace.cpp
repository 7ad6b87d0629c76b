#include "MiddlePlace.h"

#include <algorithm>
#include <cmath>

namespace {
/// Closer than this, one thing covers the other.
constexpr double Near = 3;

bool isNear(const QPointF &left, const QPointF &right)
{
    return (left - right).manhattanLength() < Near;
}
} // namespace

QRectF MiddlePlace::frame(const QRectF &room, const QSizeF &size, const QVector<QRectF> &others)
{
    const QPointF corner = room.center() - QPointF(size.width(), size.height()) / 2;
    const QRectF first(QPointF(std::round(corner.x()), std::round(corner.y())), size);
    const auto isFree = [&others](const QRectF &frame) {
        return std::none_of(others.begin(), others.end(), [&frame](const QRectF &each) {
            return isNear(each.topLeft(), frame.topLeft()) || isNear(each.center(), frame.center());
        });
    };
    for (const int away : {Step, -Step}) {
        QRectF frame = first;
        do {
            if (isFree(frame))
                return frame;
            frame.translate(away, away);
        } while (room.contains(frame));
    }
    QRectF frame = first; // there is no room but over the edge
    while (!isFree(frame))
        frame.translate(Step, Step);
    return frame;
}
