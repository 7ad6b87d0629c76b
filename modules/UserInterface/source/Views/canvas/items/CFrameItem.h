#pragma once

#include <QGraphicsPixmapItem>

/// The last frame of the emulator, behind all item views. At 1:1 and whole-number zooms pixels are
/// repeated by copying rows; in between the picture is smooth only while the view is at rest.
class CFrameItem final : public QGraphicsPixmapItem
{
public:
    CFrameItem();

    void setFrame(const QPixmap &frame);
    /// Whether fractional zooms may take the time of smooth scaling.
    void setAtRest(bool atRest);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// Every pixel of `part` (of the image) as a square of `factor` pixels.
    static QImage enlarged(const QImage &image, const QRect &part, int factor);

private:
    void paintEnlarged(QPainter *painter, const QRect &part, int factor) const;

    QImage m_image; ///< the frame's pixels, 32 bits each; what rows are copied from
};
