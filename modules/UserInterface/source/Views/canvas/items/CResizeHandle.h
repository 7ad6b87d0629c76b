#pragma once

#include <QGraphicsItem>

class CItemModel;
class CItemView;

/// One of the eight handles around an item view: 0 is the middle of the top edge, the others follow
/// clockwise. Eight pixels on the screen at every zoom.
class CResizeHandle final : public QGraphicsItem
{
public:
    CResizeHandle(int index, CItemView *view);

    int index() const { return m_index; }
    /// On the frame, which is turned by `turn` (by `degrees`).
    void place(const QRectF &frame, const QTransform &turn, double degrees);
    /// Whether dragging it can change an item of this kind.
    static bool isOfUseFor(int index, const CItemModel &item);
    static QPointF placeOn(int index, const QRectF &frame);
    /// What is seen of it, in screen pixels about its place.
    static QRectF mark(int index, const CItemView &view);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {} // CHandleMarks

    /// The cursor for a handle of an item turned by so many degrees.
    static Qt::CursorShape cursorFor(int index, double degrees);

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;

private:
    CItemView *view() const;
    static QPointF centre(int index, const CItemView &view);

    const int m_index;
    double m_degrees = 0;
};
