#include "PictureFile.h"
#include "TestFiles.h"
#include "host/assets/ImageFile.h"
#include "pictures/PictureReading.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

// Sound files give what Qt's own decoders give, to the editor and as media for the chip; damaged
// and hostile ones an error or a whole picture.

namespace {

QByteArray encoded(const QImage &image, const QByteArray &format, bool isProgressive = false)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    writer.setQuality(90);
    writer.setProgressiveScanWrite(isProgressive);
    writer.write(image);
    return bytes;
}

QImage plain(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

std::string decode(const QByteArray &format, const QByteArray &bytes, bool isMono, size_t budget,
                   kivemu::SDecodedImage &image)
{
    const auto kind = format == "png" ? kivemu::EImageFile::Png : kivemu::EImageFile::Jpeg;
    return kivemu::decodeImage(kind, reinterpret_cast<const uint8_t *>(bytes.constData()),
                               static_cast<size_t>(bytes.size()), isMono, budget, image);
}

/// A PNG file with chunks of some kilobytes, of which each unpacks to nearly as much as libpng lets
/// a chunk hold.
QByteArray pngWithBombs(const QByteArray &start, int times)
{
    const QByteArray body = start + qCompress(QByteArray(7'900'000, 'a')).mid(4);
    const auto big = [](quint32 number) {
        number = qToBigEndian(number);
        return QByteArray(reinterpret_cast<const char *>(&number), 4);
    };
    const auto *read = reinterpret_cast<const Bytef *>(body.constData());
    const auto sum = static_cast<quint32>(crc32(0, read, static_cast<uInt>(body.size())));
    const QByteArray chunk = big(static_cast<quint32>(body.size() - 4)) + body + big(sum);
    return encoded(plain(8, 8), "png").insert(33, chunk.repeated(times)); // behind the head
}

/// Bytes of address space: "VmSize" now, "VmPeak" the most so far.
qulonglong memoryInUse(const QByteArray &kind)
{
    const QByteArray status = TestFiles::read(QStringLiteral("/proc/self/status"));
    return status.mid(status.indexOf(kind) + 7).simplified().split(' ')[0].toULongLong() * 1024;
}

/// Does the work in a process of its own; true when it says so and never took more than `bytes`.
/// Decoders may live on without memory that they do not get, so the limit lies above.
template<typename Work>
bool isDoneWithin(uint64_t bytes, const Work &work)
{
    mallopt(M_MMAP_THRESHOLD, 1 << 16); // what is taken is seen, and given back
    malloc_trim(0);
    const pid_t child = fork();
    if (child == 0) {
        const uint64_t before = memoryInUse("VmSize");
        const uint64_t spare = uint64_t{1} << 30;
        const rlimit limit = {before + bytes + spare, before + bytes + spare};
        setrlimit(RLIMIT_AS, &limit);
        try {
            const bool isDone = work();
            _exit(isDone && memoryInUse("VmPeak") <= before + bytes ? 0 : 1);
        } catch (const std::bad_alloc &) {
            _exit(2);
        }
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

class tst_PictureFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void asQtReadsThem_data();
    void asQtReadsThem();
    void asMediaForTheChip_data() { asQtReadsThem_data(); }
    void asMediaForTheChip();
    void damagedFiles_data() { asQtReadsThem_data(); }
    void damagedFiles();
    void whatIsNoPicture();
    void memoryIsBoundBySize();

private:
    QString write(const QByteArray &bytes) const
    {
        const QString path = m_folder.filePath(QStringLiteral("file"));
        TestFiles::write(path, bytes);
        return path;
    }
    const QTemporaryDir m_folder;
};

void tst_PictureFile::asQtReadsThem_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QByteArray>("bytes");
    QImage image(23, 14, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgba(x * 11, y * 18, (x * y * 3) & 255, 255 - x));
    const auto add = [](const QImage &each, const QByteArray &format) {
        const QByteArray bytes = encoded(each, format);
        QTest::addRow("%s %d", format.constData(), each.format()) << format << bytes;
        return bytes;
    };
    for (const auto format :
         {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32, QImage::Format_ARGB32,
          QImage::Format_Grayscale8, QImage::Format_Grayscale16, QImage::Format_RGBA64}) {
        add(image.convertToFormat(format), "png");
        add(image.convertToFormat(format), "bmp");
    }
    add(image.convertToFormat(QImage::Format_Grayscale8), "jpg");
    const QByteArray jpeg = add(image.convertToFormat(QImage::Format_RGB32), "jpg");
    for (char turn = 0; turn <= 9; ++turn) {
        QByteArray notes = QByteArray::fromHex("FFE1002245786966000049492A00080000000100"
                                               "12010300010000000000000000000000");
        notes[28] = turn;
        QByteArray marked = jpeg;
        QTest::addRow("turn %d", turn) << QByteArray("jpg") << marked.insert(2, notes);
    }
}

void tst_PictureFile::asQtReadsThem()
{
    QFETCH(QByteArray, format);
    QFETCH(QByteArray, bytes);
    const QString path = write(bytes);
    QImageReader reader(path, format);
    reader.setAutoTransform(true);
    const QImage expected = reader.read();
    QVERIFY(!expected.isNull());
    QString error;
    const QImage image = PictureFile::read(path, format, {}, &error);
    QCOMPARE(error, QString());
    QCOMPARE(image.convertToFormat(QImage::Format_ARGB32),
             expected.convertToFormat(QImage::Format_ARGB32));
    QCOMPARE(image.format() == QImage::Format_Indexed8,
             expected.format() == QImage::Format_Indexed8);
    QCOMPARE(image.colorTable(), image.colorCount() ? expected.colorTable() : QVector<QRgb>());
    QVERIFY(!image.colorSpace().isValid());
    QCOMPARE(PictureFile::size(path, format, PictureFile::ETurn::AsMarked), expected.size());
    QCOMPARE(PictureFile::size(path, format, PictureFile::ETurn::AsStored),
             QImageReader(path, format).size());
    QVERIFY(PictureFile::read(path, format, {22, 1 << 20}, &error).isNull());
    QVERIFY(PictureFile::read(path, format, {4096, bytes.size() - 1}, &error).isNull());
}

/// Never turned, over black, and of two bytes a pixel or grey, by the weights of JPEG.
void tst_PictureFile::asMediaForTheChip()
{
    QFETCH(QByteArray, format);
    QFETCH(QByteArray, bytes);
    if (format == "bmp")
        QSKIP("no format of media");
    const QImage expected =
        QImageReader(write(bytes), format).read().convertToFormat(QImage::Format_ARGB32);
    for (const bool isMono : {false, true}) {
        const size_t needed = (isMono ? 1 : 2) * size_t(expected.width() * expected.height());
        kivemu::SDecodedImage image;
        QVERIFY(!decode(format, bytes, isMono, needed - 1, image).empty());
        QVERIFY(image.pixels.empty() && image.neededBytes == needed);
        QCOMPARE(decode(format, bytes, isMono, needed, image), std::string());
        QCOMPARE(QSize(image.width, image.height), expected.size());
        QCOMPARE(image.pixels.size(), needed);
        for (int at = 0; at < expected.width() * expected.height(); ++at) {
            const QRgb pixel = expected.pixel(at % image.width, at / image.width);
            const double alpha = qAlpha(pixel) / 255.0;
            const double red = qRed(pixel) * alpha, green = qGreen(pixel) * alpha,
                         blue = qBlue(pixel) * alpha;
            const uint8_t *shown = &image.pixels[size_t(at) * (isMono ? 1 : 2)];
            if (isMono) { // of a JPEG file its own, which colours beyond the gamut have apart
                const double luma = 0.299 * red + 0.587 * green + 0.114 * blue;
                QVERIFY(std::abs(*shown - luma) <= (format == "png" ? 1 : 30));
                continue;
            }
            const int code = shown[0] | shown[1] << 8;
            QVERIFY(std::abs((code >> 11) * 255 / 31.0 - red) <= 5.5);
            QVERIFY(std::abs((code >> 5 & 63) * 255 / 63.0 - green) <= 3.5);
            QVERIFY(std::abs((code & 31) * 255 / 31.0 - blue) <= 5.5);
        }
    }
}

void tst_PictureFile::damagedFiles()
{
    QFETCH(QByteArray, format);
    QFETCH(QByteArray, bytes);
    for (int length = 0; length < bytes.size(); length += 7) {
        QByteArray changed = bytes;
        changed[length] = static_cast<char>(~changed[length]);
        for (const QByteArray &each : {bytes.left(length), changed}) {
            const QString path = write(each);
            QString error;
            const QImage image = PictureFile::read(path, format, {64, 1 << 20}, &error);
            QCOMPARE(image.isNull(), !error.isEmpty());
            constexpr int End = 16; // bytes that may hold no pixel any more
            QVERIFY(image.isNull() || each.size() > bytes.size() - End || format == "bmp");
            QVERIFY(image.isNull() ||
                    image.size() == PictureFile::size(path, format, PictureFile::ETurn::AsMarked));
        }
    }
}

void tst_PictureFile::whatIsNoPicture()
{
    const QString pipe = m_folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString &path : {pipe, m_folder.path(), QStringLiteral("/dev/zero"), QString()}) {
        for (const char *format : {"png", "jpg", "bmp"}) {
            QString error;
            QVERIFY(PictureFile::read(path, format, {}, &error).isNull());
            QVERIFY(!error.isEmpty());
            QVERIFY(!PictureFile::size(path, format, PictureFile::ETurn::AsStored).isValid());
        }
    }
}

/// What a file holds besides its pixels costs nothing, and a picture no more than its size allows.
void tst_PictureFile::memoryIsBoundBySize()
{
#if defined(__SANITIZE_ADDRESS__)
    QSKIP("the sanitizer takes terabytes of address space");
#endif
    const QByteArray profile("iCCPProfile\0\0", 13);
    const std::tuple<const char *, QByteArray, uint64_t, QByteArray> files[] = {
        {"text", "png", 64, pngWithBombs(QByteArray("zTXtComment\0\0", 13), 40)},
        {"international text", "png", 64,
         pngWithBombs(QByteArray("iTXtComment\0\1\0\0\0", 16), 40)},
        {"profile", "png", 64, pngWithBombs(profile, 1)},
        {"full size", "png", 2048 * 2048, encoded(plain(2048, 2048), "png")},
        {"all of it at once", "jpg", 2048 * 2048, encoded(plain(2048, 2048), "jpg", true)},
    };
    for (const auto &[name, format, pixels, bytes] : files) {
        const auto work = [format = format, bytes = bytes] {
            kivemu::SDecodedImage image;
            return decode(format, bytes, false, 1 << 23, image).empty() && image.pixels[1] >> 3;
        };
        QVERIFY2(isDoneWithin(kivemu::memoryOfPicture(pixels), work), name);
    }
    kivemu::SDecodedImage image;
    QVERIFY(!decode("png", encoded(plain(2049, 1), "png"), false, 1 << 20, image).empty());
}

QTEST_GUILESS_MAIN(tst_PictureFile)
#include "tst_picturefile.moc"
