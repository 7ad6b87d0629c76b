#include "PictureDifference.h"

#include <algorithm>

namespace {

constexpr QRgb ColourBits = 0x00ffffff;
constexpr QRgb Differs = 0xffe5484d;

const QRgb *line(const QImage &picture, int y)
{
    return reinterpret_cast<const QRgb *>(picture.constScanLine(y));
}

/// A quarter of the colour's grey on white.
QRgb pale(QRgb colour)
{
    const int grey = 191 + qGray(colour) / 4;
    return qRgb(grey, grey, grey);
}

} // namespace

SPictureDifference pictureDifference(const QImage &before, const QImage &after)
{
    const QImage a = before.convertToFormat(QImage::Format_RGB32);
    const QImage b = after.convertToFormat(QImage::Format_RGB32);
    if (a.size() != b.size()) {
        const QSize all = a.size().expandedTo(b.size());
        return {qint64{all.width()} * all.height(), QRect(QPoint(0, 0), all)};
    }
    qint64 pixels = 0;
    int left = a.width();
    int right = -1;
    int top = -1;
    int bottom = -1;
    for (int y = 0; y < a.height(); ++y) {
        const QRgb *lineA = line(a, y);
        const QRgb *lineB = line(b, y);
        for (int x = 0; x < a.width(); ++x) {
            if (((lineA[x] ^ lineB[x]) & ColourBits) == 0)
                continue;
            ++pixels;
            left = std::min(left, x);
            right = std::max(right, x);
            top = top < 0 ? y : top;
            bottom = y;
        }
    }
    if (pixels == 0)
        return {};
    return {pixels, QRect(QPoint(left, top), QPoint(right, bottom))};
}

QImage differencePicture(const QImage &before, const QImage &after)
{
    const QImage a = before.convertToFormat(QImage::Format_RGB32);
    const QImage b = after.convertToFormat(QImage::Format_RGB32);
    QImage result(a.size().expandedTo(b.size()), QImage::Format_RGB32);
    result.fill(Differs);
    const QSize common = a.size().boundedTo(b.size());
    for (int y = 0; y < common.height(); ++y) {
        auto *out = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < common.width(); ++x)
            if (((line(a, y)[x] ^ line(b, y)[x]) & ColourBits) == 0)
                out[x] = pale(line(b, y)[x]);
    }
    return result;
}
