#include "CAutosaver.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandDeleteImage.h"
#include "CProjectLock.h"
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CScriptedUser.h"
#include "ProjectTestSupport.h"
#include "PropertyKey.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace ProjectTestSupport;
using EClose = IUserQuestions::EClose;
using EOverwrite = IUserQuestions::EOverwrite;
using EAutosave = CProjectSession::EAutosave;

namespace {
const QString invalidText = QStringLiteral("The specified file is not a valid project file.");
const QString openText = QStringLiteral("Could not open specified project file.");
const QString saveText = QStringLiteral("An error occurred during saving the project");

IUserQuestions::ProjectOptions newOptions(const QString &folder)
{
    return {{QStringLiteral("project_name"), QStringLiteral("fresh")},
            {QStringLiteral("platform"), QStringLiteral("QX112")},
            {QStringLiteral("width"), QStringLiteral("800")},
            {QStringLiteral("height"), QStringLiteral("480")},
            {QStringLiteral("working_directory"), folder}};
}
} // namespace

class tst_ProjectSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_file = at("demo.nyx");
        QVERIFY(writeFile(m_file, document("demo")));
        m_user = std::make_unique<CScriptedUser>();
        m_recent = std::make_unique<CRecentProjects>();
        m_session = std::make_unique<CProjectSession>(m_user.get(), m_recent.get());
        m_session->setRecoveryRoot(at("unsaved"));
        m_user->meanwhile = [this] { behindTheQuestion(); };
    }

    void cleanup()
    {
        m_session.reset();
        QVERIFY(!filesIn(m_folder->path()).contains(".demo.nyx.lock") ||
                readFile(at(".demo.nyx.lock")) == foreignLock);
        m_folder.reset();
    }

    void openTellsEverythingInOrder()
    {
        QStringList order;
        const auto note = [&order](const char *what) {
            return [&order, what] { order << QLatin1String(what); };
        };
        connect(m_session.get(), &CProjectSession::projectOpened, this, note("opened"));
        connect(m_session.get(), &CProjectSession::titleChanged, this,
                [&](const QString &title) { order << title; });
        connect(m_recent.get(), &CRecentProjects::changed, this, note("recent"));
        connect(m_session.get(), &CProjectSession::projectLoaded, this, note("loaded"));
        connect(m_session.get(), &CProjectSession::projectAboutToClose, this, note("closing"));
        connect(m_session.get(), &CProjectSession::projectClosed, this, note("closed"));
        QVERIFY(m_session->openFile(m_file));
        QVERIFY(QFile::exists(at(".demo.nyx.lock")));
        QCOMPARE(m_session->path(), m_file);
        QCOMPARE(CProjectModel::current(), m_session->project());
        QVERIFY(m_session->close());
        QVERIFY(!CProjectModel::current());
        QCOMPARE(order, QStringList({"opened", "demo for QX110", "recent", "loaded", "closing", "",
                                     "closed"}));
        QCOMPARE(m_user->asked, QStringList());
    }

    /// Refused before the open project is touched.
    void brokenFiles()
    {
        QVERIFY(m_session->openFile(m_file));
        change(m_session->project());
        const QString broken = at("broken.nyx");
        m_user->closeAnswer = EClose::Discard;
        for (const QByteArray &content : {QByteArray(), QByteArray("<a><Kiv_Project_T/></a>"),
                                          QByteArray("<!-- a --><Kiv_Project_T/>")}) {
            const bool valid = content.startsWith("<!");
            QVERIFY(writeFile(broken, content));
            m_user->errors.clear();
            m_session->open(broken);
            QCOMPARE(m_session->path(), valid ? broken : m_file);
            QCOMPARE(m_user->errors, valid ? QStringList() : QStringList(invalidText));
            QCOMPARE(m_user->asked, valid ? QStringList("close") : QStringList());
        }
    }

    /// Validated, then replaced before it is read: the window is left with what was open.
    void fileThatBreaksBetweenValidatingAndOpening()
    {
        QVERIFY(m_session->openFile(m_file));
        const CProjectModel *before = m_session->project();
        QVERIFY(writeFile(at("broken.nyx"), "<"));
        QVERIFY(!m_session->openFile(at("broken.nyx")));
        QVERIFY(!m_session->openFile(at("missing.nyx")));
        m_session->open(m_folder->path()); // cannot be read, which says nothing about its content
        QCOMPARE(m_user->errors, QStringList({openText, openText, openText}));
        QVERIFY(!m_user->reasons.contains(QString()));
        QCOMPARE(m_session->project(), before);
        QCOMPARE(filesIn(m_folder->path()),
                 QStringList({".demo.nyx.lock", "broken.nyx", "demo.nyx"}));
    }

    void lockedProject()
    {
        QVERIFY(writeFile(at("other.nyx"), document("other")));
        QVERIFY(m_session->openFile(at("other.nyx")));
        QVERIFY(writeFile(at(".demo.nyx.lock"), foreignLock));
        for (const bool takeOver : {false, true}) {
            m_user->asked.clear();
            m_user->takeOverAnswer = takeOver;
            QCOMPARE(m_session->openFile(m_file), takeOver);
            QCOMPARE(m_user->asked, QStringList("takeover"));
            QCOMPARE(m_session->path(), takeOver ? m_file : at("other.nyx"));
            QCOMPARE(readFile(at(".demo.nyx.lock")) == foreignLock, !takeOver);
            QCOMPARE(QFile::exists(at(".other.nyx.lock")), !takeOver);
        }
        QCOMPARE(m_user->errors + m_user->notices, QStringList());
    }

    /// Said as it is, and nothing is asked about another copy.
    void somethingElseInTheLocksPlace()
    {
        QVERIFY(QDir().mkdir(at(".demo.nyx.lock")));
        QVERIFY(m_session->openFile(m_file));
        QCOMPARE(m_user->asked + m_user->errors, QStringList());
        QCOMPARE(m_user->notices.size(), 1);
        QVERIFY(m_user->notices.first().contains(at(".demo.nyx.lock")));
        QVERIFY(m_session->save());
        QVERIFY(m_session->close());
        QVERIFY(QDir().rmdir(at(".demo.nyx.lock")));
    }

    void newProjectIsUnsavedAndSaysSo()
    {
        m_user->newOptions = newOptions(m_folder->path());
        m_session->setProgramVersion("2.06");
        m_session->newProject();
        QVERIFY(m_session->project());
        QCOMPARE(m_session->title(), "fresh for QX112");
        QCOMPARE(m_session->path(), QString());
        QVERIFY(m_session->project()->saveToBytes(nullptr).contains("NYXVersion=\"2.06\""));

        change(m_session->project());
        m_user->closeAnswer = EClose::Cancel; // the old project stays
        m_session->newProject();
        QVERIFY(m_session->isDirty());
    }

    void closing_data()
    {
        QTest::addColumn<bool>("hasFile");
        QTest::addColumn<bool>("dirty");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("saveAs");
        QTest::addColumn<QStringList>("asked");
        QTest::addColumn<bool>("closed");
        const auto row = [](const char *name, bool hasFile, bool dirty, EClose answer,
                            const char *saveAs, const QStringList &asked, bool closed) {
            QTest::newRow(name) << hasFile << dirty << int(answer) << QString::fromLatin1(saveAs)
                                << asked << closed;
        };
        row("clean", true, false, EClose::Cancel, "", {}, true);
        row("cancel", true, true, EClose::Cancel, "", {"close"}, false);
        row("discard", true, true, EClose::Discard, "", {"close"}, true);
        row("save", true, true, EClose::Save, "", {"close"}, true);
        row("save, never saved", false, true, EClose::Save, "new.nyx", {"close", "saveas"}, true);
        row("save as cancelled", false, true, EClose::Save, "", {"close", "saveas"}, false);
        row("save as fails", false, true, EClose::Save, "missing/x.nyx", {"close", "saveas"},
            false);
    }

    void closing()
    {
        QFETCH(bool, hasFile);
        QFETCH(bool, dirty);
        QFETCH(int, answer);
        QFETCH(QString, saveAs);
        QFETCH(QStringList, asked);
        QFETCH(bool, closed);
        const QByteArray before = readFile(m_file);
        if (hasFile) {
            QVERIFY(m_session->openFile(m_file));
        } else {
            m_user->newOptions = newOptions(m_folder->path());
            m_session->newProject();
        }
        if (dirty)
            change(m_session->project());
        m_user->asked.clear();
        m_user->closeAnswer = EClose(answer);
        m_user->savePath = saveAs.isEmpty() ? QString() : m_folder->filePath(saveAs);
        QCOMPARE(m_session->close(), closed);
        QCOMPARE(m_user->asked, asked);
        QCOMPARE(!m_session->project(), closed);
        if (!closed)
            QVERIFY(m_session->isDirty());
        QCOMPARE(readFile(m_file) != before, hasFile && dirty && EClose(answer) == EClose::Save);
        if (!saveAs.isEmpty() && closed)
            QVERIFY(readFile(m_folder->filePath(saveAs)).contains("#112233"));
    }

    void saveAsCarriesEverythingAlong()
    {
        const auto put = [this](const char *name, const QByteArray &bytes) {
            QVERIFY(QDir().mkpath(QFileInfo(at(name)).path()));
            QVERIFY(writeFile(at(name), bytes));
        };
        put("demo_ConvertedImages/sky_DXT1/sky_DXT1.raw", "pixels");
        put("older_ConvertedImages/sun_L8.raw", "sun"); // the project was called so once
        put("photos/lake.jpg", "lake");
        put("photos/private.jpg", "private");
        put("photos/lake.nyx", "a private project");
        put("sky.png", "sky");
        put("target/photos/lake.jpg", "another lake");
        put("target/Second_1_ConvertedImages/sky_DXT1/sky_DXT1.raw", "another sky");
        QVERIFY(writeFile(
            m_file,
            "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\"><Kiv_Screen_T name=\"P\">"
            "<Kiv_Bitmap_T bfolder=\"demo_ConvertedImages/sky_DXT1\" filename=\"sky.png\"/>"
            "<Kiv_Bitmap_T bfolder=\"photos\" basename=\"lake\"/>"
            "<Kiv_Bitmap_T bfolder=\"older_ConvertedImages\"/>"
            "<Kiv_Bitmap_T bfolder=\"/elsewhere\"/></Kiv_Screen_T></Kiv_Project_T>"));
        QVERIFY(m_session->openFile(m_file));
        CProjectModel *project = m_session->project();
        CScreenModel *screen = project->screen(0);
        CItemModel *sky = screen->childItem(0);
        project->undoStack()->push(
            new CCommandChangeItemProperty(sky, PropertyKey::BitmapFolder, "older_ConvertedImages",
                                           sky->propertyValue(PropertyKey::BitmapFolder)));
        const QStringList before = allFiles();
        m_user->savePath = at("missing/Second.nyx");
        QVERIFY(writeFile(at("missing"), "in the way"));
        QVERIFY(!m_session->saveAs());
        QVERIFY(QFile::remove(at("missing")));
        m_user->savePath = QStringLiteral("/proc/Second.nyx"); // takes no folder from anybody
        QVERIFY(!m_session->saveAs());
        QVERIFY(m_user->reasons.last().endsWith(qt_error_string(ENOENT)));
        QCOMPARE(allFiles(), before);
        QCOMPARE(sky->propertyText(PropertyKey::BitmapFolder), "older_ConvertedImages");

        m_user->savePath = at("target/Second:1.v2.nyx");
        QVERIFY(m_session->saveAs());
        QCOMPARE(m_user->offeredName, "demo");
        QCOMPARE(m_session->title(), "Second:1.v2 for QX110");
        QCOMPARE(m_session->path(), at("target/Second:1.v2.nyx"));
        QVERIFY(!QFile::exists(at(".demo.nyx.lock")));
        QVERIFY(QFile::exists(at("target/.Second:1.v2.nyx.lock")));
        QCOMPARE(m_recent->paths(), QStringList({m_file, at("target/Second:1.v2.nyx")}));
        project->undoStack()->undo(); // brings back a value of the old folder
        const auto read = [&](int row, const QString &key, const QString &file) {
            const QString place = screen->childItem(row)->propertyText(key);
            return readFile(at("target/") + place + file);
        };
        QCOMPARE(read(0, PropertyKey::BitmapFolder, "/sky_DXT1.raw"), QByteArray("pixels"));
        QCOMPARE(read(0, PropertyKey::FileName, ""), QByteArray("sky"));
        QCOMPARE(read(1, PropertyKey::BitmapFolder, "/lake.jpg"), QByteArray("lake"));
        QCOMPARE(read(2, PropertyKey::BitmapFolder, "/sun_L8.raw"), QByteArray("sun"));
        QCOMPARE(screen->childItem(3)->propertyText(PropertyKey::BitmapFolder), "/elsewhere");
        QCOMPARE(readFile(at("target/photos/lake.jpg")), QByteArray("another lake"));
        QCOMPARE(readFile(at("target/Second_1_ConvertedImages/sky_DXT1/sky_DXT1.raw")),
                 QByteArray("another sky"));
        QCOMPARE(allFiles().filter(QRegularExpression("private|lake.nyx")).size(), 2); // stay
    }

    /// Whether the project is closed without being saved, undone or moved: no picture is missing.
    void deletedImagesComeBack()
    {
        const auto in = [this](const QString &path) { return m_folder->filePath(path); };
        const QString folder = "demo_ConvertedImages/sky_DXT1";
        const QString raw = folder + "/sky_DXT1.raw";
        QVERIFY(QDir(m_folder->path()).mkpath(folder));
        QVERIFY(writeFile(in(raw), "pixels") && writeFile(in(folder + "/sky_DXT1.lut"), "lut"));
        QVERIFY(writeFile(m_file,
                          "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\"><Kiv_Screen_T "
                          "name=\"P\"><Kiv_Bitmap_T bfolder=\"demo_ConvertedImages/sky_DXT1\" "
                          "basename=\"sky\" suffix=\"png\" format=\"DXT1\"/>"
                          "</Kiv_Screen_T></Kiv_Project_T>"));
        QVERIFY(m_session->openFile(m_file));
        QUndoStack *steps = m_session->project()->undoStack();
        QString told;
        const CCommandDeleteImage::SCalls calls{
            [this](const QString &file) { return m_session->isOnDiskWith(file); },
            [&told](const QString &error) { told = error; }};
        const auto pushDeletion = [&] {
            steps->push(new CCommandDeleteImage(m_session->project(), in(raw), calls));
        };
        pushDeletion();
        QVERIFY(told.endsWith("an item shows it."));
        CItemModel *sky = m_session->project()->screen(0)->childItem(0);
        steps->push(new CCommandChangeItemProperty(sky, PropertyKey::BaseName, QString(), "sky"));
        for (const bool isAutosaved : {false, true}) {
            QVERIFY(!isAutosaved || m_session->autosave() == EAutosave::Saved);
            pushDeletion();
            QVERIFY(told.endsWith("Save the project first."));
        }
        QCOMPARE(steps->count(), 1);
        QVERIFY(m_session->save());
        pushDeletion();
        QCOMPARE(told + filesIn(in(folder)).join(' '), QString());

        QVERIFY(QDir(m_folder->path()).mkdir("target"));
        m_user->savePath = at("target/moved.nyx");
        QVERIFY(m_session->saveAs());
        const QString place = "target/moved_ConvertedImages/sky_DXT1";
        QVERIFY(writeFile(at("target/moved_ConvertedImages"), "in the way"));
        steps->undo();
        QVERIFY(told.contains("cannot be brought back"));
        steps->redo(); // held on
        QVERIFY(QFile::remove(at("target/moved_ConvertedImages")));
        steps->undo();
        QCOMPARE(told, QString());
        QCOMPARE(filesIn(in(place)), QStringList({"sky_DXT1.lut", "sky_DXT1.raw"}));
        QCOMPARE(readFile(in(place + "/sky_DXT1.raw")), QByteArray("pixels"));
        steps->undo();
        QVERIFY(m_session->save()); // with the image again
        steps->setIndex(2);
        QVERIFY(told.endsWith("Save the project first."));
        QCOMPARE(filesIn(in(place)).size(), 2);
        steps->undo();
        QVERIFY(m_session->save());
        steps->redo();
        QCOMPARE(filesIn(in(place)), QStringList());
        QVERIFY(writeFile(in(place + "/sky_DXT1.raw"), "another sky"));
        steps->undo();
        QVERIFY(told.contains("Another file is called"));
        steps->redo(); // a later step may show it
        QCOMPARE(told, QString());
        QCOMPARE(readFile(in(place + "/sky_DXT1.raw")), QByteArray("another sky"));
    }

    void saveAsThatFailsChangesNothing()
    {
        QVERIFY(m_session->openFile(m_file));
        change(m_session->project());
        const QByteArray before = m_session->project()->saveToBytes(nullptr);
        m_user->savePath = at("missing/x.nyx");
        QVERIFY(!m_session->saveAs());
        QVERIFY(writeFile(at("taken.nyx"), "kept"));
        QVERIFY(writeFile(at(".taken.nyx.lock"), foreignLock));
        m_user->savePath = at("taken.nyx"); // another copy has it open
        QVERIFY(!m_session->saveAs());
        QCOMPARE(readFile(at("taken.nyx")), QByteArray("kept"));
        QCOMPARE(m_user->errors, QStringList({saveText, saveText}));
        QCOMPARE(m_session->project()->saveToBytes(nullptr), before);
        QCOMPARE(m_session->path(), m_file);
        QVERIFY(m_session->isDirty());
        QVERIFY(m_session->save()); // still the owner of the old file
    }

    void oustedOwnerCannotOverwrite()
    {
        QVERIFY(m_session->openFile(m_file));
        change(m_session->project());
        const QByteArray before = readFile(m_file);
        QVERIFY(QFile::remove(at(".demo.nyx.lock")));
        QVERIFY(writeFile(at(".demo.nyx.lock"), foreignLock));
        QCOMPARE(m_session->autosave(), EAutosave::Failed);
        QVERIFY(!m_session->save());
        m_user->saveElsewhereAnswer = true;
        QVERIFY(!m_session->save()); // Save As cancelled
        QCOMPARE(m_user->asked, QStringList({"elsewhere", "elsewhere", "saveas"}));
        m_user->savePath = m_file; // not over the other's file in this way either
        QVERIFY(!m_session->save());
        QCOMPARE(readFile(m_file), before);
        QVERIFY(m_session->isDirty());
        m_user->savePath = at("mine.nyx");
        QVERIFY(m_session->save());
        QCOMPARE(m_session->path(), at("mine.nyx"));
        QCOMPARE(readFile(m_file), before);
        QVERIFY(m_session->close());
        QCOMPARE(readFile(at(".demo.nyx.lock")), foreignLock);
    }

    void fileChangedByOthers()
    {
        QVERIFY(m_session->openFile(m_file));
        QVERIFY(writeFile(m_file, readFile(m_file))); // touched only
        change(m_session->project());
        QVERIFY(m_session->save());
        QCOMPARE(m_user->asked, QStringList());

        const QByteArray theirs = document("theirs");
        m_user->savePath = at("mine.nyx");
        for (const auto chosen : {EOverwrite::Cancel, EOverwrite::Overwrite, EOverwrite::SaveAs}) {
            QVERIFY(writeFile(m_file, theirs));
            change(m_session->project(), "#445566");
            QCOMPARE(m_session->autosave(), EAutosave::Failed);
            QCOMPARE(readFile(m_file), theirs);
            m_user->asked.clear();
            m_user->overwriteAnswer = chosen;
            QCOMPARE(m_session->save(), chosen != EOverwrite::Cancel);
            QCOMPARE(m_user->asked.value(0), "overwrite");
            QCOMPARE(readFile(m_file) == theirs, chosen != EOverwrite::Overwrite);
            QCOMPARE(QFile::exists(at("mine.nyx")), chosen == EOverwrite::SaveAs);
            m_user->asked.clear();
            change(m_session->project(), "#778899");
            QCOMPARE(m_session->save(), chosen != EOverwrite::Cancel); // asked about once
            QCOMPARE(m_user->asked.isEmpty(), chosen != EOverwrite::Cancel);
        }
    }

    void autosaveKeepsWhatTheUserSaved()
    {
        QCOMPARE(m_session->autosave(), EAutosave::NoProject);
        const QByteArray original = readFile(m_file);
        const QString backup = at(".demo.nyx.saved");
        QVERIFY(m_session->openFile(m_file));
        QCOMPARE(m_session->autosave(), EAutosave::Unchanged);
        QVERIFY(!QFile::exists(backup));
        for (const char *colour : {"#010101", "#020202"}) {
            change(m_session->project(), QString::fromLatin1(colour));
            QCOMPARE(m_session->autosave(), EAutosave::Saved);
            QVERIFY(!m_session->isDirty());
            QVERIFY(readFile(m_file).contains(colour));
            QVERIFY(readFile(backup).startsWith(original));
        }
        QCOMPARE(m_session->autosave(), EAutosave::Unchanged);
        QCOMPARE(m_session->project()->undoStack()->count(), 2);
        change(m_session->project(), "#030303");
        QVERIFY(m_session->save());
        QVERIFY(!QFile::exists(backup));
        QCOMPARE(m_user->asked + m_user->errors, QStringList());
    }

    void autosaveComplainsOnce()
    {
        m_user->newOptions = newOptions(m_folder->path());
        m_session->newProject();
        QCOMPARE(m_session->autosave(), EAutosave::Unchanged);
        for (int i = 0; i < 3; ++i) {
            change(m_session->project(), QStringLiteral("#00000%1").arg(i));
            QCOMPARE(m_session->autosave(), EAutosave::Failed);
        }
        QCOMPARE(m_user->errors, QStringList(saveText));
        QCOMPARE(m_user->asked, QStringList("new")); // no Save As
        QCOMPARE(m_session->leftWork().size(), 0);   // somebody is at work on it
        m_user->closeAnswer = EClose::Discard;
        QVERIFY(m_session->close());
        QCOMPARE(filesIn(at("unsaved")), QStringList());
    }

    void autosaveWaits()
    {
        QVERIFY(m_session->openFile(m_file));
        const QByteArray original = readFile(m_file);
        CAutosaver autosaver(m_session.get());
        bool busy = false;
        autosaver.setBusyCheck([&] { return busy; });
        QUndoStack *stack = m_session->project()->undoStack();

        stack->beginMacro("Move");
        QCOMPARE(autosaver.tick(), CAutosaver::ETick::Postponed); // nothing in it yet
        change(m_session->project());
        QCOMPARE(autosaver.tick(), CAutosaver::ETick::Postponed);
        QCOMPARE(readFile(m_file), original);
        stack->endMacro();

        busy = true;
        QCOMPARE(autosaver.tick(), CAutosaver::ETick::Postponed);
        QCOMPARE(readFile(m_file), original);
        busy = false;
        autosaver.setEditorCheck([] { return true; });
        for (int i = 0; i < CAutosaver::MaxEditorWaits; ++i)
            QCOMPARE(autosaver.tick(), CAutosaver::ETick::Postponed);
        QCOMPARE(autosaver.tick(), CAutosaver::ETick::Done);
        QVERIFY(readFile(m_file) != original);
        autosaver.setEditorCheck({});
        stack->undo(); // a command that could be redone is no open macro
        QCOMPARE(autosaver.tick(), CAutosaver::ETick::Done);
        QVERIFY(readFile(m_file).contains("#000000"));
    }

    void crash_data()
    {
        QTest::addColumn<bool>("autosaved");
        QTest::addColumn<QByteArray>("replaced"); // the file, by others
        QTest::addColumn<bool>("goBack");
        QTest::addColumn<bool>("isAsked");
        QTest::addColumn<QString>("colour");
        const auto row = [](const char *name, bool autosaved, const QByteArray &replaced,
                            bool goBack, bool isAsked, const char *colour) {
            QTest::newRow(name) << autosaved << replaced << goBack << isAsked
                                << QString::fromLatin1(colour);
        };
        row("nothing was saved automatically", false, {}, true, false, "#000000");
        row("autosaved, left as it is", true, {}, false, true, "#112233");
        row("autosaved, back to what the user saved", true, {}, true, true, "#000000");
        row("autosaved, then replaced", true, document("theirs"), true, false, "#000000");
    }

    void crash()
    {
        QFETCH(bool, autosaved);
        QFETCH(QByteArray, replaced);
        QFETCH(bool, goBack);
        QFETCH(bool, isAsked);
        QFETCH(QString, colour);
        if (autosaved) {
            QVERIFY(m_session->openFile(m_file));
            change(m_session->project());
            QCOMPARE(m_session->autosave(), EAutosave::Saved);
            m_session->closeWithoutQuestions();
        }
        if (!replaced.isEmpty())
            QVERIFY(writeFile(m_file, replaced));
        const QByteArray left = readFile(m_file);
        QProcess dead;
        dead.start(QStringLiteral(PROJECT_PROCESS), {QStringLiteral("crash"), m_file});
        QVERIFY(dead.waitForFinished());
        const QStringList orphans = {"demo.nyx.xYzabc", "demo.nyx.AbCdEf", ".demo.nyx.saved.QwErTy",
                                     "demo.nyx.backup"};
        const QStringList others = {"demo.nyx.broken", "demo.nyx.AbCdE", "demo.nyx.AbCdE1",
                                    "other.nyx.AbCdEf"};
        for (const QString &each : orphans)
            QVERIFY(writeFile(m_folder->filePath(each), "<torso"));
        for (const QString &each : others)
            QVERIFY(writeFile(m_folder->filePath(each), left)); // copies made by hand

        m_user->openSavedAnswer = goBack;
        QVERIFY(m_session->openFile(m_file));
        QCOMPARE(m_user->asked, isAsked ? QStringList("autosaved") : QStringList());
        QCOMPARE(m_session->isDirty(), isAsked && goBack);
        QCOMPARE(m_session->autosave(), EAutosave::Unchanged); // not before the user has worked
        QCOMPARE(readFile(m_file), left);
        QCOMPARE(shownColour(), colour);
        const QStringList found = filesIn(m_folder->path());
        for (const QString &each : orphans)
            QVERIFY2(!found.contains(each), qPrintable(each));
        for (const QString &each : others)
            QVERIFY2(found.contains(each), qPrintable(each));
        QVERIFY(m_session->close() || (m_session->save() && m_session->close()));
        QVERIFY(!QFile::exists(at(".demo.nyx.saved")));
    }

    void neverSavedWorkSurvivesAKill()
    {
        QProcess dead;
        dead.start(QStringLiteral(PROJECT_PROCESS), {QStringLiteral("unsaved"), at("unsaved")});
        QVERIFY(dead.waitForFinished());
        for (const char *round : {"killed", "broken off"}) {
            const auto left = m_session->leftWork();
            QVERIFY2(left.size() == 1 && left[0].projectName == QLatin1String("fresh"), round);
            m_session->recover(left[0]);
            QVERIFY(m_session->isDirty() && m_session->path().isEmpty());
            QCOMPARE(shownColour(), "#112233");
            QCOMPARE(m_session->autosave(), EAutosave::Unchanged); // not before the user has worked
            QCOMPARE(m_session->leftWork().size(), 0);
            m_session->closeWithoutQuestions();
        }
        m_session->forget(m_session->leftWork().value(0)); // refused
        m_session->recover(m_session->leftWork().value(0));
        m_user->savePath = at("kept");
        QVERIFY(m_session->save());
        QVERIFY(readFile(at("kept.nyx")).contains("#112233"));
        QCOMPARE(filesIn(at("unsaved")), QStringList());
        QCOMPARE(m_user->errors, QStringList());
    }

    /// The example stays as it is, whatever is done to its copy, which takes the images along.
    void copyLeavesItsOriginalAlone()
    {
        const QByteArray example =
            "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" working_directory=\".\">"
            "<Kiv_Screen_T name=\"P\"><Kiv_Bitmap_T bfolder=\"demo_ConvertedImages/sky\" "
            "filename=\"images/sky.png\"/><Kiv_Bitmap_T bfolder=\"images\"/>"
            "</Kiv_Screen_T></Kiv_Project_T>";
        const QDir folder(m_folder->path());
        QVERIFY(folder.mkpath("shipped/demo_ConvertedImages/sky") &&
                folder.mkpath("shipped/images") && folder.mkdir("mine"));
        QVERIFY(writeFile(at("shipped/demo.nyx"), example));
        QVERIFY(writeFile(at("shipped/demo_ConvertedImages/sky/sky.raw"), "pixels"));
        QVERIFY(writeFile(at("shipped/images/sky.png"), "source"));
        m_session->openCopy(at("shipped/demo.nyx"));
        QVERIFY(m_session->project() && !m_session->isDirty());
        change(m_session->project());
        QCOMPARE(m_session->autosave(), EAutosave::Failed);
        m_user->savePath = at("mine/Küche.1");
        QVERIFY(m_session->saveAs());
        const QDir copy(at("unsaved/") + filesIn(at("unsaved")).value(0));
        QCOMPARE(filesIn(copy.path()), // what was copied before can be pasted now
                 QStringList({".project.nyx.lock", "demo_ConvertedImages", "images"}));
        QCOMPARE(readFile(at("shipped/demo.nyx")), example);
        QCOMPARE(filesIn(at("shipped")),
                 QStringList({"demo.nyx", "demo_ConvertedImages", "images"}));
        const CProjectModel *project = m_session->project();
        const auto place = [&](int row, const char *key) {
            return project->absoluteFolder(
                project->screen(0)->childItem(row)->propertyText(QString::fromLatin1(key)));
        };
        QVERIFY(place(0, "bfolder").startsWith(at("mine/Küche.1_ConvertedImages")));
        QCOMPARE(readFile(place(0, "bfolder") + "/sky.raw"), QByteArray("pixels"));
        QCOMPARE(readFile(place(0, "filename")), QByteArray("source"));
        QCOMPARE(readFile(place(1, "bfolder") + "/sky.png"), QByteArray("source"));
        m_session->openCopy(at("shipped/demo.nyx")); // looked at only
        QVERIFY(m_session->close());
        QCOMPARE(m_session->leftWork().size(), 0);
        m_session.reset();
        QCOMPARE(filesIn(at("unsaved")), QStringList());
    }

    void saveAsNames()
    {
        QVERIFY(m_session->openFile(m_file));
        const QStringList before = filesIn(m_folder->path());
        m_user->savePath = at(" .nyx");
        QVERIFY(!m_session->saveAs());
        QCOMPARE(filesIn(m_folder->path()), before);
        QVERIFY(m_user->reasons.last().contains(".nyx"));
        const std::tuple<const char *, const char *, const char *> cases[] = {
            {"Panel v1.2", "Panel v1.2.nyx", "Panel v1.2"},
            {"Größe.ä.NYX", "Größe.ä.NYX", "Größe.ä"},
            {"old.xml", "old.xml", "old"},
            {"old.xml", "old.xml", "old"}}; // over itself
        for (const auto &[chosen, file, name] : cases) {
            m_user->savePath = at(chosen);
            QVERIFY(m_session->saveAs());
            QCOMPARE(m_session->path(), at(file));
            QCOMPARE(m_session->title(), name + QStringLiteral(" for QX110"));
            QVERIFY(QFile::exists(m_session->path()));
        }
    }

    /// What was saved automatically into a file of before goes along to the new one.
    void saveAsLeavesTheOldFileAsItWasSaved()
    {
        const QByteArray original = readFile(m_file);
        QVERIFY(m_session->openFile(m_file));
        change(m_session->project());
        QCOMPARE(m_session->autosave(), EAutosave::Saved);
        m_user->savePath = at("new");
        QVERIFY(m_session->saveAs());
        QCOMPARE(readFile(m_file), original);
        QVERIFY(readFile(at("new.nyx")).contains("#112233"));
        QCOMPARE(filesIn(m_folder->path()), QStringList({".new.nyx.lock", "demo.nyx", "new.nyx"}));
    }

    void revert()
    {
        const QByteArray original = readFile(m_file);
        QVERIFY(m_session->openFile(m_file));
        QVERIFY(!m_session->canRevert() && !m_session->revert());
        change(m_session->project());
        QVERIFY(m_session->canRevert());
        QCOMPARE(m_session->autosave(), EAutosave::Saved);
        for (const bool answer : {false, true}) {
            QVERIFY(m_session->canRevert());
            m_user->revertAnswer = answer;
            QCOMPARE(m_session->revert(), answer);
            QCOMPARE(shownColour(), QString::fromLatin1(answer ? "#000000" : "#112233"));
            QCOMPARE(readFile(m_file) == original, answer);
            QVERIFY(!m_session->isDirty());
        }
        QCOMPARE(m_user->asked, QStringList({"revert", "revert"}));
        QVERIFY(!m_session->canRevert());
        QCOMPARE(m_session->project()->undoStack()->count(), 0);
    }

    void recentProjects()
    {
        CRecentProjects recent;
        QStringList paths;
        for (int i = 0; i < 12; ++i) {
            paths << at(qPrintable(QStringLiteral("p%1.nyx").arg(i)));
            QVERIFY(writeFile(paths.last(), "x"));
        }
        for (int i = 0; i < 10; ++i)
            recent.add(QFileInfo(paths[i]));
        QCOMPARE(recent.paths(), paths.mid(0, 10)); // new ones at the back
        recent.add(QFileInfo(paths[4]));
        QStringList expected = paths.mid(0, 10);
        expected.move(4, 0);
        QCOMPARE(recent.paths(), expected);
        recent.add(QFileInfo(paths[10])); // the front one goes, although it was the last used
        expected.removeFirst();
        expected << paths[10];
        QCOMPARE(recent.paths(), expected);

        recent.setPaths({at("none.nyx")}); // the first of two is overtaken
        recent.setPaths(QStringList{at("none.nyx")} + paths.mid(0, 10));
        recent.add(QFileInfo(paths[10])); // takes the place of one that is not known to be gone
        QTRY_VERIFY(!recent.paths().contains(at("none.nyx")));
        QCOMPARE(recent.paths(), paths.mid(1, 10));
        recent.setPaths(paths); // a list that is too long for the first addition
        QSignalSpy checked(&recent, &CRecentProjects::changed);
        recent.add(QFileInfo(paths[11]));
        QCOMPARE(recent.paths(), paths.mid(1, 10));
        QTRY_COMPARE(checked.count(), 2);
        QCOMPARE(recent.paths(), paths.mid(1, 10));
    }

private:
    /// Menus that the desktop shows are not blocked by a dialog.
    void behindTheQuestion()
    {
        const CProjectModel *project = m_session->project();
        const QString path = m_session->path();
        QVERIFY(!m_session->close() && !m_session->save() && !m_session->saveAs());
        QVERIFY(!m_session->revert() && !m_session->openFile(m_file));
        m_session->newProject();
        m_session->open(m_file);
        QVERIFY(m_session->project() == project && m_session->path() == path);
    }

    QStringList allFiles() const
    {
        QStringList files;
        QDirIterator each(m_folder->path(), QDir::Files | QDir::Hidden,
                          QDirIterator::Subdirectories);
        while (each.hasNext())
            files.append(each.next());
        files.sort();
        return files;
    }
    QString shownColour() const { return m_session->project()->screen(0)->propertyText("color"); }
    QString at(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    std::unique_ptr<CScriptedUser> m_user;
    std::unique_ptr<CRecentProjects> m_recent;
    std::unique_ptr<CProjectSession> m_session;
};

QTEST_GUILESS_MAIN(tst_ProjectSession)
#include "tst_projectsession.moc"
