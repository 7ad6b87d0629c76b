// What the programs write where somebody else has left a link, a pipe or a file with another name:
// every writer, at every such place. Nothing outside of the folder may change.
#include "CFileCopies.h"
#include "CImageFileConverter.h"
#include "CPageOperations.h"
#include "CProjectFile.h"
#include "CProjectModel.h"
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CRecoveryCopy.h"
#include "CScreenModel.h"
#include "CScreenshotWriter.h"
#include "CScriptedUser.h"
#include "CSettings.h"
#include "CXmlGuard.h"
#include "ConvertedImageFacts.h"
#include "PackageFiles.h"
#include "ProjectTestSupport.h"
#include "PropertyKey.h"

#include <QDirIterator>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

using ProjectTestSupport::readFile;
using ProjectTestSupport::writeFile;

namespace {
const QByteArray Kept = "kept";

/// Puts something in the way.
struct SObstacle
{
    const char *name;
    std::function<int(const char *place, const char *outside)> make;
    bool isRefused; ///< by all that write there: it is no file and leads to none
};

const SObstacle Obstacles[] = {
    {"link to a file", [](auto place, auto) { return symlink("../outside/file", place); }, false},
    {"link to nowhere", [](auto place, auto) { return symlink("../outside/new", place); }, false},
    {"link to a folder", [](auto place, auto out) { return symlink(out, place); }, true},
    {"link to a device", [](auto place, auto) { return symlink("/dev/zero", place); }, true},
    {"system's link", [](auto place, auto) { return symlink("/proc/self/exe", place); }, true},
    {"other name of a file",
     [](auto place, auto out) { return link((out + std::string("/file")).c_str(), place); }, false},
    {"pipe", [](auto place, auto) { return mkfifo(place, 0600); }, true},
};

bool isPlainFile(const QString &path)
{
    struct stat status = {};
    return lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_nlink == 1;
}
} // namespace

class tst_Links : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(QFile::exists(m_bin.filePath("panel-export"))); }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        for (const char *each : {"p", "outside", "photos"})
            QVERIFY(QDir(m_folder->path()).mkdir(each));
        QVERIFY(writeFile(m_folder->filePath("outside/file"), Kept));
        QVERIFY(writeFile(inProject("demo.nyx"), ProjectTestSupport::document("demo")));
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(m_folder->filePath("photos/x.png")) && image.save(inProject("t.png")));
        QDir::setCurrent(m_bin.path());
        m_project = std::make_unique<CProjectModel>();
        CProjectModel::setCurrent(m_project.get());
        QVERIFY(m_project->loadFromFile(inProject("demo.nyx"), nullptr));
    }

    void cleanup() { QDir::setCurrent(m_before); }

    void writers_data()
    {
        QTest::addColumn<int>("obstacle");
        for (size_t i = 0; i < std::size(Obstacles); ++i)
            QTest::newRow(Obstacles[i].name) << int(i);
    }

    /// Either the user hears of the place, or a file of its own lies there or beside it.
    void writers()
    {
        QFETCH(int, obstacle);
        const SObstacle &made = Obstacles[obstacle];
        const int count = allWriters().size();
        for (int i = 0; i < count; ++i) {
            init();
            const SWriter writer = allWriters().at(i);
            const QString place = inProject(writer.place);
            QDir().mkpath(QFileInfo(place).path());
            QCOMPARE(made.make(QFile::encodeName(place).constData(),
                               QFile::encodeName(m_folder->filePath("outside")).constData()),
                     0);
            const QString before = everythingOutside();
            const QString told = writer.write(place);
            QVERIFY2(everythingOutside() == before, writer.place);
            const bool isNumbered = place.contains("/x") || place.endsWith("/Page.png");
            const bool isOwn = isPlainFile(place);
            const QByteArray fact = QByteArray(writer.place) + ": " + told.toUtf8();
            if (isNumbered) // takes another name where it cannot have this one
                QVERIFY2(told.isEmpty(), fact);
            else if (made.isRefused)
                QVERIFY2(!isOwn && told.contains(QFileInfo(place).fileName()), fact);
            else
                QVERIFY2(isOwn != !told.isEmpty(), fact);
        }
    }

    /// A link is a way to a project; what takes the place of an open one is none.
    void projectKeepsItsLink()
    {
        const QString target = m_folder->filePath("outside/real.nyx");
        const QString path = inProject("linked.nyx");
        QVERIFY(writeFile(target, ProjectTestSupport::document("demo")) &&
                QFile::link(target, path));
        CScriptedUser user;
        user.overwriteAnswer = IUserQuestions::EOverwrite::Overwrite;
        CRecentProjects recent;
        CProjectSession session(&user, &recent);
        session.open(path);
        QCOMPARE(session.project()->workingDirectory(), QFileInfo(target).path());
        const auto isSaved = [&session](const char *name) {
            session.project()->screen(0)->setProperty(PropertyKey::Name, QString(name));
            return session.save();
        };
        QVERIFY(isSaved("once"));
        QVERIFY(QFileInfo(path).isSymLink() && isPlainFile(target));
        QVERIFY(readFile(target) != ProjectTestSupport::document("demo"));

        const QString stranger = m_folder->filePath("outside/file");
        QVERIFY(QFile::remove(target) && QFile::link(stranger, target));
        QVERIFY(isSaved("again"));
        QCOMPARE(readFile(stranger), QByteArray(Kept));
        QVERIFY(isPlainFile(target));
    }

    void foldersThatAreLinks()
    {
        for (const auto &[folder, format] :
             {std::pair("demo_ConvertedImages", "L8"),                        // the folder of all
              std::pair("demo_ConvertedImages/x_DXT1", "DXT1"),               // one below
              std::pair("demo_ConvertedImages/x_PALETTED", "PALETTED565")}) { // and of palettes
            checkLinkedFolder(folder, format);
            init();
        }
    }

    /// For what may never begin, or never end.
    void readersDoNotWait()
    {
        const SObstacle &device = Obstacles[3];
        const SObstacle &pipe = Obstacles[6];
        for (const SObstacle *each : {&device, &pipe}) {
            for (const char *name : {"x.json", "x.raw", "x.avi", ".demo.nyx.saved"})
                QCOMPARE(each->make(qPrintable(inProject(name)), nullptr), 0);
            QVERIFY(describedSize(inProject("x.raw")).isEmpty());
            QVERIFY(!CFileCopies::areEqual(inProject("x.raw"), inProject("x.avi")));
            quint32 side = 0;
            QVERIFY(!CImageFileConverter::aviFrameSize(inProject("x.avi"), side, side));
            QVERIFY(!CProjectFile(inProject("demo.nyx")).savedVersion());
            QVERIFY(!CXmlGuard::readFile(inProject("x.raw")));
            init();
        }
    }

private:
    struct SWriter
    {
        const char *place; ///< in the project's folder
        /// Gives what the user is told.
        std::function<QString(const QString &path)> write;
    };

    QVector<SWriter> allWriters() const
    {
        const auto exportedAs = [this](const char *option) {
            return [=](const QString &path) { return exported({option, path}); };
        };
        const auto exportedInto = [this](const char *option) {
            return [=](const QString &path) { return exported({option, QFileInfo(path).path()}); };
        };
        const auto convertedTo = [this](const char *format) {
            return [=](const QString &) { return converted(format); };
        };
        const auto toolRun = [this](const char *program, const QStringList &arguments) {
            return [=](const QString &) { return tool(program, arguments); };
        };
        return {
            {".demo.nyx.saved",
             [this](const QString &) {
                 return CProjectFile(inProject("demo.nyx"))
                     .write(ProjectTestSupport::document("demo", 2),
                            CProjectFile::EWrite::Automatic);
             }},
            {"page.xml",
             [this](const QString &path) {
                 return CPageOperations::save({m_project->screen(0)}, path);
             }},
            {"Page.png",
             [this](const QString &path) {
                 CScreenshotWriter writer(QFileInfo(path).path());
                 writer.write("Page", QImage(2, 2, QImage::Format_RGB32));
                 return writer.skipped().value(0);
             }},
            {"config.ini",
             [](const QString &path) {
                 return CSettings(QFileInfo(path).path()).write({}) ? QString() : path;
             }},
            {"out.dl", exportedAs("--dl")},
            {"out.bin", exportedAs("--bin")},
            {"out.json", exportedAs("--report")},
            {"Page 1.png", exportedInto("--png")},
            {"Page 1.ramg", exportedInto("--ramg")},
            {"panel.h", exportedInto("--package")},
            {"t_L8.raw", toolRun("bmpconv/bmpconv.exe", {"-i", "t.png", "-f", "3"})},
            {"t_DXT1.json", toolRun("DXT1/dxtpack.exe", {"-i", "t.png"})},
            {"t-fs8.png", toolRun("Palette/pngquant.exe", {"-f", "t.png"})},
            {"demo_ConvertedImages/x.png", convertedTo("L8")},
            {"demo_ConvertedImages/x_L8.raw", convertedTo("L8")},
            {"demo_ConvertedImages/x_L8.json", convertedTo("L8")},
            {"demo_ConvertedImages/x_PALETTED/x-fs8.png", convertedTo("PALETTED8")},
            {"demo_ConvertedImages/x_PALETTED/x_PALETTED8.lut", convertedTo("PALETTED8")},
            {"demo_ConvertedImages/copy.png",
             [this](const QString &path) {
                 CFileCopies copies(m_folder->filePath("p"));
                 copies.add(m_folder->filePath("photos/x.png"), path);
                 return copies.copy();
             }},
        };
    }

    QString inProject(const char *name) const
    {
        return m_folder->filePath(QString("p/%1").arg(name));
    }
    void checkLinkedFolder(const QString &folder, const QString &format) const
    {
        const QString place = m_folder->filePath("p/" + folder);
        QDir().mkpath(QFileInfo(place).path());
        for (const bool holdsTheSource : {false, true}) { // which then need not be copied
            QVERIFY(!holdsTheSource || QFile::copy(m_folder->filePath("photos/x.png"),
                                                   m_folder->filePath("outside/x.png")));
            QVERIFY(holdsTheSource || QFile::link(m_folder->filePath("outside"), place));
            const QString before = everythingOutside();
            QVERIFY2(converted(format).contains(place), qPrintable(converted(format)));
            QCOMPARE(everythingOutside(), before);
        }
        // Nor through the folder's way out.
        CFileCopies copies(m_folder->filePath("p"));
        copies.add(m_folder->filePath("photos/x.png"), m_folder->filePath("p/../outside/y.png"));
        QVERIFY(copies.copy().contains("outside"));
    }

    QString exported(const QStringList &arguments) const
    {
        QProcess process;
        process.start(m_bin.filePath("panel-export"),
                      QStringList{inProject("demo.nyx")} + arguments);
        process.waitForFinished();
        return process.exitCode() == 0 ? QString() : process.readAllStandardError();
    }

    QString tool(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(m_folder->filePath("p"));
        process.start(m_bin.filePath("Image conversion tool for KIV/" + program), arguments);
        process.waitForFinished();
        return process.exitCode() == 0 ? QString() : process.readAllStandardError();
    }

    QString converted(const QString &format) const
    {
        QString told;
        CImageFileConverter converter;
        connect(&converter, &CImageFileConverter::failed,
                [&told](const QString &text) { told = text; });
        converter.convert(m_folder->filePath("photos/x.png"), format);
        return told;
    }

    QString everythingOutside() const
    {
        QString all;
        for (const char *folder : {"outside", "photos"}) {
            QDirIterator each(m_folder->filePath(folder),
                              QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                              QDirIterator::Subdirectories);
            while (each.hasNext())
                all += each.next() + ' ' + QString::number(each.fileInfo().size()) + '\n';
        }
        return all + readFile(m_folder->filePath("outside/file"));
    }

    const QString m_before = QDir::currentPath();
    const QDir m_bin{qEnvironmentVariable("KIV_BIN_DIR")};
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CProjectModel> m_project;
};

QTEST_MAIN(tst_Links)
#include "tst_links.moc"
