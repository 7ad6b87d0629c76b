#include "CBitmapFormatTable.h"
#include "CFileSizeLimit.h"
#include "CImageFileConverter.h"
#include "CProjectModel.h"
#include "CToolStubs.h"
#include "ImageNames.h"
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
    void successNeedsItsOutput();
    void quantisedFileUnderAnotherName();
    void rawFilesAreCopied();
    void foldersWithoutWorkingDirectory();
    void whatCannotBeAFolder();
    void namesakes_data();
    void namesakes();
    void largeImagesAreRefused();
    void oddNames();
    void mediaFacts();

private:
    QString project() const { return m_stubs->projectFolder() + "/demo_ConvertedImages"; }
    QString makeImage(const QString &name, const QSize &size = {13, 6}) const;
    /// Its arguments, one a line, then the working folder and PATH go to calls.txt.
    void addRecorder(const QString &tool, const QByteArray &output) const;
    QStringList calls() const;
    /// Where the format's files lie in the converted images folder.
    static QString folderOf(const QString &format)
    {
        return format == "DXT1"                ? "/photo_DXT1"
               : format.startsWith("PALETTED") ? "/photo_PALETTED"
                                               : "";
    }
    /// No conversion, no tool run, and one message, which it gives back.
    QString verifyRefused(const QString &source, int format) const;
    static std::optional<SConvertedImage> converted(const QString &photo, const QString &format);
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
    return QString::fromUtf8(TestFiles::read(m_stubs->path("calls.txt")))
        .split('\n', Qt::SkipEmptyParts);
}

QString tst_ImageFileConverter::verifyRefused(const QString &source, int format) const
{
    CImageFileConverter converter;
    QSignalSpy failures(&converter, &CImageFileConverter::failed);
    if (converter.convert(source, format) || failures.count() != 1 || !calls().isEmpty())
        QTest::qFail(qPrintable(source), __FILE__, __LINE__);
    return failures.value(0).value(0).toString();
}

std::optional<SConvertedImage> tst_ImageFileConverter::converted(const QString &photo,
                                                                 const QString &format)
{
    CImageFileConverter converter;
    connect(&converter, &CImageFileConverter::failed,
            [](const QString &text) { qWarning() << text; });
    return converter.convertedImage(photo, format);
}

void tst_ImageFileConverter::successNeedsItsOutput()
{
    const std::pair<const char *, bool> ways[] = {
        {"echo new > $OUT", true},
        {"echo new > $OUT; touch -d '2001-01-01' $OUT", true},
        {"exit 0", false},
        {"echo new > other.raw", false},
        {": > $OUT", false},
        {"mkdir $OUT", false},
        {"echo new > $OUT; exit 1", false},
        {"echo new > $OUT; kill -KILL $$", false},
    };
    const std::tuple<const char *, QString, QString> tools[] = {
        {"bmpconv/bmpconv.exe", "L8", "photo_L8.raw"},
        {"DXT1/dxtpack.exe", "DXT1", "photo_DXT1/photo_DXT1.raw"},
        {"Palette/pngquant.exe", "PALETTED", "photo_PALETTED/photo-fs8.png"},
        {"Palette/palsplit.exe", "PALETTED", "photo_PALETTED/photo_PALETTED.raw"}};
    const QString photo = makeImage("photo.png");
    for (const auto &[commands, expected] : ways) {
        for (const auto &[tool, format, path] : tools) {
            m_stubs->addTool("Palette/pngquant.exe", "echo x > photo-fs8.png");
            m_stubs->addTool("Palette/palsplit.exe", "echo x > photo_PALETTED.raw");
            const QString output = path.section('/', -1);
            m_stubs->addTool(tool, "OUT=" + output.toUtf8() + "\n" + commands);
            CImageFileConverter converter;
            QSignalSpy failures(&converter, &CImageFileConverter::failed);
            QVERIFY2(converter.convert(photo, format) == expected, commands);
            QCOMPARE(failures.count(), expected ? 0 : 1);
            // What has failed leaves nothing behind that the next attempt would meet.
            QVERIFY(expected || !QFile::exists(project() + folderOf(format) + "/photo.png"));
            QVERIFY(QDir(project()).removeRecursively());
        }
    }
}

void tst_ImageFileConverter::quantisedFileUnderAnotherName()
{
    const std::tuple<QString, QByteArray, QString> cases[] = {
        {"photo.jpg", "photo-fs8.png", "photo-fs8.jpg"},
        {"my.photo.png", "my.photo-fs8.png", "my-fs8.png"},
        {"my.photo.jpg", "my.photo-fs8.png", "my-fs8.jpg"}};
    for (const auto &[source, written, expectedInput] : cases) {
        const QByteArray base = source.section('.', 0, 0).toUtf8();
        m_stubs->addTool("Palette/pngquant.exe", "date +%N > '" + written + "'");
        const QString output = project() + "/" + base + "_PALETTED/" + base + "_PALETTED";
        const QString photo = makeImage(source);
        QDir(project()).removeRecursively();
        // A tool that writes into what it finds changes nothing that lies elsewhere.
        const QString victim = m_stubs->path("victim");
        TestFiles::write(victim, "kept");
        QVERIFY(QDir().mkpath(QFileInfo(output).path()));
        QVERIFY(QFile::link(victim, QFileInfo(output).path() + "/" + base + "-fs8.png"));
        m_stubs->addTool("Palette/palsplit.exe", "cat \"$2\" > " + base + "_PALETTED8.raw");
        QVERIFY(CImageFileConverter().convert(photo, "PALETTED8"));
        m_stubs->addTool("Palette/palsplit.exe", "cat \"$2\" > " + base + "_PALETTED565.raw");
        QVERIFY(CImageFileConverter().convert(photo, "PALETTED565")); // the renamed one lies there
        QCOMPARE(TestFiles::read(victim), QByteArray("kept"));
        QVERIFY(TestFiles::read(output + "8.raw") != TestFiles::read(output + "565.raw"));
        QVERIFY(QFile::exists(QFileInfo(output).path() + "/" + expectedInput));
    }
}

void tst_ImageFileConverter::rawFilesAreCopied()
{
    QDir().mkpath(m_stubs->path("photos"));
    const QString raw = m_stubs->path("photos/photo.raw");
    TestFiles::write(raw, "bytes");
    QVERIFY(CImageFileConverter().convert(raw, "no format at all"));
    const QString copy = project() + "/photo_RAW/photo.raw";
    QCOMPARE(TestFiles::read(copy), QByteArray("bytes"));
    TestFiles::write(raw, "other bytes");
    TestFiles::write(m_stubs->path("photos/photo.json"),
                     R"({"format":"L8","width":4,"height":2,"bytes":11})");
    for (int time = 0; time < 2; ++time) { // the second one is shared
        const auto image = CImageFileConverter().convertedImage(raw, "L8");
        QVERIFY(image);
        QCOMPARE(image->path, project() + "/photo_2_RAW/photo_2.raw");
        QCOMPARE(TestFiles::read(image->path), QByteArray("other bytes"));
        QCOMPARE(image->basename + image->format + image->suffix, QString("photo_2Noneraw"));
        QCOMPARE(QSize(image->bwidth, image->bheight), QSize(4, 2));
    }
    QCOMPARE(TestFiles::read(copy), QByteArray("bytes"));

    addRecorder("bmpconv/bmpconv.exe", "echo x > photo_L8.raw"); // only the lower case is raw
    QVERIFY(CImageFileConverter().convert(makeImage("photo.RAW"), "L8"));
    QCOMPARE(calls().mid(0, 4), (Names{"-i", "photo.RAW", "-f", "3"}));
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
    const int L8 = CBitmapFormatTable::code("L8");
    QDir().mkpath(project());
    TestFiles::write(project() + "/photo_DXT1", "in the way");
    verifyRefused(photo, CBitmapFormatTable::code("DXT1"));
    QVERIFY(QDir(project()).removeRecursively());
    TestFiles::write(project(), "in the way");
    verifyRefused(photo, L8);
    QVERIFY(QFile::remove(project()));

    QDir().mkpath(m_stubs->path("folder.png")); // nor are these sources
    for (const char *pipe : {"pipe.png", "pipe.raw"})
        QCOMPARE(mkfifo(m_stubs->path(pipe).toUtf8().constData(), 0600), 0);
    for (const char *source : {"missing.png", "missing.raw", "folder.png", "pipe.png", "pipe.raw"})
        verifyRefused(m_stubs->path(source), L8);
    QVERIFY(verifyRefused(m_stubs->path("pipe.png"), L8).contains("not a regular file"));
    verifyRefused(QString(), L8);
}

void tst_ImageFileConverter::namesakes_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("base");
    const auto row = [](const char *fact, const char *format, const char *first, const char *second,
                        const char *base) {
        QTest::newRow(fact) << format << first << second << base;
    };
    row("general tool", "ARGB4", "logo.png", "x/logo.png", "logo_2");
    row("another kind of file", "ARGB4", "logo.png", "x/logo.bmp", "logo_2");
    row("other format", "L8", "logo.jpg", "x/logo.png", "logo_2");
    row("compressed", "DXT1", "logo.png", "x/logo.png", "logo_2");
    row("equal up to the first dot", "PALETTED8", "icon.home.png", "x/icon.menu.png", "icon_2");
    row("different dots", "ARGB4", "icon.png", "x/icon.menu.png", "icon.menu");
}

/// With the real tools: equal images are shared, different ones never meet, and what is there stays
/// as it is, also when the disk is full.
void tst_ImageFileConverter::namesakes()
{
    QFETCH(QString, format);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QString, base);
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR"));
    const auto makeColoured = [this](const QString &name, Qt::GlobalColor colour) {
        const QString file = m_stubs->path(name);
        QDir().mkpath(QFileInfo(file).path());
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(colour);
        if (!picture.save(file))
            qFatal("cannot write %s", qPrintable(file));
        return file;
    };
    const QString red = makeColoured(first, Qt::red);
    const QString blue = makeColoured(second, Qt::blue);
    const auto one = converted(red, format);
    QVERIFY(one);
    const auto before = TestFiles::below(project());
    for (const rlim_t bytes : {50u, 1000u}) { // less than the source, less than what is made of it
        const CFileSizeLimit full(bytes);
        QVERIFY(!CImageFileConverter().convert(blue, format));
        QCOMPARE(TestFiles::below(project()), before);
    }
    const auto two = converted(blue, format);
    QVERIFY(two);
    QCOMPARE(two->basename, base);
    const auto after = TestFiles::below(project());
    for (auto file = before.begin(); file != before.end(); ++file)
        QVERIFY2(after.value(file.key()) == file.value(), qPrintable(file.key()));
    const auto pixels = [](const SConvertedImage &made) { // with their palette
        return TestFiles::read(made.path) + TestFiles::read(made.path.chopped(3) + "lut");
    };
    QVERIFY(pixels(*two) != pixels(*one));
    // Again, from elsewhere, and from the copies that were left.
    const QString third = makeColoured("y/" + first, Qt::red);
    const QFileInfo copy(ImageNames::sourceIn(QFileInfo(one->path).path(), one->basename));
    QVERIFY(QFile::link(copy.path(), m_stubs->path("link"))); // the very same file
    for (const QString &again :
         {red, third, copy.filePath(), m_stubs->path("link/" + copy.fileName())})
        QCOMPARE(converted(again, format)->path, one->path);
    QCOMPARE(converted(blue, format)->path, two->path);
    QCOMPARE(TestFiles::below(project()), after);
}

/// No larger image is drawn; the user hears of it when it is chosen, before it is decoded.
void tst_ImageFileConverter::largeImagesAreRefused()
{
    addRecorder("bmpconv/bmpconv.exe", "echo x > photo_L8.raw");
    QByteArray bytes = TestFiles::read(makeImage("photo.png"));
    bytes.replace(16, 8, QByteArray::fromHex("0000EA600000EA60")); // 60,000 x 60,000
    bytes.replace(29, 4, QByteArray::fromHex("80D27542"));         // its check sum
    TestFiles::write(m_stubs->path("bomb.png"), bytes);
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

    const QString raw = m_stubs->path("wide.raw"); // and so is what is described as large
    TestFiles::write(raw, QByteArray(4000, 'x'));
    TestFiles::write(m_stubs->path("wide.json"), R"({"width":4000,"height":1,"bytes":4000})");
    QVERIFY(verifyRefused(raw, CBitmapFormatTable::code("L8")).contains("2048"));
}

void tst_ImageFileConverter::oddNames()
{
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR"));
    for (const QString base :
         {"with blanks in it", "it's \"quoted\"", "-x", "--help", "-f", ":colon", "Größe 日本",
          "a;b$(touch pwned)`c`*", "%1 %2", "two.dots", "photo-fs8", "back\\slash", ".hidden"}) {
        const QString photo = makeImage(base + ".png");
        for (const QString format : {"L8", "DXT1", "PALETTED565"}) {
            const auto image = converted(photo, format);
            QVERIFY2(image, qPrintable(base));
            QCOMPARE(image->path, m_stubs->projectFolder() + "/" + image->bfolder + "/" +
                                      image->basename + "_" + image->format + ".raw");
        }
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
    QByteArray marked = TestFiles::read(photo);
    marked.insert(2, QByteArray::fromHex("FFE1002245786966000049492A00080000000100"
                                         "12010300010000000600000000000000"));
    TestFiles::write(photo, marked);
    QCOMPARE(QImageReader(photo).transformation(), QImageIOHandler::TransformationRotate90);
    const auto turned = CImageFileConverter().mediaImage(photo);
    QVERIFY(turned);
    QCOMPARE(QSize(turned->bwidth, turned->bheight), QSize(40, 30));
    TestFiles::write(m_stubs->path("film.avi"), "RIFF");
    QVERIFY(!CImageFileConverter().mediaImage(m_stubs->path("film.avi")));
}

QTEST_MAIN(tst_ImageFileConverter)
#include "tst_imagefileconverter.moc"
