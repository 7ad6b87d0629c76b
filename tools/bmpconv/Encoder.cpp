#include "Encoder.h"

#include "ChipFormat.h"
#include "PixelCodes.h"

#include <QImage>
#include <functional>

namespace kivtools {

using Codes = std::vector<uint8_t>;

static SPlane planeOf(const QImage &image, const std::function<int(QRgb)> &value)
{
    SPlane plane{image.width(), image.height(), {}};
    plane.values.reserve(static_cast<size_t>(image.width()) * static_cast<size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            plane.values.push_back(static_cast<uint8_t>(value(row[x])));
    }
    return plane;
}

/// Luma by the weights that JPEG uses too, so that a picture looks the same on either way.
static int lumaOverBlack(QRgb pixel)
{
    const int luma = 299 * qRed(pixel) + 587 * qGreen(pixel) + 114 * qBlue(pixel);
    return (luma * qAlpha(pixel) + 127500) / 255000;
}

static Codes alphaCodes(const QImage &image, int bits, EDither dither)
{
    const SPlane alpha = planeOf(image, [](QRgb pixel) { return qAlpha(pixel); });
    Codes diffused(alpha.values.size());
    std::transform(alpha.values.begin(), alpha.values.end(), diffused.begin(),
                   [](uint8_t a) { return static_cast<uint8_t>(a == 0 || a == 255 ? 0 : 255); });
    return quantisePlane(alpha, bits, bits == 1 ? EDither::None : dither, diffused);
}

/// One 16-bit code a pixel, the fields put together.
static std::vector<uint16_t> pixelCodes(const QImage &image, const SChipFormat &format,
                                        EDither dither)
{
    const size_t count = static_cast<size_t>(image.width()) * static_cast<size_t>(image.height());
    std::vector<uint16_t> codes(count);
    Codes visible(count, 255);
    const auto append = [&codes](const Codes &field, int bits) {
        for (size_t i = 0; i < codes.size(); ++i)
            codes[i] = static_cast<uint16_t>(codes[i] << bits | field[i]);
    };
    const auto appendPlane = [&](int bits, const std::function<int(QRgb)> &value) {
        append(quantisePlane(planeOf(image, value), bits, dither, visible), bits);
    };

    if (format.grey) {
        appendPlane(format.grey, lumaOverBlack);
        return codes;
    }
    QRgb (*const seen)(QRgb) = format.alpha ? [](QRgb pixel) { return pixel; } : overBlack;
    if (format.alpha) {
        const Codes alpha = alphaCodes(image, format.alpha, dither);
        append(alpha, format.alpha);
        for (size_t i = 0; i < count; ++i)
            visible[i] = static_cast<uint8_t>(codeToValue(alpha[i], format.alpha));
    }
    appendPlane(format.red, [seen](QRgb pixel) { return qRed(seen(pixel)); });
    appendPlane(format.green, [seen](QRgb pixel) { return qGreen(seen(pixel)); });
    appendPlane(format.blue, [seen](QRgb pixel) { return qBlue(seen(pixel)); });
    for (size_t i = 0; i < count; ++i)
        if (visible[i] == 0)
            codes[i] = 0;
    return codes;
}

/// A row of codes as bytes: below 8 bits the leftmost pixel in the most significant bits.
static void appendRow(QByteArray *bytes, const uint16_t *codes, int width, int bits)
{
    uint32_t pending = 0;
    int pendingBits = 0;
    for (int x = 0; x < width; ++x) {
        if (bits >= 8) {
            appendLittleEndian(bytes, codes[x], bits / 8);
            continue;
        }
        pending = pending << bits | codes[x];
        pendingBits += bits;
        if (pendingBits == 8 || x == width - 1) {
            bytes->append(static_cast<char>(pending << (8 - pendingBits) & 0xff));
            pending = 0;
            pendingBits = 0;
        }
    }
}

SConvertedBitmap encodeImage(const QImage &image, const SChipFormat &format, EDither dither)
{
    SConvertedBitmap bitmap;
    bitmap.format = QString::fromLatin1(format.name);
    bitmap.width = image.width();
    bitmap.height = image.height();
    bitmap.stride = (image.width() * format.bitsPerPixel() + 7) / 8;
    bitmap.pixels.reserve(bitmap.stride * bitmap.height);
    const std::vector<uint16_t> codes = pixelCodes(image, format, dither);
    for (int y = 0; y < image.height(); ++y)
        appendRow(&bitmap.pixels,
                  &codes[static_cast<size_t>(y) * static_cast<size_t>(bitmap.width)], bitmap.width,
                  format.bitsPerPixel());
    return bitmap;
}

} // namespace kivtools
