#pragma once

#include <QGraphicsItem>

class CItemView;

/// The padlock at the top right corner of a locked item's frame. As large at every zoom.
class CLockMark final : public QGraphicsItem
{
public:
    explicit CLockMark(CItemView *view);

    void setFrame(const QRectF &frame);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
