#pragma once

#include <QGraphicsItem>

class CItemView;

/// All handles of a selected view as they are seen, eight screen pixels each at every zoom. The
/// handles themselves are there only once the pointer has come near, see CItemView::handles().
class CHandleMarks final : public QGraphicsItem
{
public:
    explicit CHandleMarks(CItemView *view);

    /// Where handles may lie about a frame, in screen pixels.
    static constexpr double Reach = 48;

    /// After the view's frame, angle or points have changed.
    void follow() { prepareGeometryChange(); }

    QRectF boundingRect() const override;
    QPainterPath shape() const override { return {}; } // the handles are hit, not their picture
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    void paintMarks(QPainter &painter) const;
    CItemView *view() const;
};
