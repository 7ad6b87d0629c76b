#pragma once

#include <QGraphicsItem>

class CItemView;

/// One point of a multi-point widget. Drag moves it, Control + press removes it.
class CPointHandle final : public QGraphicsItem
{
public:
    CPointHandle(int index, CItemView *view);

    int index() const { return m_index; }
    /// What is seen of it, in screen pixels about its point.
    static QRectF mark();

    QRectF boundingRect() const override;
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {} // CHandleMarks

private:
    CItemView *view() const;

    const int m_index;
};
