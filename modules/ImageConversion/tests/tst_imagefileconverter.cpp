#include "CBitmapFormatTable.h"
#include "CImageFileConverter.h"
#include "CProjectModel.h"
#include "CToolStubs.h"
#include "PropertyKey.h"

#include <QImage>
#include <QImageReader>
#include <QSignalSpy>
#include <QTextCodec>
#include <QtTest>
#include <sys/stat.h>

// How the converter finds, calls and believes its tools; with stubs, and with the real ones.

using Names = QStringList;

class tst_ImageFileConverter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void formatNamesAndCodes();
    void refusedCodes_data();
    void refusedCodes();
    void callsOfTheTools_data();
    void callsOfTheTools();
    void optionsAsFileNames();
    void successNeedsItsOutput_data();
    void successNeedsItsOutput();
    void quantisedFileUnderAnotherName_data();
    void quantisedFileUnderAnotherName();
    void rawFilesAreCopied();
    void onlyTheLowerCaseSuffixIsRaw();
    void foldersWithoutWorkingDirectory();
    void whatCannotBeAFolder();
    void sourcesThatAreNone_data();
    void sourcesThatAreNone();
    void sourceThatLiesThereAlready();
    void largeImagesAreRefused();
    void describedRawFilesAreRefusedToo();
    void realTools_data();
    void realTools();
    void oddNames_data();
    void oddNames();
    void mediaFacts();

private:
    QString project() const { return m_stubs->projectFolder() + "/demo_ConvertedImages"; }
    QString makeImage(const QString &name, const QSize &size = {13, 6}) const;
    /// Its arguments, one a line, then the working folder and PATH go to calls.txt.
    void addRecorder(const QString &tool, const QByteArray &output) const;
    QStringList calls() const;

    void openProject(const QString &name, const QString &workingFolder);

    std::unique_ptr<CToolStubs> m_stubs;
    std::unique_ptr<CProjectModel> m_project;
};

void tst_ImageFileConverter::openProject(const QString &name, const QString &workingFolder)
{
    m_project = std::make_unique<CProjectModel>();
    CProjectModel::setCurrent(m_project.get());
    m_project->setProjectProperty(PropertyKey::ProjectName, name);
    m_project->setWorkingDirectory(workingFolder);
}

void tst_ImageFileConverter::initTestCase()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

void tst_ImageFileConverter::init()
{
    m_stubs = nullptr; // puts the current directory back first
    m_stubs = std::make_unique<CToolStubs>();
    openProject("demo", m_stubs->projectFolder());
}

QString tst_ImageFileConverter::makeImage(const QString &name, const QSize &size) const
{
    QDir().mkpath(m_stubs->path("photos"));
    const QString file = m_stubs->path("photos/" + name);
    QImage image(size, QImage::Format_ARGB32);
    image.fill(QColor(200, 100, 50));
    image.setPixelColor(0, 0, Qt::black);
    if (!image.save(file, name.endsWith("jpg") ? "jpg" : "png"))
        qFatal("cannot write %s", qPrintable(file));
    return file;
}

void tst_ImageFileConverter::addRecorder(const QString &tool, const QByteArray &output) const
{
    m_stubs->addTool(tool, "{ for a in \"$@\"; do echo \"$a\"; done; pwd; echo \"$PATH\"; } >> '" +
                               m_stubs->path("calls.txt").toUtf8() + "'\n" + output);
}

QStringList tst_ImageFileConverter::calls() const
{
    return QString::fromUtf8(CToolStubs::read(m_stubs->path("calls.txt")))
        .split('\n', Qt::SkipEmptyParts);
}

void tst_ImageFileConverter::formatNamesAndCodes()
{
    const QList<QPair<QString, int>> required = {
        {"ARGB1555", 0},     {"L1", 1},         {"L4", 2},
        {"L8", 3},           {"RGB332", 4},     {"ARGB2", 5},
        {"ARGB4", 6},        {"RGB565", 7},     {"PALETTED", 8},
        {"L2", 9},           {"PALETTED8", 12}, {"PALETTED4444", 13},
        {"PALETTED565", 14}, {"DXT1", 255},     {"argb4", -1},
        {"L16", -1},         {"", -1},          {"None", -1}};
    for (const auto &row : required) {
        QCOMPARE(CBitmapFormatTable::code(row.first), row.second);
        if (row.second >= 0)
            QCOMPARE(CBitmapFormatTable::name(row.second), row.first);
    }
}

void tst_ImageFileConverter::refusedCodes_data()
{
    QTest::addColumn<int>("code");
    for (const int code : {-1, -255, 10, 11, 15, 254, 256, 1000})
        QTest::addRow("%d", code) << code;
}

void tst_ImageFileConverter::refusedCodes()
{
    QFETCH(int, code);
    addRecorder("bmpconv/bmpconv.exe", "echo x > photo_.raw");
    CImageFileConverter converter;
    QSignalSpy failures(&converter, &CImageFileConverter::failed);
    QVERIFY(!converter.convert(makeImage("photo.png"), code));
    QCOMPARE(failures.count(), 1);
    QVERIFY(calls().isEmpty());
}

void tst_ImageFileConverter::callsOfTheTools_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("folder"); // within the converted images folder
    QTest::addColumn<QStringList>("arguments");
    const auto general = [](const char *format, const char *code) {
        QTest::newRow(format) << format << "" << Names{"-i", "photo.png", "-f", code};
    };
    general("ARGB1555", "0");
    general("L1", "1");
    general("L4", "2");
    general("L8", "3");
    general("RGB332", "4");
    general("ARGB2", "5");
    general("ARGB4", "6");
    general("RGB565", "7");
    general("L2", "9");
    QTest::newRow("DXT1") << "DXT1"
                          << "/photo_DXT1" << Names{"-i", "photo.png"};
    const auto palette = [](const char *format, const char *kind) {
        QTest::newRow(format) << format << "/photo_PALETTED"
                              << Names{"-i", "photo-fs8.png", "-f", kind};
    };
    palette("PALETTED", "0");
    palette("PALETTED8", "1");
    palette("PALETTED565", "2");
    palette("PALETTED4444", "3");
}

void tst_ImageFileConverter::callsOfTheTools()
{
    QFETCH(QString, format);
    QFETCH(QString, folder);
    QFETCH(QStringList, arguments);
    const QString workingFolder = project() + folder;
    const QByteArray output = "echo x > 'photo_" + format.toUtf8() + ".raw'";
    addRecorder("bmpconv/bmpconv.exe", output);
    addRecorder("DXT1/dxtpack.exe", output);
    addRecorder("Palette/pngquant.exe", "echo x > photo-fs8.png");
    addRecorder("Palette/palsplit.exe", output);
    const QString photo = makeImage("photo.png");

    QVERIFY(CImageFileConverter().convert(photo, format));
    QCOMPARE(CToolStubs::read(workingFolder + "/photo.png"), CToolStubs::read(photo));

    const auto environmentOf = [&](const QString &tool) {
        const QString path = QString::fromLocal8Bit(qgetenv("PATH"));
        return Names{workingFolder, path + ":" + m_stubs->toolPath(tool)};
    };
    Names expected;
    if (format == "DXT1")
        expected = arguments + environmentOf("DXT1");
    else if (folder.isEmpty())
        expected = arguments + environmentOf("bmpconv");
    else
        expected = Names{"-f", "photo.png"} + environmentOf("Palette") + arguments +
                   environmentOf("Palette");
    QCOMPARE(calls(), expected);
}

void tst_ImageFileConverter::optionsAsFileNames()
{
    // Not all tools take the word behind "-i" or "-f" for a file whatever it looks like.
    addRecorder("bmpconv/bmpconv.exe", "echo x > ./-f_L8.raw");
    addRecorder("Palette/pngquant.exe", "exit 1");
    const QString photo = makeImage("-f.png");
    QVERIFY(CImageFileConverter().convert(photo, "L8"));
    QCOMPARE(calls().value(1), QString("./-f.png"));
    QVERIFY(!CImageFileConverter().convert(photo, "PALETTED"));
    QCOMPARE(calls().value(7), QString("./-f.png"));
}

void tst_ImageFileConverter::successNeedsItsOutput_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<bool>("expected");
    QTest::newRow("written") << QByteArray("echo new > $OUT") << true;
    QTest::newRow("written with an old time")
        << QByteArray("echo new > $OUT; touch -d '2001-01-01' $OUT") << true;
    QTest::newRow("renamed") << QByteArray("cp -p $OUT t; mv t $OUT") << true;
    QTest::newRow("nothing") << QByteArray("exit 0") << false;
    QTest::newRow("another file") << QByteArray("echo new > other.raw") << false;
    QTest::newRow("empty") << QByteArray(": > $OUT") << false;
    QTest::newRow("removed") << QByteArray("rm $OUT") << false;
    QTest::newRow("a folder") << QByteArray("rm $OUT; mkdir $OUT") << false;
    QTest::newRow("written, but failed") << QByteArray("echo new > $OUT; exit 1") << false;
    QTest::newRow("written, but crashed") << QByteArray("echo new > $OUT; kill -KILL $$") << false;
}

void tst_ImageFileConverter::successNeedsItsOutput()
{
    QFETCH(QByteArray, commands);
    QFETCH(bool, expected);
    const QString photo = makeImage("photo.png");
    const struct
    {
        const char *tool;
        const char *format;
        QString output;
    } cases[] = {{"bmpconv/bmpconv.exe", "L8", "photo_L8.raw"},
                 {"DXT1/dxtpack.exe", "DXT1", "photo_DXT1/photo_DXT1.raw"},
                 {"Palette/pngquant.exe", "PALETTED", "photo_PALETTED/photo-fs8.png"},
                 {"Palette/palsplit.exe", "PALETTED", "photo_PALETTED/photo_PALETTED.raw"}};
    for (const auto &row : cases) {
        m_stubs->addTool("Palette/pngquant.exe", "echo x > photo-fs8.png");
        m_stubs->addTool("Palette/palsplit.exe", "echo x > photo_PALETTED.raw");
        const QFileInfo output(project() + "/" + row.output);
        QDir().mkpath(output.path());
        CToolStubs::write(output.filePath(), "old");
        m_stubs->addTool(row.tool, "OUT=" + output.fileName().toUtf8() + "\n" + commands);
        CImageFileConverter converter;
        QSignalSpy failures(&converter, &CImageFileConverter::failed);
        QCOMPARE(converter.convert(photo, QString(row.format)), expected);
        QCOMPARE(failures.count(), expected ? 0 : 1);
        QVERIFY(QDir(project()).removeRecursively());
    }
}

void tst_ImageFileConverter::quantisedFileUnderAnotherName_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("expectedInput");
    QTest::newRow("suffix") << "photo.jpg"
                            << "photo-fs8.png"
                            << "photo-fs8.jpg";
    QTest::newRow("dots") << "my.photo.png"
                          << "my.photo-fs8.png"
                          << "my-fs8.png";
    QTest::newRow("both") << "my.photo.jpg"
                          << "my.photo-fs8.png"
                          << "my-fs8.jpg";
}

void tst_ImageFileConverter::quantisedFileUnderAnotherName()
{
    QFETCH(QString, source);
    QFETCH(QString, written);
    QFETCH(QString, expectedInput);
    const QByteArray base = source.section('.', 0, 0).toUtf8();
    m_stubs->addTool("Palette/pngquant.exe", "date +%N > '" + written.toUtf8() + "'");
    m_stubs->addTool("Palette/palsplit.exe", "cat \"$2\" > " + base + "_PALETTED8.raw");
    const QString output = project() + "/" + base + "_PALETTED/" + base + "_PALETTED8.raw";
    const QString photo = makeImage(source);

    QVERIFY(CImageFileConverter().convert(photo, "PALETTED8"));
    const QByteArray first = CToolStubs::read(output);
    QVERIFY(CImageFileConverter().convert(photo, "PALETTED8")); // now the renamed one lies there
    QVERIFY(CToolStubs::read(output) != first);
    QVERIFY(QFile::exists(QFileInfo(output).path() + "/" + expectedInput));
}

void tst_ImageFileConverter::rawFilesAreCopied()
{
    QDir().mkpath(m_stubs->path("photos"));
    const QString raw = m_stubs->path("photos/photo.raw");
    CToolStubs::write(raw, "bytes");
    QVERIFY(CImageFileConverter().convert(raw, "no format at all"));
    const QString copy = project() + "/photo_RAW/photo.raw";
    QCOMPARE(CToolStubs::read(copy), QByteArray("bytes"));
    CToolStubs::write(raw, "other bytes");
    CToolStubs::write(m_stubs->path("photos/photo.json"),
                      R"({"format":"L8","width":4,"height":2,"bytes":11})");
    QVERIFY(CImageFileConverter().convert(raw, "L8"));
    QCOMPARE(CToolStubs::read(copy), QByteArray("other bytes"));

    const auto image = CImageFileConverter::convertedImage(raw, "L8");
    QVERIFY(image);
    QCOMPARE(image->path, copy);
    QCOMPARE(image->format, QString("None"));
    QCOMPARE(image->suffix, QString("raw"));
    QCOMPARE(QSize(image->bwidth, image->bheight), QSize(4, 2));
}

void tst_ImageFileConverter::onlyTheLowerCaseSuffixIsRaw()
{
    addRecorder("bmpconv/bmpconv.exe", "echo x > photo_L8.raw");
    const QString file = makeImage("photo.RAW");
    QVERIFY(CImageFileConverter().convert(file, "L8"));
    QCOMPARE(calls().mid(0, 4), (Names{"-i", "photo.RAW", "-f", "3"}));
    QVERIFY(!QFile::exists(project() + "/photo_RAW"));
}

void tst_ImageFileConverter::foldersWithoutWorkingDirectory()
{
    QCOMPARE(CImageFileConverter::convertedImagesFolder(), project());
    openProject("demo", QString());
    QCOMPARE(CImageFileConverter::convertedImagesFolder(),
             QDir::currentPath() + "/demo_ConvertedImages");
    openProject("../../evil", m_stubs->projectFolder());
    QCOMPARE(QFileInfo(CImageFileConverter::convertedImagesFolder()).absolutePath(),
             m_stubs->projectFolder());
    CProjectModel::setCurrent(nullptr);
    QVERIFY(!CImageFileConverter().convert(makeImage("photo.png"), "L8"));
}

void tst_ImageFileConverter::whatCannotBeAFolder()
{
    addRecorder("bmpconv/bmpconv.exe", "echo x > photo_L8.raw");
    addRecorder("DXT1/dxtpack.exe", "echo x > photo_DXT1.raw");
    const QString photo = makeImage("photo.png");
    CImageFileConverter converter;
    QDir().mkpath(project());
    CToolStubs::write(project() + "/photo_DXT1", "in the way");
    QVERIFY(!converter.convert(photo, "DXT1"));
    QDir().mkpath(project() + "/photo.png"); // the copy cannot replace a folder
    QVERIFY(!converter.convert(photo, "L8"));
    QVERIFY(QDir(project()).removeRecursively());
    CToolStubs::write(project(), "in the way");
    QVERIFY(!converter.convert(photo, "L8"));
    QVERIFY(calls().isEmpty());
}

void tst_ImageFileConverter::sourcesThatAreNone_data()
{
    QTest::addColumn<QString>("source");
    for (const char *source :
         {"missing.png", "missing.raw", "folder.png", "pipe.png", "pipe.raw", ""})
        QTest::newRow(source) << source;
}

void tst_ImageFileConverter::sourcesThatAreNone()
{
    QFETCH(QString, source);
    addRecorder("bmpconv/bmpconv.exe", "");
    QDir().mkpath(m_stubs->path("folder.png"));
    for (const char *pipe : {"pipe.png", "pipe.raw"})
        QCOMPARE(mkfifo(m_stubs->path(pipe).toUtf8().constData(), 0600), 0);
    QVERIFY(
        !CImageFileConverter().convert(source.isEmpty() ? source : m_stubs->path(source), "L8"));
    QVERIFY(calls().isEmpty());
}

void tst_ImageFileConverter::sourceThatLiesThereAlready()
{
    addRecorder("bmpconv/bmpconv.exe", "date +%N > photo_L8.raw");
    const QString photo = makeImage("photo.png");
    const QByteArray bytes = CToolStubs::read(photo);
    CImageFileConverter converter;
    QVERIFY(converter.convert(photo, "L8"));
    QVERIFY(converter.convert(project() + "/photo.png", "L8"));
    QCOMPARE(CToolStubs::read(project() + "/photo.png"), bytes);
    // Another name for the very same file: replacing the copy would destroy the source.
    QVERIFY(QFile::link(project(), m_stubs->path("link")));
    QVERIFY(converter.convert(m_stubs->path("link/photo.png"), "L8"));
    QCOMPARE(CToolStubs::read(project() + "/photo.png"), bytes);
}

/// No larger image is drawn; the user hears of it when it is chosen, before it is decoded.
void tst_ImageFileConverter::largeImagesAreRefused()
{
    addRecorder("bmpconv/bmpconv.exe", "echo x > photo_L8.raw");
    QByteArray bytes = CToolStubs::read(makeImage("photo.png"));
    bytes.replace(16, 8, QByteArray::fromHex("0000EA600000EA60")); // 60,000 x 60,000
    bytes.replace(29, 4, QByteArray::fromHex("80D27542"));         // its check sum
    CToolStubs::write(m_stubs->path("bomb.png"), bytes);
    for (const QString &file : {m_stubs->path("bomb.png"), makeImage("wide.png", {2049, 1})}) {
        CImageFileConverter converter;
        QSignalSpy failures(&converter, &CImageFileConverter::failed);
        QVERIFY(!converter.convert(file, "L8"));
        QVERIFY(!converter.mediaImage(file));
        QCOMPARE(failures.count(), 2);
        for (const auto &each : failures)
            QVERIFY(each.value(0).toString().contains("2048"));
        QVERIFY(calls().isEmpty());
        QVERIFY(!QFile::exists(project() + "/bomb.png"));
    }
    QVERIFY(CImageFileConverter().mediaImage(makeImage("most.png", {2048, 1})));
}

void tst_ImageFileConverter::describedRawFilesAreRefusedToo()
{
    const QString raw = m_stubs->path("wide.raw");
    CToolStubs::write(raw, QByteArray(4000, 'x'));
    CToolStubs::write(m_stubs->path("wide.json"), R"({"width":4000,"height":1,"bytes":4000})");
    CImageFileConverter converter;
    QSignalSpy failures(&converter, &CImageFileConverter::failed);
    QVERIFY(!converter.convert(raw, "L8"));
    QVERIFY(failures.value(0).value(0).toString().contains("2048"));
}

void tst_ImageFileConverter::realTools_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("bytes"); // of a 13 x 6 image
    QTest::addColumn<int>("paletteBytes");
    QTest::newRow("ARGB1555") << "ARGB1555"
                              << "" << 13 * 6 * 2 << 0;
    QTest::newRow("L1") << "L1"
                        << "" << 2 * 6 << 0;
    QTest::newRow("L2") << "L2"
                        << "" << 4 * 6 << 0;
    QTest::newRow("L4") << "L4"
                        << "" << 7 * 6 << 0;
    QTest::newRow("L8") << "L8"
                        << "" << 13 * 6 << 0;
    QTest::newRow("RGB332") << "RGB332"
                            << "" << 13 * 6 << 0;
    QTest::newRow("ARGB2") << "ARGB2"
                           << "" << 13 * 6 << 0;
    QTest::newRow("ARGB4") << "ARGB4"
                           << "" << 13 * 6 * 2 << 0;
    QTest::newRow("RGB565") << "RGB565"
                            << "" << 13 * 6 * 2 << 0;
    QTest::newRow("PALETTED") << "PALETTED"
                              << "/photo_PALETTED" << 13 * 6 << 1024;
    QTest::newRow("PALETTED8") << "PALETTED8"
                               << "/photo_PALETTED" << 13 * 6 << 1024;
    QTest::newRow("PALETTED565") << "PALETTED565"
                                 << "/photo_PALETTED" << 13 * 6 << 512;
    QTest::newRow("PALETTED4444") << "PALETTED4444"
                                  << "/photo_PALETTED" << 13 * 6 << 512;
    QTest::newRow("DXT1") << "DXT1"
                          << "/photo_DXT1" << 4 * 2 * 8 << 0;
}

void tst_ImageFileConverter::realTools()
{
    QFETCH(QString, format);
    QFETCH(QString, folder);
    QFETCH(int, bytes);
    QFETCH(int, paletteBytes);
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR"));
    for (const QString name : {"photo.png", "photo.jpg"}) {
        const QString photo = makeImage(name);
        CImageFileConverter converter;
        QSignalSpy failures(&converter, &CImageFileConverter::failed);
        QVERIFY2(converter.convert(photo, format),
                 qPrintable(failures.value(0).value(0).toString()));

        const auto image = CImageFileConverter::convertedImage(photo, format);
        QVERIFY(image);
        QCOMPARE(image->path, project() + folder + "/photo_" + format + ".raw");
        QCOMPARE(image->bfolder, "demo_ConvertedImages" + folder);
        QCOMPARE(image->basename, QString("photo"));
        QCOMPARE(image->suffix, QFileInfo(name).suffix());
        QCOMPARE(image->format, format);
        QCOMPARE(QSize(image->bwidth, image->bheight), QSize(13, 6));
        QCOMPARE(QFileInfo(image->path).size(), bytes);
        const QFileInfo palette(project() + folder + "/photo_" + format + ".lut");
        QCOMPARE(palette.exists(), paletteBytes > 0);
        QCOMPARE(palette.size(), paletteBytes);
    }
}

void tst_ImageFileConverter::oddNames_data()
{
    QTest::addColumn<QString>("base");
    for (const char *base :
         {"with blanks in it", "it's \"quoted\"", "-x", "--help", "-f", ":colon", "Größe 日本",
          "a;b$(touch pwned)`c`*", "%1 %2", "two.dots", "photo-fs8", "back\\slash", ".hidden"})
        QTest::newRow(base) << QString::fromUtf8(base);
}

void tst_ImageFileConverter::oddNames()
{
    QFETCH(QString, base);
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR"));
    const QString photo = makeImage(base + ".png");
    CImageFileConverter converter;
    QSignalSpy failures(&converter, &CImageFileConverter::failed);
    for (const QString format : {"L8", "DXT1", "PALETTED565"}) {
        QVERIFY2(converter.convert(photo, format),
                 qPrintable(failures.value(0).value(0).toString()));
        const auto image = CImageFileConverter::convertedImage(photo, format);
        QVERIFY(image);
        QCOMPARE(image->path, m_stubs->projectFolder() + "/" + image->bfolder + "/" +
                                  image->basename + "_" + image->format + ".raw");
    }
    QCOMPARE(QDir(m_stubs->projectFolder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             Names{"demo_ConvertedImages"});
}

void tst_ImageFileConverter::mediaFacts()
{
    const QString photo = makeImage("photo.jpg", {40, 30});
    const auto image = CImageFileConverter().mediaImage(photo);
    QVERIFY(image);
    QCOMPARE(QSize(image->bwidth, image->bheight), QSize(40, 30));
    QCOMPARE(image->bfolder + "/" + image->basename + "." + image->suffix, photo);
    QVERIFY(!image->video);

    // The chip decodes the file as it lies there, whatever a camera's mark says of turning it.
    QByteArray marked = CToolStubs::read(photo);
    marked.insert(2, QByteArray::fromHex("FFE1002245786966000049492A00080000000100"
                                         "12010300010000000600000000000000"));
    CToolStubs::write(photo, marked);
    QCOMPARE(QImageReader(photo).transformation(), QImageIOHandler::TransformationRotate90);
    const auto turned = CImageFileConverter().mediaImage(photo);
    QVERIFY(turned);
    QCOMPARE(QSize(turned->bwidth, turned->bheight), QSize(40, 30));
    CToolStubs::write(m_stubs->path("film.avi"), "RIFF");
    QVERIFY(!CImageFileConverter().mediaImage(m_stubs->path("film.avi")));
}

QTEST_MAIN(tst_ImageFileConverter)
#include "tst_imagefileconverter.moc"
