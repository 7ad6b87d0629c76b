// A program that runs all day: examples are opened, drawn and closed again and again, and neither
// memory nor files are kept; and much is done while something else is still under way.
#include "CCommandChangeOptions.h"
#include "CCommandDeleteScreen.h"
#include "CDialogAnswers.h"
#include "CEmulatorAdapter.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CProjectExporter.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "ProgramFolder.h"

#include <QAction>
#include <QDirIterator>
#include <QPixmapCache>
#include <QRandomGenerator>
#include <QTest>
#include <QTimer>
#include <QUndoStack>

#include <malloc.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // its header is not everywhere
#endif

namespace {
qint64 bytesInUse()
{
#ifdef __SANITIZE_ADDRESS__
    return qint64(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
#endif
}

int openFiles()
{
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size();
}

int rounds()
{
    bool given = false;
    const int count = qEnvironmentVariableIntValue("KIV_ROUNDS", &given);
    return given ? count : 20;
}
} // namespace

class tst_LongLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// KIV_ROUNDS says how often; 20 unless given.
    void examplesOpenedAndClosed()
    {
        constexpr int warmUp = 15;              // rounds in which caches are filled
        constexpr qint64 allowedOfRound = 3072; // bytes; less than any page takes
        QPixmapCache::setCacheLimit(0);         // it is emptied by a timer, after half a minute
        const CProgramFolder folder;
        const QStringList examples = copiedExamples(folder);
        QCOMPARE(examples.size(), 3);
        CMainWindow window;
        window.setAutosaveInterval(0);
        window.show();
        qint64 bytes = 0;
        int files = 0;
        for (int round = 0; round < warmUp + rounds(); ++round) {
            if (round == warmUp) {
                bytes = bytesInUse();
                files = openFiles();
            }
            for (const QString &each : examples)
                openAndClose(&window, each);
        }
        qInfo("%d rounds later: %lld bytes more", rounds(), bytesInUse() - bytes);
        QVERIFY(bytesInUse() - bytes < allowedOfRound * rounds());
        QCOMPARE(openFiles(), files);
    }

    void randomOrder_data()
    {
        QTest::addColumn<uint>("seed");
        for (const uint seed : {1U, 2U, 3U})
            QTest::addRow("seed %u", seed) << seed;
    }

    /// Projects are opened, closed, undone and exported while frames, thumbnails and exports are
    /// under way. There is nothing to compare: it is the sanitizers, and the locks and answers that
    /// are counted at the end, that say whether something was used that had gone.
    void randomOrder()
    {
        QFETCH(uint, seed);
        const CProgramFolder folder;
        CDialogAnswers answers;
        const QStringList files = {writeProject(folder.path("a.nyx"), 2),
                                   writeProject(folder.path("b.nyx"), 5)};
        CMainWindow window;
        window.setAutosaveInterval(0);
        window.show();
        QRandomGenerator random(seed);
        for (int step = 0; step < 150; ++step) {
            act(&window, files, random.bounded(10), random);
            for (int turns = random.bounded(4); turns > 0; --turns)
                QCoreApplication::processEvents();
        }
        markClean(&window);
        QVERIFY(window.closeProject());
        QVERIFY(answers.allGiven());
        for (const char *name : {".a.nyx.lock", ".b.nyx.lock"})
            QVERIFY(!QFile::exists(folder.path(name)));
        QTRY_VERIFY(!CEmulatorAdapter::instance()->isBusy());
    }

private:
    static QString writeProject(const QString &path, int screens)
    {
        QByteArray xml = "<Kiv_Project_T project_name=\"p\" platform=\"QX110\" width=\"480\" "
                         "height=\"272\">";
        for (int i = 0; i < screens; ++i)
            xml += "<Kiv_Screen_T name=\"S" + QByteArray::number(i) +
                   "\"><Kiv_Button_T id=\"1\"/><Kiv_Gauge_T id=\"2\"/></Kiv_Screen_T>";
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(xml + "</Kiv_Project_T>");
        return path;
    }

    static void markClean(CMainWindow *window)
    {
        if (window->project())
            window->project()->undoStack()->setClean(); // no question at the close
    }

    static void act(CMainWindow *window, const QStringList &files, quint32 what,
                    QRandomGenerator &random)
    {
        CProjectModel *project = window->project();
        auto *screens = window->findChild<CScreen *>();
        const int row = project && project->screenCount() > 0
                            ? int(random.bounded(quint32(project->screenCount())))
                            : 0;
        if (!project || what == 0) {
            markClean(window);
            window->openProjectFile(files[int(random.bounded(2U))]);
        } else if (what == 1) {
            markClean(window);
            window->closeProject();
        } else if (what == 2 && project->screenCount() > 1) {
            project->undoStack()->push(new CCommandDeleteScreen(project->screen(row)));
        } else if (what == 3) {
            project->undoStack()->undo();
        } else if (what == 4) {
            project->undoStack()->redo();
        } else if (what == 5) {
            const QString platform = random.bounded(2U) ? "QX100" : "QX112";
            project->undoStack()->push(
                new CCommandChangeOptions(project, {{"platform", platform}}, window));
        } else if (what == 6) {
            window->newTab();
        } else if (what == 7) {
            screens->openScreen(project->screen(row));
        } else if (what == 8) {
            screens->updateRepaint();
        } else {
            exportWhile(window, random.bounded(2U) == 0);
        }
    }

    /// An export during whose waiting the project is closed, or a page goes.
    static void exportWhile(CMainWindow *window, bool closes)
    {
        QTimer::singleShot(0, window, [window, closes] {
            CProjectModel *project = window->project();
            if (!project)
                return;
            if (closes) {
                markClean(window);
                window->closeProject();
            } else if (project->screenCount() > 1) {
                project->undoStack()->push(new CCommandDeleteScreen(project->screen(0)));
            }
        });
        CProjectExporter exporter(CEmulatorAdapter::instance());
        exporter.collect(window->project(), CProjectExporter::EContent::DisplayListsAndFrames);
    }

    static QStringList copiedExamples(const CProgramFolder &folder)
    {
        const QString from = qEnvironmentVariable("KIV_SOURCE_DIR") + QStringLiteral("/examples");
        QStringList projects;
        QDirIterator files(from, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString to = folder.path("examples") + files.next().mid(from.size());
            QDir().mkpath(QFileInfo(to).path());
            QFile::copy(files.filePath(), to);
            if (to.endsWith(QLatin1String(".nyx")))
                projects.append(to);
        }
        return projects;
    }

    /// Every page is shown, and drawn by the emulator.
    static void openAndClose(CMainWindow *window, const QString &path)
    {
        QVERIFY(window->openProjectFile(path));
        auto *screens = window->findChild<CScreen *>();
        for (int row = 0; row < window->project()->screenCount(); ++row) {
            screens->openScreen(window->project()->screen(row));
            QCoreApplication::processEvents();
        }
        QTRY_VERIFY_WITH_TIMEOUT(!CEmulatorAdapter::instance()->isBusy(), 60'000);
        QVERIFY(window->closeProject());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
};

QTEST_MAIN(tst_LongLife)
#include "tst_longlife.moc"
