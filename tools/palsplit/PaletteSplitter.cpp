#include "PaletteSplitter.h"

#include "PixelCodes.h"

#include <QHash>
#include <QImage>
#include <QVector>

namespace kivtools {

static constexpr int PaletteEntries = 256;

namespace {

struct SIndexed
{
    QByteArray indices;
    QVector<QRgb> colours;
};

} // namespace

static SIndexed fromIndexed(const QImage &image)
{
    SIndexed result{{}, image.colorTable()};
    for (int y = 0; y < image.height(); ++y)
        result.indices.append(reinterpret_cast<const char *>(image.constScanLine(y)),
                              image.width());
    return result;
}

static std::optional<SIndexed> fromColours(const QImage &image)
{
    SIndexed result;
    QHash<QRgb, int> known;
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb colour = qAlpha(row[x]) ? row[x] : 0;
            auto place = known.constFind(colour);
            if (place == known.constEnd()) {
                if (result.colours.size() == PaletteEntries)
                    return std::nullopt;
                place = known.insert(colour, result.colours.size());
                result.colours.append(colour);
            }
            result.indices.append(static_cast<char>(*place));
        }
    }
    return result;
}

static void appendEntry(QByteArray *palette, QRgb colour, EPaletteKind kind)
{
    if (kind == EPaletteKind::Rgb565) {
        const QRgb seen = overBlack(colour);
        appendLittleEndian(palette,
                           packRgb565(valueToCode(qRed(seen), 5), valueToCode(qGreen(seen), 6),
                                      valueToCode(qBlue(seen), 5)),
                           2);
    } else if (kind == EPaletteKind::Argb4444) {
        const int alpha = valueToCode(qAlpha(colour), 4);
        const uint32_t entry =
            packArgb4(alpha, valueToCode(qRed(colour), 4), valueToCode(qGreen(colour), 4),
                      valueToCode(qBlue(colour), 4));
        appendLittleEndian(palette, alpha ? entry : 0, 2);
    } else {
        appendLittleEndian(palette, qAlpha(colour) ? colour : 0, 4);
    }
}

std::optional<SConvertedBitmap> splitPalette(const QImage &image, EPaletteKind kind)
{
    static const char *const Names[] = {"PALETTED", "PALETTED8", "PALETTED565", "PALETTED4444"};
    const std::optional<SIndexed> indexed =
        image.format() == QImage::Format_Indexed8
            ? fromIndexed(image)
            : fromColours(image.convertToFormat(QImage::Format_ARGB32));
    if (!indexed)
        return std::nullopt;
    SConvertedBitmap bitmap;
    bitmap.format = QString::fromLatin1(Names[static_cast<int>(kind)]);
    bitmap.width = image.width();
    bitmap.height = image.height();
    bitmap.stride = image.width();
    bitmap.pixels = indexed->indices;
    for (int i = 0; i < PaletteEntries; ++i)
        appendEntry(&bitmap.palette, indexed->colours.value(i), kind);
    return bitmap;
}

} // namespace kivtools
