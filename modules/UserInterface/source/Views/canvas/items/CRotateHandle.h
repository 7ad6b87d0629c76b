#pragma once

#include <QGraphicsItem>

class CItemView;

/// Turns an item: a round handle above the middle of its top edge.
class CRotateHandle final : public QGraphicsItem
{
public:
    explicit CRotateHandle(CItemView *view);

    /// Above the frame, which is turned by `turn` (by `degrees`).
    void place(const QRectF &frame, const QTransform &turn, double degrees);

    static QPointF placeOn(const QRectF &frame);
    /// What is seen of it, in screen pixels about its place.
    static QRectF mark(const CItemView &view);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {} // CHandleMarks

private:
    CItemView *view() const;
    static QPointF centre(const CItemView &view);
};
