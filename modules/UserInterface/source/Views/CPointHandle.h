#pragma once

#include <QGraphicsItem>

class CItemView;

/// One point of a multi-point widget. Drag moves it, Control + press removes it. It is a part of
/// the canvas' handles.
class CPointHandle final : public QGraphicsItem
{
public:
    CPointHandle(int index, CItemView *view);

    /// What is seen of it, in screen pixels about its point.
    static QRectF mark();

    QRectF boundingRect() const override;
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {} // CHandleMarks

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;

private:
    CItemView *view() const;

    const int m_index;
    bool m_dragging = false;
    QPointF m_grip; ///< from the point to the press, scene units
};
