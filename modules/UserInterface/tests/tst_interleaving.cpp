// Projects are opened, closed, undone and exported while frames, thumbnails and exports are under
// way. There is nothing to compare: it is the sanitizers, and the locks and answers that are
// counted at the end, that say whether something was used that had gone.
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
#include <QRandomGenerator>
#include <QTest>
#include <QTimer>
#include <QUndoStack>

class tst_Interleaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomOrder_data()
    {
        QTest::addColumn<uint>("seed");
        for (const uint seed : {1U, 2U, 3U})
            QTest::addRow("seed %u", seed) << seed;
    }

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
};

QTEST_MAIN(tst_Interleaving)
#include "tst_interleaving.moc"
