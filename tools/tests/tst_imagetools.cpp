#include "ToolRun.h"

#include <QBuffer>
#include <QTextCodec>
#include <QtTest>
#include <sys/stat.h>

// How the tools meet wrong arguments, hostile files and full disks.

namespace {

struct STool
{
    const char *program;
    QStringList options; ///< behind "-i FILE"
    const char *output;  ///< of x.png
};

const QList<STool> Tools = {{"bmpconv/bmpconv.exe", {"-f", "7"}, "x_RGB565.raw"},
                            {"Palette/palsplit.exe", {"-f", "0"}, "x_PALETTED.raw"},
                            {"DXT1/dxtpack.exe", {}, "x_DXT1.raw"}};

QByteArray pngBytes()
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(Qt::red);
    image.save(&buffer, "png");
    return bytes;
}

QByteArray withSize(QByteArray png, const char *sizeHex, const char *crcHex)
{
    png.replace(16, 8, QByteArray::fromHex(sizeHex));
    png.replace(29, 4, QByteArray::fromHex(crcHex));
    return png;
}

} // namespace

class tst_ImageTools : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void wrongArguments();
    void files();
    void suffixDecides();
    void pngquantPassesOtherCallsOn();
};

void tst_ImageTools::initTestCase()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

void tst_ImageTools::wrongArguments()
{
    CToolFolder folder;
    folder.write("x.png", pngBytes());
    for (const STool &tool : Tools) {
        const auto verify = [&](const QStringList &arguments, int exitCode) {
            QCOMPARE(folder.run(tool.program, arguments), QProcess::NormalExit);
            QVERIFY2(folder.exitCode == exitCode, qPrintable(tool.program + arguments.join(' ')));
            QVERIFY(folder.error.startsWith(QFileInfo(tool.program).completeBaseName() + ": "));
            QCOMPARE(folder.files(), QStringList{"x.png"});
        };
        verify({}, 2);
        verify({"-i"}, 2);
        verify(QStringList{"-i", "x.png", "-q"} + tool.options, 2);
        verify(QStringList{"-i", "x.png", "-i", "x.png"} + tool.options, 2);
        if (tool.options.isEmpty())
            continue;
        verify({"-i", "x.png"}, 2);
        for (const char *code : {"8", "10", "-1", "", "7x", "99999999999"})
            verify({"-i", "x.png", "-f", code}, 1);
    }
}

void tst_ImageTools::files()
{
    const QByteArray png = pngBytes();
    const std::pair<QByteArray, const char *> cases[] = {
        // what the error says, if it is one
        {png, ""},
        {"", "png"},
        {png.left(png.size() / 2), "x.png"},
        {withSize(png, "0000EA600000EA60", "80D27542"), "60000 x 60000"},
        {withSize(png, "0000100100000001", "B1E30042"), "4097 x 1"},
        {"/* XPM */ static char *a[]={\"1 1 1 1\",\"a c red\",\"a\"};", "png"},
        {"missing", "no such file"},
        {"folder", "not a regular file"},
        {"pipe", "not a regular file"},
        {"device", "not a regular file"},
    };
    for (const auto &[bytes, expected] : cases) {
        for (const STool &tool : Tools) {
            CToolFolder folder;
            if (bytes == "folder")
                QVERIFY(QDir().mkpath(folder.path("x.png")));
            else if (bytes == "pipe")
                QCOMPARE(mkfifo(folder.path("x.png").toUtf8().constData(), 0600), 0);
            else if (bytes == "device")
                QVERIFY(QFile::link("/dev/zero", folder.path("x.png")));
            else if (bytes != "missing")
                folder.write("x.png", bytes);
            const QStringList before = folder.files();
            const bool isConverted =
                folder.succeeds(tool.program, QStringList{"-i", "x.png"} + tool.options);
            QCOMPARE(isConverted, !*expected);
            QCOMPARE(!folder.read(tool.output).isEmpty(), !*expected);
            if (isConverted)
                continue;
            QCOMPARE(folder.exitCode, 1);
            QVERIFY2(folder.error.contains(expected), qPrintable(folder.error));
            QCOMPARE(folder.files(), before);
        }
    }
}

void tst_ImageTools::suffixDecides()
{
    CToolFolder folder;
    folder.write("x.jpg", pngBytes()); // a PNG under a wrong name is not looked into
    QVERIFY(!folder.succeeds("bmpconv/bmpconv.exe", {"-i", "x.jpg", "-f", "7"}));
    folder.write("x.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    QVERIFY(!folder.succeeds("bmpconv/bmpconv.exe", {"-i", "x.svg", "-f", "7"}));
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::green);
    for (const char *name : {"a.PNG", "b.jpg", "c.JPEG", "d.bmp"}) {
        QVERIFY(image.save(folder.path(name)));
        QVERIFY2(folder.succeeds("bmpconv/bmpconv.exe", {"-i", name, "-f", "7"}),
                 qPrintable(folder.error));
        QCOMPARE(folder.read(QString(name).left(1) + "_RGB565.raw").size(), 8 * 8 * 2);
    }
    folder.write("y-fs8.jpg", pngBytes()); // but what the quantiser writes is always PNG
    QVERIFY(folder.succeeds("Palette/palsplit.exe", {"-i", "y-fs8.jpg", "-f", "0"}));
    QVERIFY(!folder.read("y_PALETTED.raw").isEmpty());
}

void tst_ImageTools::pngquantPassesOtherCallsOn()
{
    CToolFolder folder;
    folder.write("x.png", pngBytes());
    QVERIFY(folder.succeeds("Palette/pngquant.exe", {"--version"}));
    QVERIFY(!folder.output.isEmpty());
    QVERIFY(folder.succeeds("Palette/pngquant.exe", {"--output", "y.png", "x.png"}));
    QVERIFY(!folder.read("y.png").isEmpty());
    QVERIFY(!folder.succeeds("Palette/pngquant.exe", {"-f", "missing.png"}));
    folder.write("x.png", withSize(pngBytes(), "0000EA600000EA60", "80D27542"));
    QVERIFY(!folder.succeeds("Palette/pngquant.exe", {"-f", "x.png"}));
    QVERIFY(folder.error.contains("60000"));
}

QTEST_GUILESS_MAIN(tst_ImageTools)
#include "tst_imagetools.moc"
