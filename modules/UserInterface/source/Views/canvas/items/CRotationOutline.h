#pragma once

#include <QGraphicsItem>

class CItemView;

/// The frame of a rotatable item as it is turned; its rotation() is the live angle of a gesture.
class CRotationOutline final : public QGraphicsItem
{
public:
    explicit CRotationOutline(CItemView *view);

    void setFrame(const QRectF &frame);
    QPointF centre() const { return transformOriginPoint(); } ///< in the view's coordinates
    /// Degrees; what the press takes off every angle of the pointer.
    double angleOffset() const { return m_angleOffset; }
    void setAngleOffset(double degrees) { m_angleOffset = degrees; }

    QRectF boundingRect() const override { return m_frame; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QRectF m_frame;
    double m_angleOffset = 0;
};
