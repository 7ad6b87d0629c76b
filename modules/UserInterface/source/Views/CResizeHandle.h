#pragma once

#include "CResizeGesture.h"

#include <QGraphicsItem>

#include <memory>

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
    bool isOfUseFor(const CItemModel &item) const;

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// The cursor for a handle of an item turned by so many degrees.
    static Qt::CursorShape cursorFor(int index, double degrees);

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;

private:
    CItemView *view() const;
    QPointF centre() const;

    const int m_index;
    double m_degrees = 0;
    QPointF m_outward;                         ///< away from the frame: -1, 0 or 1 each way
    QPointF m_pressPos;                        ///< scene
    std::unique_ptr<CResizeGesture> m_gesture; ///< set exactly while it is dragged
};
