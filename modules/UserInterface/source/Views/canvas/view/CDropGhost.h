#pragma once

#include "CItemPicture.h"

#include <QGraphicsItem>
#include <QString>

class CItemModel;

/// What is dragged over a canvas from the palette, as it will look and where it will land: its
/// frame at once, its picture as soon as the emulator has drawn it. The icon that hangs at the
/// pointer gives way to the picture.
class CDropGhost final : public QGraphicsItem
{
public:
    CDropGhost();
    ~CDropGhost() override; ///< the icon comes back

    /// Of an item that is in no project. Keeps nothing of it but its look.
    void show(std::unique_ptr<CItemModel> item);
    bool isOf(const QString &type) const { return type == m_type; }
    /// The place, in the scene, of the item's position.
    void moveTo(const QPointF &place);

    QRectF boundingRect() const override { return m_bounds; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    const QImage &picture() const { return m_picture; } ///< null until it is drawn
    QPointF corner() const { return m_corner; }         ///< of the picture, from the place

private:
    void take(const QImage &page);

    CItemPicture m_request;
    QString m_type;
    QPointF m_onPage; ///< of the item on the page that is drawn
    QRectF m_frame;   ///< about the item's position, as the two below
    QRectF m_bounds;
    QPointF m_corner; ///< of the picture
    QImage m_picture;
};
