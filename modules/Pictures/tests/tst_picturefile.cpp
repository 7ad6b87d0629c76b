#include "PictureFile.h"
#include "TestFiles.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtTest>
#include <sys/stat.h>

// Sound files give what Qt's own decoders give; damaged and hostile ones an error or a whole
// picture.

class tst_PictureFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void asQtReadsThem_data();
    void asQtReadsThem();
    void damagedFiles_data() { asQtReadsThem_data(); }
    void damagedFiles();
    void whatIsNoPicture();

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
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        each.save(&buffer, format.constData(), 90);
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

QTEST_GUILESS_MAIN(tst_PictureFile)
#include "tst_picturefile.moc"
