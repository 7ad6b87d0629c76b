#pragma once

#include <QGraphicsItem>

/// Marks the point that a dragged item has snapped to.
class CSnapCross final : public QGraphicsItem
{
public:
    CSnapCross();

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
