#include "CFrameItem.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {
constexpr int LargestCopiedFactor = 32; ///< above it the few pixels in sight are no cost at all

/// The zoom as a whole number of device pixels; 0 when it is none.
int wholeFactor(double scale)
{
    const double rounded = std::round(scale);
    const bool isWhole = std::abs(scale - rounded) < 1e-6;
    return isWhole && rounded >= 1 && rounded <= LargestCopiedFactor ? static_cast<int>(rounded)
                                                                     : 0;
}
} // namespace

CFrameItem::CFrameItem()
{
    setZValue(-1.0);
    setFlag(ItemUsesExtendedStyleOption); // else all of the frame is to be painted, at any zoom
    setAcceptedMouseButtons(Qt::NoButton);
    setShapeMode(QGraphicsPixmapItem::BoundingRectShape);
}

void CFrameItem::setFrame(const QPixmap &frame)
{
    m_image = frame.toImage().convertToFormat(QImage::Format_RGB32);
    setPixmap(frame);
}

void CFrameItem::setAtRest(bool atRest)
{
    const auto mode = atRest ? Qt::SmoothTransformation : Qt::FastTransformation;
    if (transformationMode() != mode)
        setTransformationMode(mode);
}

QImage CFrameItem::enlarged(const QImage &image, const QRect &part, int factor)
{
    QImage result(part.size() * factor, QImage::Format_RGB32);
    if (result.isNull())
        return result;
    for (int y = 0; y < part.height(); ++y) {
        const auto *source = reinterpret_cast<const QRgb *>(image.constScanLine(part.y() + y));
        uchar *first = result.scanLine(y * factor);
        auto *target = reinterpret_cast<QRgb *>(first);
        for (int x = 0; x < part.width(); ++x)
            target = std::fill_n(target, factor, source[part.x() + x]);
        for (int copy = 1; copy < factor; ++copy)
            std::memcpy(result.scanLine(y * factor + copy), first,
                        static_cast<size_t>(result.bytesPerLine()));
    }
    return result;
}

void CFrameItem::paintEnlarged(QPainter *painter, const QRect &part, int factor) const
{
    const QImage pixels = enlarged(m_image, part, factor);
    const double ratio = painter->device()->devicePixelRatioF();
    const QPointF corner = painter->worldTransform().map(QPointF(part.topLeft()));
    painter->save();
    painter->resetTransform();
    painter->drawImage(QRectF(corner, QSizeF(pixels.size()) / ratio), pixels);
    painter->restore();
}

void CFrameItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    const QTransform &world = painter->worldTransform();
    const double ratio = painter->device()->devicePixelRatioF();
    const int factor = world.type() <= QTransform::TxScale ? wholeFactor(world.m11() * ratio) : 0;
    const QRect part = option->exposedRect.toAlignedRect().intersected(m_image.rect());
    if (part.isEmpty())
        return;
    if (factor == 1 && ratio == 1.0)
        painter->drawPixmap(part.topLeft(), pixmap(), part);
    else if (factor > 0)
        paintEnlarged(painter, part, factor);
    else
        QGraphicsPixmapItem::paint(painter, option, widget);
}
