#include "ToolRun.h"
#include "executor/BitmapFormats.h"
#include "host/assets/ImageFile.h"
#include "raster/BitmapImage.h"

#include <QColorSpace>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTextCodec>
#include <QtTest>
#include <cmath>

// What the tools make of an image, decoded as the chip does, against the image: the bounds of
// docs/image-formats.md.

namespace {

struct SFormat
{
    const char *name;
    int code;
    std::array<int, 4> bits; ///< of alpha, red, green, blue; a luminance has its bits as alpha
    bool isGrey;
};

constexpr SFormat Formats[] = {
    {"ARGB1555", 0, {1, 5, 5, 5}, false}, {"L1", 1, {1, 1, 1, 1}, true},
    {"L4", 2, {4, 4, 4, 4}, true},        {"L8", 3, {8, 8, 8, 8}, true},
    {"RGB332", 4, {0, 3, 3, 2}, false},   {"ARGB2", 5, {2, 2, 2, 2}, false},
    {"ARGB4", 6, {4, 4, 4, 4}, false},    {"RGB565", 7, {0, 5, 6, 5}, false},
    {"L2", 9, {2, 2, 2, 2}, true},
};

/// Widest gap between two values that a code of so many bits can show; 0 bits: always opaque.
constexpr int gap(int bits)
{
    constexpr int Gaps[] = {0, 255, 85, 37, 17, 9, 5, 0, 1};
    return Gaps[bits];
}

using Pixel = std::array<int, 4>; ///< alpha and the three colours multiplied by it

Pixel multiplied(QRgb p)
{
    const auto part = [p](int value) {
        return static_cast<int>(std::lround(value * qAlpha(p) / 255.0));
    };
    return {qAlpha(p), part(qRed(p)), part(qGreen(p)), part(qBlue(p))};
}

/// What a format without any loss in its bits would show.
Pixel wanted(QRgb p, const SFormat &format)
{
    Pixel pixel = multiplied(p);
    if (format.isGrey) {
        const double luma = 0.299 * qRed(p) + 0.587 * qGreen(p) + 0.114 * qBlue(p);
        pixel.fill(static_cast<int>(std::lround(luma * qAlpha(p) / 255.0)));
    } else if (format.bits[0] == 0) {
        pixel[0] = 255;
    }
    return pixel;
}

QImage makeImage(const QString &kind, QSize size = {61, 47})
{
    if (kind == "dark") // errors have to travel a long way; what gets lost would leave it black
        size = {200, 150};
    QImage image(size, QImage::Format_ARGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int u = x * 255 / std::max(size.width() - 1, 1);
            const int v = y * 255 / std::max(size.height() - 1, 1);
            if (kind == "gradient")
                image.setPixel(x, y, qRgb(u, v, 255 - (u + v) / 2));
            else if (kind == "translucent")
                image.setPixel(x, y, qRgba(u, 255 - u, v, v));
            else if (kind == "ramp")
                image.setPixel(x, y, qRgb(u, u, u));
            else if (kind == "noise")
                image.setPixel(x, y, random.generate() | 0xFF000000U);
            else if (kind == "dark")
                image.setPixel(x, y, qRgb(9, 9, 9));
            else
                image.setPixel(x, y, qRgb(100, 150, 200));
        }
    }
    return image;
}

/// Decodes NAME.raw and, behind it, NAME.lut with the emulator; empty when it cannot.
std::vector<Pixel> decoded(const CToolFolder &folder, const QString &name, int code, QSize size)
{
    QByteArray memory = folder.read(name + ".raw");
    const auto palette = static_cast<uint32_t>(memory.size());
    memory += folder.read(name + ".lut");
    const auto format = static_cast<uint32_t>(code);
    const auto image = kivemu::decodeBitmap(reinterpret_cast<const uint8_t *>(memory.constData()),
                                            static_cast<size_t>(memory.size()), format, 0,
                                            kivemu::bitmapStride(format, size.width()), palette,
                                            size.width(), size.height());
    std::vector<Pixel> pixels;
    if (!image || palette != kivemu::bitmapSize(format, size.width(), size.height()) ||
        static_cast<uint32_t>(memory.size()) - palette != kivemu::paletteSize(format))
        return pixels;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const uint32_t p = *image->at(x, y);
            pixels.push_back({static_cast<int>(p >> 24), static_cast<int>(p >> 16 & 255),
                              static_cast<int>(p >> 8 & 255), static_cast<int>(p & 255)});
        }
    return pixels;
}

/// How two pictures differ in one channel.
struct SError
{
    int most = 0;
    double mean = 0; ///< of the amounts
    double signedMean = 0;
};

SError compare(const std::vector<Pixel> &pixels, const QImage &image, size_t channel,
               const std::function<Pixel(QRgb)> &expected)
{
    SError error;
    size_t i = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x, ++i) {
            const int difference = pixels[i][channel] - expected(image.pixel(x, y))[channel];
            error.most = std::max(error.most, std::abs(difference));
            error.mean += std::abs(difference);
            error.signedMean += difference;
        }
    error.mean /= static_cast<double>(pixels.size());
    error.signedMean /= static_cast<double>(pixels.size());
    return error;
}

QByteArray described(const SError &error, size_t channel)
{
    return QByteArray("channel ") + QByteArray::number(static_cast<int>(channel)) + ": most " +
           QByteArray::number(error.most) + ", mean " + QByteArray::number(error.mean) +
           ", signed " + QByteArray::number(error.signedMean);
}

const QString Palsplit = "Palette/palsplit.exe";
const QString Dxtpack = "DXT1/dxtpack.exe";

/// Saves the image as NAME.png and has the tool convert it.
bool convert(CToolFolder &folder, const QImage &image, const QString &name, const QString &tool,
             const QStringList &options = {})
{
    const bool isSaved = image.save(folder.path(name + ".png"));
    return isSaved && folder.succeeds(tool, QStringList{"-i", name + ".png"} + options);
}

bool bmpconv(CToolFolder &folder, const QImage &image, int code, bool isDithered = true)
{
    const QStringList options{"-f", QString::number(code)};
    return convert(folder, image, "x", "bmpconv/bmpconv.exe",
                   isDithered ? options : options + QStringList("--no-dither"));
}

/// What the general converter makes of the image; empty when it fails.
std::vector<Pixel> shown(const QImage &image, const SFormat &format, bool isDithered = true)
{
    CToolFolder folder;
    if (!bmpconv(folder, image, format.code, isDithered))
        return {};
    return decoded(folder, QString("x_") + format.name, format.code, image.size());
}

} // namespace

class tst_RoundTrip : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void general();
    void transparentPixelsStayApart();
    void faintPixelsGiveLittleAway();
    void rowsAndBits();
    void samplesCountAsTheyAreCoded();
    void indexOrderAndUnusedEntries();
    void tooManyColours();
    void dxt1Alpha();

private:
    static void verifyBounds(const SFormat &format, const QString &kind, bool isDithered);
};

void tst_RoundTrip::general()
{
    for (const SFormat &format : Formats)
        for (const char *kind : {"gradient", "ramp", "translucent", "noise", "flat", "dark"})
            for (const bool isDithered : {true, false})
                verifyBounds(format, kind, isDithered);
}

void tst_RoundTrip::verifyBounds(const SFormat &format, const QString &kind, bool isDithered)
{
    const QImage image = makeImage(kind);
    const auto pixels = shown(image, format, isDithered);
    QVERIFY2(!pixels.empty(), format.name);
    const bool isOpaque = kind != "translucent";
    const double edge =
        static_cast<double>(image.width() + image.height()) / (image.width() * image.height());
    for (size_t channel = 0; channel < 4; ++channel) {
        const SError error =
            compare(pixels, image, channel, [&](QRgb p) { return wanted(p, format); });
        const QByteArray text = format.name +
                                (" " + kind.toLatin1() + (isDithered ? " " : " plain ")) +
                                described(error, channel);
        const int step = gap(format.bits[channel]);
        if (isOpaque || format.isGrey || format.bits[0] == 0) {
            // Plain rounding errs by half a gap at most; one that also takes in what its
            // neighbours lost, by half a gap more.
            QVERIFY2(error.most <= (isDithered ? step : step / 2), text);
            // Of evenly spread values a quarter of a gap is lost on average, dithered a third.
            if (kind == "ramp")
                QVERIFY2(error.mean <= step * (isDithered ? 0.4 : 0.28) + 0.5, text);
            if (isDithered) // nothing is lost but over the edges of the image
                QVERIFY2(std::abs(error.signedMean) <= step * edge + 0.3, text);
        } else if (format.bits[0] == 1) { // a threshold
            for (size_t i = 0; i < pixels.size() && channel == 0; ++i) {
                const QRgb pixel = image.pixel(int(i) % image.width(), int(i) / image.width());
                QCOMPARE(pixels[i][0], qAlpha(pixel) < 128 ? 0 : 255);
            }
        } else { // the errors of alpha and colour add up
            const int both = gap(format.bits[0]) + (channel ? step : 0);
            QVERIFY2(error.most <= (isDithered ? both : both / 2) + 1, text);
        }
    }
}

void tst_RoundTrip::transparentPixelsStayApart()
{
    // Left: transparent with loud hidden colours; right: a colour that all three formats have.
    QImage image(20, 20, QImage::Format_ARGB32);
    QRandomGenerator random(3);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x)
            image.setPixel(x, y, x < 10 ? random.generate() & 0xFFFFFFU : qRgb(255, 0, 255));
    CToolFolder folder;
    for (const SFormat &format : Formats) {
        if (format.isGrey || format.bits[0] == 0)
            continue;
        QVERIFY(bmpconv(folder, image, format.code));
        const QByteArray bytes = folder.read(QString("x_%1.raw").arg(format.name));
        const int half = bytes.size() / 20 / 2;
        const auto pixels = decoded(folder, QString("x_") + format.name, format.code, image.size());
        QVERIFY(!pixels.empty());
        for (int y = 0; y < 20; ++y) {
            QCOMPARE(bytes.mid(y * 2 * half, half), QByteArray(half, '\0'));
            for (int x = 10; x < 20; ++x)
                QCOMPARE(pixels[static_cast<size_t>(y * 20 + x)], (Pixel{255, 255, 0, 255}));
        }
    }
}

void tst_RoundTrip::faintPixelsGiveLittleAway()
{
    // 8 rounds to 0 and hands 3.5 on: enough to lift the 6 beside it to 17, but not from a pixel
    // that is hardly seen.
    QImage image(2, 1, QImage::Format_ARGB32);
    CToolFolder folder;
    for (const int alpha : {255, 17}) {
        image.setPixel(0, 0, qRgba(8, 8, 8, alpha));
        image.setPixel(1, 0, qRgb(6, 6, 6));
        QVERIFY(bmpconv(folder, image, 6));
        QCOMPARE(folder.read("x_ARGB4.raw").toHex(),
                 QByteArray(alpha == 255 ? "00f011f1" : "001000f0"));
    }
}

void tst_RoundTrip::rowsAndBits()
{
    // Black and white are exact everywhere, so the bytes can be written down.
    QImage image(11, 2, QImage::Format_ARGB32);
    image.fill(Qt::black);
    for (const int x : {0, 1, 10})
        image.setPixel(x, 0, qRgb(255, 255, 255));
    const std::tuple<int, QString, QByteArray, QByteArray> rows[] = {
        // the second row is black
        {1, "L1", "c020", "0000"},
        {9, "L2", "f0000c", "000000"},
        {2, "L4", "ff00000000f0", "000000000000"},
        {3, "L8", "ffff0000000000000000ff", "0000000000000000000000"},
        {4, "RGB332", "ffff0000000000000000ff", "0000000000000000000000"},
        {5, "ARGB2", "ffffc0c0c0c0c0c0c0c0ff", "c0c0c0c0c0c0c0c0c0c0c0"}};
    CToolFolder folder;
    for (const auto &[code, name, hex, black] : rows) {
        QVERIFY(bmpconv(folder, image, code));
        QCOMPARE(folder.read("x_" + name + ".raw").toHex(), hex + black);
        const QJsonObject facts{{"format", name},
                                {"width", 11},
                                {"height", 2},
                                {"stride", hex.size() / 2},
                                {"bytes", hex.size()}};
        QCOMPARE(QJsonDocument::fromJson(folder.read("x_" + name + ".json")).object(), facts);
    }
    // 16-bit codes: red, green, blue, half-transparent white; least significant byte first.
    QImage colours(4, 1, QImage::Format_ARGB32);
    const QRgb pixels[] = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0x80FFFFFF};
    for (int x = 0; x < 4; ++x)
        colours.setPixel(x, 0, pixels[x]);
    for (const int code : {0, 6, 7})
        QVERIFY(bmpconv(folder, colours, code, false));
    QCOMPARE(folder.read("x_ARGB1555.raw").toHex(), QByteArray("00fce0831f80ffff"));
    QCOMPARE(folder.read("x_ARGB4.raw").toHex(), QByteArray("00fff0f00ff0ff8f"));
    QCOMPARE(folder.read("x_RGB565.raw").toHex(), QByteArray("00f8e0071f001084"));
}

/// Whatever a file says of its gamma, profile or depth: its samples, brought to 8 bits, are what is
/// converted, and media are decoded into the same codes.
void tst_RoundTrip::samplesCountAsTheyAreCoded()
{
    const auto deep = [](int i) { // 64 x 64 of them
        return QRgba64::fromRgba64(quint16(i * 16 + 7), quint16(i * 48), quint16(65535 - i * 5),
                                   65535);
    };
    const auto to8 = [](int value) { return int(std::lround(value / 257.0)); };
    const QByteArray linear = QByteArray::fromHex("0000000467414d41000186a031e8965f"); // gAMA of 1
    QByteArray expected; // from the plainest one
    for (const bool isDeep : {false, true}) {
        QImage image(64, 64, isDeep ? QImage::Format_RGBA64 : QImage::Format_RGB32);
        for (int i = 0; i < 64 * 64; ++i) {
            const QRgba64 p = deep(i);
            const QColor rounded(to8(p.red()), to8(p.green()), to8(p.blue()));
            image.setPixelColor(i % 64, i / 64, isDeep ? QColor(p) : rounded);
        }
        QImage flat(8, 8, image.format());
        flat.fill(QColor(130, 133, 214));
        for (const auto &[chunk, space] :
             {std::pair(QByteArray(), QColorSpace()), std::pair(linear, QColorSpace()),
              std::pair(QByteArray(), QColorSpace(QColorSpace::SRgbLinear))}) {
            CToolFolder folder;
            for (const auto &[each, name] :
                 {std::pair(&image, "x.png"), std::pair(&flat, "y.png")}) {
                each->setColorSpace(space);
                QVERIFY(each->save(folder.path(name)));
                folder.write(name, folder.read(name).insert(33, chunk)); // behind the header
            }
            QVERIFY(
                folder.succeeds("bmpconv/bmpconv.exe", {"-i", "x.png", "-f", "7", "--no-dither"}));
            const QByteArray made = folder.read("x_RGB565.raw");
            expected = expected.isEmpty() ? made : expected;
            QVERIFY(!made.isEmpty() && made == expected);
            kivemu::SDecodedImage media;
            const std::string file = folder.path("x.png").toStdString();
            QVERIFY(kivemu::decodeImageFile(file, false, 1 << 20, media).empty());
            QVERIFY(QByteArray(reinterpret_cast<const char *>(media.pixels.data()),
                               int(media.pixels.size())) == expected);
            QVERIFY(folder.succeeds("Palette/pngquant.exe", {"-f", "y.png"}));
            QCOMPARE(QImage(folder.path("y-fs8.png")).pixel(3, 3), qRgb(130, 133, 214));
        }
    }
}

void tst_RoundTrip::indexOrderAndUnusedEntries()
{
    QImage image(3, 1, QImage::Format_Indexed8);
    image.setColorTable({0xFF102030, 0x80FF0000, 0x00ABCDEF, 0xFFFFFFFF});
    for (int x = 0; x < 3; ++x)
        image.setPixel(x, 0, static_cast<uint>(2 - x));
    CToolFolder folder;
    QVERIFY(convert(folder, image, "x-fs8", Palsplit, {"-f", "0"}));
    QCOMPARE(folder.read("x_PALETTED.raw").toHex(), QByteArray("020100"));
    // Blue first, alpha last; what is fully transparent is 0, as are unused entries.
    const QByteArray used = "302010ff"
                            "0000ff80"
                            "00000000"
                            "ffffffff";
    QCOMPARE(folder.read("x_PALETTED.lut").toHex(), used + QByteArray(2 * (1024 - 16), '0'));
    QVERIFY(convert(folder, image, "x-fs8", Palsplit, {"-f", "3"}));
    QCOMPARE(folder.read("x_PALETTED4444.lut").size(), 512);
    QCOMPARE(folder.read("x_PALETTED4444.lut").left(8).toHex(), QByteArray("23f1008f0000ffff"));
}

void tst_RoundTrip::tooManyColours()
{
    QImage image(257, 1, QImage::Format_ARGB32);
    for (int x = 0; x < 257; ++x)
        image.setPixel(x, 0, qRgb(x / 2, x % 2, 0));
    CToolFolder folder;
    QVERIFY(!convert(folder, image, "x-fs8", Palsplit, {"-f", "0"}));
    QVERIFY(folder.error.contains("256"));
    QCOMPARE(folder.files(), QStringList{"x-fs8.png"});
}

void tst_RoundTrip::dxt1Alpha()
{
    QImage image = makeImage("flat", {31, 7}); // no whole blocks
    for (int x = 0; x < 31; ++x)
        for (int y = 0; y < 7; ++y)
            image.setPixel(x, y, qRgba(248, 252, 0, x * 8)); // a colour that 5, 6, 5 bits hold
    CToolFolder folder;
    QVERIFY(convert(folder, image, "x", Dxtpack));
    const auto pixels = decoded(folder, "x_DXT1", 255, image.size());
    for (size_t i = 0; i < pixels.size(); ++i) {
        const bool isSeen = i % 31 >= 16;
        QCOMPARE(pixels[i][0], isSeen ? 255 : 0);
        if (isSeen)
            QVERIFY(std::abs(pixels[i][1] - 248) <= gap(5) / 2 && pixels[i][3] <= gap(5) / 2);
    }
}

QTEST_GUILESS_MAIN(tst_RoundTrip)
#include "tst_roundtrip.moc"
