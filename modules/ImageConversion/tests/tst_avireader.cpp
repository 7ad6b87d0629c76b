#include "CAviReader.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>
#include <random>
#include <sys/stat.h>

// AVI files, true and lying ones.

namespace {

QByteArray number(quint32 value)
{
    QByteArray bytes;
    for (int i = 0; i < 4; ++i)
        bytes.append(static_cast<char>(value >> (8 * i) & 0xff));
    return bytes;
}

/// A chunk; a size of its own makes it lie.
QByteArray chunk(const QByteArray &id, const QByteArray &data, qint64 size = -1)
{
    const QByteArray padding(data.size() % 2, '\0');
    return id + number(static_cast<quint32>(size < 0 ? data.size() : size)) + data + padding;
}

QByteArray mainHeader(quint32 width, quint32 height, int bytes = 56)
{
    return (QByteArray(32, '\x11') + number(width) + number(height) + QByteArray(64, '\x22'))
        .left(bytes);
}

constexpr qint64 True = -1;

QByteArray avi(const QByteArray &avih, qint64 riffSize = True, qint64 listSize = True,
               qint64 avihSize = True)
{
    const QByteArray list = "hdrl" + chunk("avih", avih, avihSize) + chunk("strl", "xyz");
    return chunk("RIFF", "AVI " + chunk("LIST", list, listSize) + chunk("movi", "frames"),
                 riffSize);
}

/// The frame's size, invalid when it is refused; what is refused leaves the numbers alone.
QSize sizeIn(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    quint32 width = 0xFFFFFFFF;
    quint32 height = 0xFFFFFFFF;
    if (!buffer.open(QIODevice::ReadOnly) || !CAviReader::frameSize(buffer, width, height))
        return width == 0xFFFFFFFF && height == width ? QSize() : QSize(-3, -3);
    return {int(width), int(height)};
}
} // namespace

class tst_AviReader : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void files();
    void everyTruncation();
    void junkChunksAreSkipped();
    void damagedFiles();
    void filesThatAreNone();
};

void tst_AviReader::files()
{
    const QByteArray good = mainHeader(320, 240);
    const QByteArray avih = chunk("avih", good);
    const QSize size(320, 240);
    const QSize none; // refused
    const qint64 huge = 0xFFFFFFFF;
    const std::tuple<const char *, QByteArray, QSize> cases[] = {
        {"true", avi(good), size},
        {"avih of 40 bytes", avi(mainHeader(320, 240, 40)), size},
        {"avih of 39 bytes", avi(mainHeader(320, 240, 39)), none},
        {"avih of 36 bytes", avi(mainHeader(320, 240, 36)), none},
        {"avih of 0 bytes", avi(QByteArray()), none},
        {"avih says 39 bytes", avi(good, True, True, 39), none},
        {"avih says 0 bytes", avi(good, True, True, 0), none},
        {"avih says 4 GB", avi(good, True, True, huge), size},
        {"hdrl says 0 bytes", avi(good, True, 0), none},
        {"hdrl says 3 bytes", avi(good, True, 3), none},
        {"hdrl says 40 bytes", avi(good, True, 40), none},
        {"hdrl says 4 GB", avi(good, True, huge), size},
        {"RIFF says 0 bytes", avi(good, 0), none},
        {"RIFF says 4 GB", avi(good, huge), size},
        {"RIFF ends in avih", avi(good, 50), none},
        {"all say 4 GB", avi(good, huge, huge, huge), size},
        {"second RIFF", chunk("RIFF", "AVIXabcd") + avi(good), size},
        {"other RIFF alone", chunk("RIFF", "WAVE" + chunk("LIST", "hdrl" + avih)), none},
        {"form of other case", chunk("RIFF", "avi " + chunk("LIST", "hdrl" + avih)), none},
        {"RIFX", chunk("RIFX", "AVI " + chunk("LIST", "hdrl" + avih)), none},
        {"other LIST first",
         chunk("RIFF", "AVI " + chunk("LIST", "INFO" + avih) + chunk("LIST", "hdrl" + avih)), size},
        {"no hdrl", chunk("RIFF", "AVI " + chunk("LIST", "INFO" + avih)), none},
        {"avih outside of hdrl", chunk("RIFF", "AVI " + chunk("LIST", "hdrl") + avih), none},
        {"avih in a list in hdrl",
         chunk("RIFF", "AVI " + chunk("LIST", "hdrl" + chunk("LIST", "strl" + avih))), none},
        {"hdrl is no LIST", chunk("RIFF", "AVI " + chunk("hdrl", avih)), none},
        {"frame of 0 x 1", avi(mainHeader(0, 1)), QSize(0, 1)},
        {"empty", QByteArray(), none},
        {"RIFF alone", "RIFF", none},
        {"as many chunks as are read",
         chunk("JUNK", "").repeated(CAviReader::MaxChunks) + avi(good), none},
    };
    for (const auto &[fact, bytes, expected] : cases)
        QVERIFY2(sizeIn(bytes) == expected, fact);
}

void tst_AviReader::everyTruncation()
{
    const QByteArray whole = avi(mainHeader(320, 240));
    const int needed = 8 + 4 + 8 + 4 + 8 + 40; // RIFF, its form, LIST, its type, avih, its 40 bytes
    for (int length = 0; length < whole.size(); ++length)
        QCOMPARE(sizeIn(whole.left(length)), length < needed ? QSize() : QSize(320, 240));
}

void tst_AviReader::junkChunksAreSkipped()
{
    std::mt19937 random(1);
    const auto junk = [&random] {
        QByteArray bytes;
        for (auto i = random() % 4; i > 0; --i)
            bytes += chunk(random() % 2 ? "JUNK" : "LIST",
                           QByteArray(static_cast<int>(random() % 40), 'j'));
        return bytes;
    };
    for (int round = 0; round < 500; ++round) {
        const auto width = static_cast<quint32>(random());
        const QByteArray list = "hdrl" + junk() + chunk("avih", mainHeader(width, ~width)) + junk();
        QCOMPARE(sizeIn(junk() + chunk("RIFF", "AVI " + junk() + chunk("LIST", list) + junk())),
                 QSize(int(width), int(~width)));
    }
}

void tst_AviReader::damagedFiles()
{
    const QByteArray whole = avi(mainHeader(320, 240));
    std::mt19937 random(2);
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes =
            whole.left(static_cast<int>(random() % static_cast<uint>(whole.size() + 1)));
        for (auto i = random() % 6; i > 0 && !bytes.isEmpty(); --i)
            bytes[static_cast<int>(random() % static_cast<uint>(bytes.size()))] =
                static_cast<char>(random());
        const QSize size = sizeIn(bytes); // nothing is read from elsewhere
        QVERIFY(size == QSize() ||
                bytes.contains(number(quint32(size.width())) + number(quint32(size.height()))));
    }
}

void tst_AviReader::filesThatAreNone()
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath("pipe.avi");
    QCOMPARE(mkfifo(pipe.toUtf8().constData(), 0600), 0);
    quint32 width = 0;
    quint32 height = 0;
    for (const QString &file :
         {pipe, folder.path(), folder.filePath("missing.avi"), QString("/dev/zero")})
        QVERIFY(!CAviReader::frameSize(file, width, height));
    QFile file(folder.filePath("film.avi"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(avi(mainHeader(320, 240)));
    file.close();
    QVERIFY(CAviReader::frameSize(file.fileName(), width, height));
    QCOMPARE(QSize(static_cast<int>(width), static_cast<int>(height)), QSize(320, 240));
}

QTEST_GUILESS_MAIN(tst_AviReader)
#include "tst_avireader.moc"
