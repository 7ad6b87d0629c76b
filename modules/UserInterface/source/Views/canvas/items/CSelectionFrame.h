#pragma once

#include <QGraphicsItem>
#include <QVector>

#include <array>

class CFrameHandle;
class CItemModel;

/// The one frame about several selected items, or about a group, with the handles that scale them
/// together. As fine at every zoom.
class CSelectionFrame final : public QGraphicsItem
{
public:
    static constexpr int HandleCount = 8;

    CSelectionFrame();

    /// Of items of one page; not seen for a single widget, or when all of them are locked. They
    /// must be there until others are set.
    void setItems(const QVector<CItemModel *> &items);
    const QVector<CItemModel *> &items() const { return m_items; }
    /// The items may have moved.
    void follow();
    /// The visible handle at a scene position; null when there is none.
    QGraphicsItem *handleAt(const QPointF &scenePos, const QTransform &deviceTransform) const;
    QGraphicsItem *handle(int index) const;

    QRectF boundingRect() const override;
    QPainterPath shape() const override { return {}; } // only the handles are hit
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QVector<CItemModel *> m_items; ///< not owned
    QRectF m_rect;
    std::array<CFrameHandle *, HandleCount> m_handles{}; ///< children
};

/// One of the handles, numbered as CResizeHandle::index().
class CFrameHandle final : public QGraphicsItem
{
public:
    CFrameHandle(int index, CSelectionFrame *frame);

    int index() const { return m_index; }
    const CSelectionFrame &frame() const;
    void place(const QRectF &frame);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QPointF centre() const;

    const int m_index;
    QSizeF m_frameSize; ///< scene units
};
