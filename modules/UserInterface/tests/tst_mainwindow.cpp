#include "CActionCentre.h"
#include "CActionFinder.h"
#include "CBatchTab.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandChangeOptions.h"
#include "CDialogAnswers.h"
#include "CDialogQuestions.h"
#include "CEditorState.h"
#include "CEmulatorAdapter.h"
#include "CGridComboWidget.h"
#include "CItemModel.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CProjectModel.h"
#include "CProjectPictures.h"
#include "CRecentProjects.h"
#include "CRecoveryCopy.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenNavigator.h"
#include "CScreenView.h"
#include "CSettings.h"
#include "CSnapActions.h"
#include "CStartPage.h"
#include "CWidgetPropertiesView.h"
#include "CWindowActions.h"
#include "CWindowPlacement.h"
#include "CZoomComboWidget.h"
#include "ProgramFolder.h"
#include "PropertyKey.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

namespace {
const QByteArray foreignLock = "999999\nprogram\nanother-host.example\n\n\n";

QByteArray twoPages()
{
    return "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" width=\"480\" height=\"272\">"
           "<Kiv_Screen_T name=\"First\" color=\"#102030\"/>"
           "<Kiv_Screen_T name=\"Second\" color=\"#000000\"/></Kiv_Project_T>";
}

void click(QDialog *dialog, QMessageBox::StandardButton button)
{
    qobject_cast<QMessageBox *>(dialog)->button(button)->click();
}

/// Takes a file in a file dialog as if it had been typed.
void choose(QDialog *dialog, const QString &path)
{
    auto *files = qobject_cast<QFileDialog *>(dialog);
    QVERIFY(files);
    auto *name = files->findChild<QLineEdit *>("fileNameEdit");
    QVERIFY(QTest::qWaitForWindowActive(files));
    name->setFocus();
    name->setText(path);
    Q_EMIT name->textEdited(path); // takes the mark off the file that was proposed
    QMetaObject::invokeMethod(files, "accept");
}
} // namespace

class tst_MainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_folder = std::make_unique<CProgramFolder>();
        m_answers = std::make_unique<CDialogAnswers>();
        m_project = m_folder->path("demo.nyx");
        writeFile(m_project, twoPages());
        m_window = std::make_unique<CMainWindow>();
    }

    void cleanup()
    {
        m_window.reset();
        const bool allGiven = m_answers->allGiven();
        const QByteArray lock = readFile(m_folder->path(".demo.nyx.lock"));
        m_answers.reset();
        m_folder.reset();
        QVERIFY(allGiven);
        QVERIFY(lock.isEmpty() || lock == foreignLock);
    }

    /// Also the second keys of an action, which no menu shows: the system's standard keys have some
    /// that nobody expects.
    void keys()
    {
        const CMenuBar *bar = m_window->actions();
        QStringList all;
        for (int id = 0; id < CMenuBar::ActionCount; ++id) {
            for (const QKeySequence &each : bar->action(CMenuBar::EAction(id))->shortcuts())
                all.append(each.toString());
        }
        QCOMPARE(all.join(' '),
                 "Ctrl+N Ctrl+O Ctrl+W Ctrl+S Ctrl+Shift+S Ctrl+P Ctrl+Q "
                 "Ctrl+Shift+] Ctrl+Shift+[ Ctrl+] Ctrl+[ Ctrl+X Shift+Del Ctrl+C "
                 "Ctrl+Ins Ctrl+V Shift+Ins Ctrl+A Esc Ctrl+Shift+A Del Ctrl+L "
                 "Ctrl+Z Ctrl+Shift+Z Ctrl+Y Ctrl+G Ctrl+Shift+G Ctrl+0 Ctrl+1 "
                 "Ctrl+2 Ctrl+F F1 Ctrl+Shift+V Ctrl+D Ctrl+3 Ctrl+4 Ctrl+Shift+H F2");
    }

    /// Of all actions, whoever made them: no two have the same keys or the same id, and each can be
    /// given keys.
    void actionsAreKnown()
    {
        QVERIFY(m_window->openProjectFile(m_project));
        QStringList ids;
        QStringList keys;
        for (const auto &each : m_window->actionCentre()->actions()->all()) {
            QVERIFY2(!each.id.isEmpty() || each.menu.contains("Recent"), qPrintable(each.text));
            if (!each.id.isEmpty())
                ids << each.id;
            for (const QKeySequence &key : each.action->shortcuts())
                keys << key.toString();
        }
        QVERIFY(ids.size() > 70 && ids.contains("Undo") && ids.contains("alignLeft"));
        QCOMPARE(ids.removeDuplicates(), 0);
        QCOMPARE(keys.removeDuplicates(), 0);
    }

    /// Keys alone: the search finds and runs, selects, and gives the keys back to where they were;
    /// keys that are changed work, the old ones do not, and the next window has them too.
    void searchAndShortcuts()
    {
        writeFile(m_project, twoPages().replace("color=\"#000000\"/>",
                                                "color=\"#000000\"><Kiv_Widget_T "
                                                "type=\"Kiv_Text_T\" id=\"7\" name=\"Fill level\" "
                                                "x_coordinate=\"20\"/></Kiv_Screen_T>"));
        QVERIFY(m_window->openProjectFile(m_project));
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        const auto *screens = m_window->findChild<CScreen *>();
        auto *filter = m_window->findChild<QLineEdit *>("widgetFilter");
        auto *finder = m_window->actionCentre()->finder();
        auto *list = finder->findChild<QListView *>();
        const auto find = [&](const QString &text) {
            QTest::keyClick(m_window.get(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
            QVERIFY(finder->isVisible());
            QTest::keyClicks(QApplication::focusWidget(), text);
        };
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        filter->setFocus();
        find("light");
        press(Qt::Key_Escape);
        QVERIFY(!finder->isVisible() && filter->hasFocus() && filter->text().isEmpty());
        find("undo");
        QCOMPARE(list->currentIndex().data(CFoundList::LackRole).toString(),
                 QString("There is nothing to undo"));
        press(Qt::Key_Return); // cannot be
        QVERIFY(finder->isVisible());
        press(Qt::Key_Escape);
        find("new pa");
        press(Qt::Key_Return);
        QVERIFY(!finder->isVisible());
        QCOMPARE(m_window->project()->screenCount(), 3);
        find("");
        QCOMPARE(list->currentIndex().data().toString(), QString("New Page")); // used last
        press(Qt::Key_Escape);
        find("fill");
        press(Qt::Key_Return);
        QCOMPARE(screens->currentScreen(), m_window->project()->screen(1));
        QCOMPARE(screens->selectedItems().value(0), m_window->project()->screen(1)->childItem(0));
        QVERIFY(screens->currentView()->hasFocus());

        m_answers->expect([](QDialog *dialog) {
            QVERIFY(QTest::qWaitForWindowActive(dialog));
            QTest::keyClicks(dialog->findChild<QLineEdit *>("shortcutSearch"), "duplicate");
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
            QTest::keyClick(dialog->focusWidget(), Qt::Key_F9);
            dialog->accept();
        });
        find("keyboard sh");
        press(Qt::Key_Return);
        m_window->activateWindow(); // there is no window manager
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        const CItemModel *page = screens->currentScreen();
        screens->currentView()->setFocus();
        QTest::keyClick(screens->currentView(), Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(page->rowCount(), 1); // no longer
        QTest::keyClick(screens->currentView(), Qt::Key_F9);
        QCOMPARE(page->rowCount(), 2);
        m_window->closeUnattended();
        m_window = std::make_unique<CMainWindow>();
        QCOMPARE(m_window->actions()->action(CMenuBar::Duplicate)->shortcut(), QKeySequence("F9"));
        QCOMPARE(m_window->actionCentre()->finder()->lastUsed().value(1), QString("NewPage"));
    }

    /// Pages, zoom, what was in the middle and the selection come back with the project, in the
    /// next window too; what has changed meanwhile is passed over.
    void sessionComesBack()
    {
        const QByteArray item = "><Kiv_Widget_T type=\"Kiv_Text_T\" id=\"7\" name=\"Text\" "
                                "x_coordinate=\"20\"/><Widget_Group_T name=\"Group\">"
                                "<Kiv_Widget_T type=\"Kiv_Text_T\" id=\"9\" name=\"In\"/>"
                                "</Widget_Group_T></Kiv_Screen_T>";
        writeFile(m_project, twoPages().replace("\"#000000\"/>", "\"#000000\"" + item));
        QVERIFY(m_window->openProjectFile(m_project));
        const CScreen *screens = m_window->findChild<CScreen *>();
        const auto show = [&] {
            m_window->show();
            QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
            screens = m_window->findChild<CScreen *>();
        };
        const auto middle = [&] {
            const CScreenView *view = screens->currentView();
            return view->mapToScene(view->viewport()->rect().center());
        };
        show();
        QCOMPARE(screens->count(), 1); // nothing is known yet: the first page
        m_window->findChild<CScreen *>()->openScreen(m_window->project()->screen(1));
        m_window->actions()->zoomWidget()->setZoom(800, CZoomComboWidget::FreeValue);
        screens->currentView()->centerOn(300, 200);
        QTRY_VERIFY(QLineF(middle(), {300, 200}).length() < 1);
        screens->currentView()->setFocus();
        m_window->selectAll();
        QCOMPARE(screens->selectedItems().size(), 2); // one is a group
        QVERIFY(m_window->closeProject());
        m_window->actions()->zoomWidget()->setZoom(100, CZoomComboWidget::FreeValue);
        m_window->closeUnattended();
        m_window = std::make_unique<CMainWindow>(m_project); // not shown yet
        show();
        QCOMPARE(screens->count(), 2);
        QCOMPARE(screens->currentScreen(), m_window->project()->screen(1));
        QCOMPARE(screens->selectedItems().size(), 2); // one is a group
        QCOMPARE(m_window->actions()->zoomWidget()->zoomPercent(), 800);
        QTRY_VERIFY(QLineF(middle(), {300, 200}).length() < 1);
        QVERIFY(m_window->closeProject());
        writeFile(m_project, twoPages().replace("Second", "Other"));
        QVERIFY(m_window->openProjectFile(m_project));
        QCOMPARE(screens->count(), 1);
        QVERIFY(screens->selectedItems().isEmpty());
    }

    void zoomMarks()
    {
        const CMenuBar *bar = m_window->actions();
        const auto marks = [bar] {
            QString text;
            for (const auto id : {CMenuBar::ZoomReset, CMenuBar::FitToPage, CMenuBar::FitToWidth})
                text += QLatin1Char(bar->action(id)->isChecked() ? '1' : '0');
            return text;
        };
        for (int times = 0; times < 2; ++times) { // the second one unchecks itself, the mode stays
            bar->action(CMenuBar::FitToPage)->trigger();
            QCOMPARE(marks(), "010");
        }
        bar->zoomWidget()->setZoom(150, CZoomComboWidget::FreeValue);
        QCOMPARE(marks(), "000");
        bar->action(CMenuBar::ZoomReset)->trigger();
        QCOMPARE(bar->zoomWidget()->zoomPercent(), 100);
        QCOMPARE(marks(), "100");
    }

    void recentProjects()
    {
        const CMenuBar *bar = m_window->actions();
        QCOMPARE(CMenuBar::shortened("abcdefghijklmnopqrstuvwxyz012.nyx"),
                 "abcdefghijklmn...tuvwxyz012.nyx");
        const QStringList paths = {m_folder->file("salt & pepper.nyx"), m_folder->file("b.nyx")};
        for (const QString &each : paths)
            m_window->recentProjects()->add(QFileInfo(each));
        const auto actions = bar->menu(CMenuBar::RecentMenu)->actions();
        QCOMPARE(actions.size(), 2);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(actions[i]->whatsThis(), paths[i]);
        QCOMPARE(actions[0]->text(), "salt && pepper.nyx");
    }

    void startPageLeadsToAProject()
    {
        auto *page = m_window->findChild<CStartPage *>();
        QVERIFY(page && !page->isHidden());
        m_window->recentProjects()->add(QFileInfo(m_project));
        auto *label = page->findChild<QLabel *>("startPageText");
        QVERIFY(label->text().contains(QStringLiteral("project:") + m_project));
        QSignalSpy loaded(m_window.get(), &CMainWindow::projectLoaded);
        Q_EMIT label->linkActivated(QStringLiteral("project:") + m_project);
        QCOMPARE(loaded.count(), 1);
        QVERIFY(page->isHidden());
        QVERIFY(m_window->closeProject());
        QTRY_VERIFY(!page->isHidden());
        m_answers->expect([](QDialog *dialog) { dialog->reject(); });
        page->findChild<QPushButton *>("startPageOpen")->click();
    }

    /// Made by the emulator, kept when a project is closed, seen on the start page; what lies there
    /// in its place is passed over.
    void picturesOfRecentProjects()
    {
        QVERIFY(m_window->openProjectFile(m_project));
        m_window->show();
        const auto *navigator = m_window->findChild<CScreenNavigator *>();
        QTRY_VERIFY(!navigator->getScreenPixmaps().value(0).second.isNull());
        QVERIFY(m_window->closeProject());
        QTRY_COMPARE(CProjectPictures::read(m_project).size(), QSize(400, 226));
        QCOMPARE(CProjectPictures::read(m_project).pixel(200, 100), qRgb(16, 32, 48)); // the page's
        const auto *label = m_window->findChild<QLabel *>("startPageText");
        const auto shown = [label] { return label->text().count("<img"); };
        QTRY_COMPARE(shown(), 1);
        QString withPicture;
        QTRY_VERIFY((withPicture = label->text()).size() > 1000);
        const QString file = CProjectPictures::pathOf(m_project);
        QVERIFY(QFile::remove(file));
        writeFile(file, "\x89PNG\r\n\x1a\n no picture");
        m_window->findChild<CStartPage *>()->readPictures();
        QTRY_VERIFY(label->text() != withPicture); // an empty one in its place
        QCOMPARE(shown(), 1);
        QVERIFY(QFile::remove(file) && QDir().mkpath(file));
        CProjectPictures pictures;
        QSignalSpy kept(&pictures, &CProjectPictures::kept);
        pictures.keep(m_project, QPixmap(10, 10)); // cannot be
        QTRY_COMPARE(kept.count(), 1);
        for (int i = 0; i < CProjectPictures::MaxFiles + 5; ++i)
            pictures.keep(m_folder->path("x") + QString::number(i), QPixmap(4, 4));
        QTRY_COMPARE(kept.count(), CProjectPictures::MaxFiles + 6);
        QVERIFY(QFileInfo(file).dir().entryList(QDir::Files).size() <= CProjectPictures::MaxFiles);
    }

    void openDialogAndUndoGroup()
    {
        m_answers->expect([this](QDialog *dialog) {
            const auto *files = qobject_cast<QFileDialog *>(dialog);
            QVERIFY(files);
            choose(dialog, m_project);
        });
        m_window->openProject();
        QCOMPARE(m_window->projectPath(), m_project);
        QCOMPARE(m_window->windowTitle(), "demo for QX110");
        QUndoStack *stack = m_window->project()->undoStack();
        QCOMPARE(m_window->undoGroup()->activeStack(), stack);
        QVERIFY(m_window->closeProject());
        QCOMPARE(m_window->windowTitle(), QString());
    }

    /// What is still being read when the window closes is not opened behind it.
    void longProject()
    {
        QAction recent;
        recent.setWhatsThis(m_folder->path("long.nyx"));
        writeFile(recent.whatsThis(), twoPages() + "<!--" + QByteArray(1 << 20, ' ') + "-->");
        m_window->openRecent(&recent);
        QVERIFY(!m_window->project());
        QVERIFY(m_window->close());
        QThreadPool::globalInstance()->waitForDone();
        QTest::qWait(0);
        QVERIFY(!m_window->project());
        m_window->openRecent(&recent);
        QCOMPARE(m_window->cursor().shape(), Qt::BusyCursor);
        const auto *notice = m_window->findChild<QLabel *>("readingNotice");
        QVERIFY(!notice->isVisible()); // it may be over before it is seen
        QDialog dialog(m_window.get());
        dialog.setModal(true);
        m_answers->expect([&](QDialog *) { // for which it waits
            m_window->show();
            QTRY_VERIFY(notice->isVisible());
            QCOMPARE(notice->text(), "Reading long.nyx...");
        });
        dialog.exec();
        QTRY_COMPARE(m_window->projectPath(), recent.whatsThis());
        QCOMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
        QVERIFY(!notice->isVisible());
    }

    void closeQuestion()
    {
        QVERIFY(m_window->openProjectFile(m_project));
        m_window->project()->undoStack()->push(new QUndoCommand("Edit"));
        m_answers->expect([](QDialog *dialog) {
            auto *box = qobject_cast<QMessageBox *>(dialog);
            QVERIFY(box);
            const auto *text = box->findChild<QLabel *>("qt_msgbox_label");
            QVERIFY(text->wordWrap() || text->width() >= text->sizeHint().width()); // not cut off
            click(dialog, QMessageBox::Cancel);
        });
        QVERIFY(!m_window->close());
        QVERIFY(m_window->project());
        m_answers->expect([](QDialog *dialog) { click(dialog, QMessageBox::Save); });
        QVERIFY(m_window->close());
        QVERIFY(readFile(m_project).contains("working_directory=\".\""));
    }

    void lockQuestion()
    {
        writeFile(m_folder->path(".demo.nyx.lock"), foreignLock);
        for (const auto button : {QMessageBox::NoButton, QMessageBox::Abort, QMessageBox::Yes}) {
            m_answers->expect([button](QDialog *dialog) {
                auto *box = qobject_cast<QMessageBox *>(dialog);
                QCOMPARE(box->defaultButton(), box->button(QMessageBox::Abort));
                if (button != QMessageBox::NoButton)
                    click(dialog, button);
            });
            QCOMPARE(m_window->openProjectFile(m_project), button == QMessageBox::Yes);
        }
    }

    void commandLine()
    {
        m_window.reset();
        m_window = std::make_unique<CMainWindow>(m_folder->path("missing.nyx"));
        QVERIFY(!m_window->project());
        auto *errors = m_window->findChild<QErrorMessage *>();
        QVERIFY2(!errors->isVisible(), qPrintable(errors->findChild<QTextEdit *>()->toPlainText()));
        m_window.reset();
        const QString left = m_folder->path("data/kiv-panel-composer/unsaved/") +
                             QUuid::createUuid().toString(QUuid::WithoutBraces);
        for (const bool isWorkLeft : {false, true}) { // the start page is not there to tell of it
            if (isWorkLeft && QDir().mkpath(left))
                writeFile(left + QStringLiteral("/project.nyx"), twoPages());
            m_window = std::make_unique<CMainWindow>(m_project);
            QCOMPARE(m_window->projectPath(), m_project);
            QCOMPARE(outputText(*m_window).contains("Unsaved work"), isWorkLeft);
            m_window.reset();
        }
        writeFile(m_folder->path("broken.nyx"), "<broken");
        m_window = std::make_unique<CMainWindow>(m_folder->path("broken.nyx"));
        QVERIFY(!m_window->project());
        errors = m_window->findChild<QErrorMessage *>();
        QVERIFY(errors->isVisible());
        QCOMPARE(errors->findChild<QTextEdit *>()->toPlainText(),
                 "The specified file is not a valid project file.");
        QVERIFY(errors->findChild<QLabel *>("errorReason")->text().contains("broken.nyx"));
        m_window->show(); // the box comes after it, to lie above it
        QVERIFY(!errors->isVisible());
        QTRY_VERIFY(errors->isVisible());
    }

    void settingsAreKept()
    {
        m_window->lightStyle();
        m_window->toggleStatusBar();
        m_window->actions()->action(CMenuBar::SnapToGrid)->trigger();
        m_window->snapActions()->action(ESnapKind::Page)->trigger();
        m_window->loadLanguage("de");
        m_window->toggleLibraryWindow();
        m_window->setAutosaveInterval(33);
        m_window->savingPathChanged("/somewhere");
        m_window->actions()->zoomWidget()->setZoom(250, CZoomComboWidget::FreeValue);
        m_window->actions()->gridWidget()->setGrid(false, 8, Qt::blue, Qt::DotLine);
        m_window->recentProjects()->add(QFileInfo(m_project));
        m_window->recentProjects()->add(QFileInfo(m_folder->file("gone.nyx")));
        QDir(m_folder->path()).mkdir("work");
        writeFile(m_folder->path("work/other.nyx"), twoPages());
        const QString other = m_folder->path("work/other.nyx");
        QVERIFY(m_window->openProjectFile(other));
        QVERIFY(m_window->close());
        QFile::remove(m_folder->path("gone.nyx"));
        m_window.reset();
        CEditorState::instance()->setSnapping(false, {});

        m_window = std::make_unique<CMainWindow>();
        QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(192, 192, 192));
        QVERIFY(!m_window->statusBar()->isHidden());
        QVERIFY(m_window->findChild<QDockWidget *>("widgetSelector")->isHidden());
        QCOMPARE(m_window->autosaveInterval(), 33);
        QCOMPARE(m_window->actions()->zoomWidget()->zoomPercent(), 250);
        QVERIFY(!m_window->actions()->gridWidget()->isGridShown());
        QTRY_COMPARE(m_window->recentProjects()->paths(), QStringList({m_project, other}));
        const QAction *snap = m_window->actions()->action(CMenuBar::SnapToGrid);
        QVERIFY(snap->isChecked() && snap->text().contains("Raster"));
        QCOMPARE(CEditorState::instance()->activeSnapKinds(), // those on from the first start
                 ESnapKind::Items | ESnapKind::Guides | ESnapKind::Gaps);
        QVERIFY(!m_window->actions()->action(CMenuBar::Updates)->isEnabled()); // no address
        m_answers->expect([](QDialog *dialog) {
            const QFileInfo folder(qobject_cast<QFileDialog *>(dialog)->directory().path());
            QCOMPARE(folder.fileName(), "work");
        });
        m_window->openProject();
        QVERIFY(m_window->close());
        const SSettings kept = CSettings(m_folder->path()).read();
        QCOMPARE(kept.latestProjects,
                 QStringList({m_project, other})); // the other is not written back
        QCOMPARE(kept.savingFolderPath, "/somewhere");
    }

    /// A mark that nobody holds is that of a start which ended without its window; another copy
    /// that is just starting holds its own.
    void startAfterAFailedOne()
    {
        const QByteArray settings = "[General]\ntheme=light\n";
        for (const bool isFailed : {false, true}) {
            writeFile(m_folder->path("config.ini"), settings); // m_window has not been shown yet
            if (isFailed)
                writeFile(m_folder->path("config.ini.starting-1"), "");
            CMainWindow window;
            QCOMPARE(window.actions()->action(CMenuBar::Light)->isChecked(), !isFailed);
            QCOMPARE(readFile(m_folder->path("config.ini.broken")),
                     isFailed ? settings : QByteArray());
            QCOMPARE(outputText(window).contains(QStringLiteral("config.ini.broken")), isFailed);
        }
        const auto marks = [this] { // of this start
            return QDir(m_folder->path()).entryList({QStringLiteral("config.ini.starting-*")});
        };
        m_window = std::make_unique<CMainWindow>();
        QCOMPARE(marks().size(), 1);
        QVERIFY(!marks().contains(QStringLiteral("config.ini.starting-1")));
        m_window->show();
        QTRY_COMPARE(marks(), QStringList());
    }

    void windowTogglesFollowTheDocks()
    {
        auto *dock = m_window->findChild<QDockWidget *>("outputWindow");
        QAction *action = m_window->actions()->action(CMenuBar::OutputWindow);
        m_window->show(); // docks tell only what is seen
        for (const bool shown : {false, true}) {
            action->trigger();
            QVERIFY(dock->isHidden() != shown && action->isChecked() == shown);
        }
        dock->close(); // by its button
        QVERIFY(!action->isChecked());
    }

    /// The batch edit shares the property panel's tab, also in a layout from before there was one;
    /// it comes forward for several items, and a tab that the user has chosen stays.
    void batchEditComesForward()
    {
        auto *batch = m_window->findChild<QDockWidget *>("batchEdit");
        auto *properties = m_window->findChild<QDockWidget *>("widgetProperties");
        batch->setObjectName("notYet");
        m_window->close(); // which keeps the layout
        m_window = std::make_unique<CMainWindow>();
        batch = m_window->findChild<QDockWidget *>("batchEdit");
        properties = m_window->findChild<QDockWidget *>("widgetProperties");
        QCOMPARE(m_window->tabifiedDockWidgets(batch), QList<QDockWidget *>{properties});
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        CBatchTab tab(batch, properties);
        const auto isFront = [](const QDockWidget *dock) { return dock->geometry().right() > 0; };
        const auto follow = [&tab](int count) {
            tab.follow(QList<CItemModel *>::fromVector(QVector<CItemModel *>(count)));
        };
        batch->raise(); // what is in front is told when it changes
        properties->raise();
        for (const int count : {2, 1, 3}) {
            follow(count);
            QTRY_COMPARE(isFront(batch), count > 1);
        }
        follow(0); // in one event, as when another project is opened
        follow(2);
        QCoreApplication::processEvents();
        QVERIFY(isFront(batch));
        follow(1);
        QTRY_VERIFY(isFront(properties) && !isFront(batch));
        follow(2);
        QTRY_VERIFY(isFront(batch));
        properties->raise(); // by its tab
        for (const int count : {0, 1}) {
            follow(count);
            QCoreApplication::processEvents();
            QVERIFY(isFront(properties) && !isFront(batch));
        }
    }

    /// For the chip that was just chosen; also of pages that were never shown, and by the name that
    /// leads to the item.
    void exportsTellWhatIsNotAsDesigned()
    {
        writeFile(m_project,
                  twoPages()
                      .replace("color=\"#000000\"/>", "><Kiv_Bitmap_T id=\"7\"/></Kiv_Screen_T>")
                      .replace("color=\"#102030\"/>",
                               "><Kiv_Text_T id=\"8\" text=\"5 \u20AC\" width=\"900\"/>"
                               "</Kiv_Screen_T>"));
        QVERIFY(m_window->openProjectFile(m_project));
        CProjectModel *project = m_window->project();
        auto *panel = m_window->findChild<CWidgetPropertiesView *>();
        panel->showItems({project->screen(0)->childItem(0)});
        project->undoStack()->push(
            new CCommandChangeOptions(project, {{"platform", "QX100"}}, m_window.get()));
        const auto rows = panel->findChild<QTreeWidget *>()->findItems("width", Qt::MatchExactly);
        QCOMPARE(rows.value(0)->toolTip(1), "1 to 512"); // of the chip that was just chosen
        m_window->show();
        QTRY_VERIFY(!m_window->findChild<CScreen *>()->currentErrors().isEmpty());
        auto *dock = m_window->findChild<QDockWidget *>("outputWindow");
        const auto *output = dock->findChild<QTextEdit *>();
        for (const bool isWhole : {false, true}) {
            dock->close();
            m_answers->expect([&](QDialog *dialog) { choose(dialog, m_folder->path("out")); });
            m_window->actions()
                ->action(isWhole ? CMenuBar::ProjectToDL : CMenuBar::PageToBinary)
                ->trigger();
            const QString told = output->toPlainText();
            QVERIFY2(told.contains("Kiv_Text_T 8 \"Text\": width 900 is over the maximum of QX100"),
                     qPrintable(told));
            QCOMPARE(told.contains("Kiv_Bitmap_T 7 \"Bitmap\": no image is set"), isWhole);
            QVERIFY(!dock->isHidden());
        }
    }

    void exportsThePackage()
    {
        QVERIFY(m_window->openProjectFile(m_project));
        m_answers->expect([this](QDialog *dialog) { // a folder that is not there yet
            choose(dialog, m_folder->path("package"));
        });
        m_window->actions()->action(CMenuBar::ExportPackage)->trigger();
        const QDir folder(m_folder->path("package"));
        QCOMPARE(folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList({"manifest.json", "panel.bin", "panel.c", "panel.h"}));
        QVERIFY(!m_window->findChild<QErrorMessage *>()->isVisible());
    }

    /// No page is left out because the canvas or a thumbnail was being drawn when its turn came.
    void exportWhileTheCanvasIsDrawn()
    {
        QVERIFY(m_window->openProjectFile(m_project));
        CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
        const auto drawing =
            connect(adapter, &CEmulatorAdapter::emulatorBackgroundFrameCallback, this,
                    [&] { adapter->renderForeground(m_window->project()->screen(0), &m_project); });
        adapter->renderForeground(m_window->project()->screen(0), &m_project);
        m_answers->expect([this](QDialog *dialog) { choose(dialog, m_folder->path("out")); });
        m_window->exportProjectDL();
        disconnect(drawing);
        const QByteArray lists = readFile(m_folder->path("out.dl"));
        QVERIFY(lists.startsWith("===First===\n") && lists.contains("\n\n===Second===\n"));
        QVERIFY(!m_window->findChild<QErrorMessage *>()->isVisible());
    }

    void unattendedClose()
    {
        m_window->lightStyle();
        m_window->closeUnattended(); // nothing is open: the settings are kept all the same
        QCOMPARE(CSettings(m_folder->path()).read().theme, "light");
        QVERIFY(m_window->openProjectFile(m_project));
        m_window->setAutosaveInterval(10);
        m_window->project()->screen(0)->setProperty("color", "#0a0b0c");
        m_window->project()->undoStack()->push(new QUndoCommand("Edit"));
        m_window->closeUnattended();
        QVERIFY(!m_window->project());
        QVERIFY(readFile(m_project).contains("#0a0b0c"));
        QVERIFY(readFile(m_folder->path(".demo.nyx.saved")).startsWith(twoPages()));
        // Without automatic saving the file stays as it is, and the changes are offered.
        QVERIFY(QFile::remove(m_folder->path(".demo.nyx.saved")));
        const QByteArray before = readFile(m_project);
        QVERIFY(m_window->openProjectFile(m_project));
        m_window->setAutosaveInterval(0);
        m_window->closeUnattended();
        const QString root = m_folder->path("data/kiv-panel-composer/unsaved");
        QVERIFY(CRecoveryCopy::left(root).isEmpty()); // there were none
        QVERIFY(m_window->openProjectFile(m_project));
        m_window->project()->undoStack()->push(new CCommandChangeItemProperty(
            m_window->project()->screen(0), PropertyKey::Name, "Later", "First"));
        m_window->closeUnattended();
        QCOMPARE(readFile(m_project), before);
        const auto left = CRecoveryCopy::left(root);
        QCOMPARE(left.size(), 1);
        QVERIFY(readFile(left.first().file).contains("Later"));
    }

    /// Told once, without taking the keys from what is being typed, and with the way out.
    void autosaveWithoutAFile()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        auto *label = m_window->findChild<QLabel *>("startPageText");
        const QString example = m_folder->path("shipped/demo.nyx");
        QVERIFY(QDir().mkdir(m_folder->path("shipped")) && QFile::rename(m_project, example));
        Q_EMIT label->linkActivated(QStringLiteral("example:") + example);
        const QAction *save = m_window->actions()->action(CMenuBar::SaveProject);
        const QString nothingToSave = save->toolTip();
        m_window->project()->undoStack()->push(new QUndoCommand("Edit"));
        QVERIFY(save->toolTip() != nothingToSave);
        auto *typed = m_window->findChild<QLineEdit *>("widgetFilter");
        typed->setFocus();
        auto *box = m_window->findChild<QErrorMessage *>();
        for (const bool isFirst : {true, false}) {
            m_window->autosave();
            QCOMPARE(box->isVisible(), isFirst);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_A);
            QVERIFY(QApplication::activeWindow() == m_window.get() && typed->hasFocus());
            if (isFirst)
                box->accept();
        }
        QCOMPARE(typed->text(), "aa");
        m_answers->expect([this](QDialog *dialog) { choose(dialog, m_folder->path("mine.1")); });
        box->findChild<QPushButton *>("errorSaveAs")->click();
        QCOMPARE(m_window->projectPath(), m_folder->path("mine.1.nyx"));
        QCOMPARE(save->toolTip(), nothingToSave);
        QVERIFY(m_window->statusBar()->currentMessage().contains("mine.1.nyx"));
        QCOMPARE(readFile(example), twoPages());
    }

    void foreignTexts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        const QString html = QStringLiteral("<img src=/nowhere> & <b>co</b>");
        QTest::newRow("HTML") << html << html;
        QTest::newRow("turned round, unseen")
            << QStringLiteral("a\u202eb\u0085c") << QStringLiteral("a[U+202E]b[U+0085]c");
        QTest::newRow("without a width, but for what forms a letter")
            << QStringLiteral("a\u200bb\u00ad\u200dc\u06cc\u200c\u06cc")
            << QStringLiteral("a[U+200B]b[U+00AD][U+200D]c\u06cc\u200c\u06cc");
        const QString star = QStringLiteral("a[*]b[*][*]"); // the star of changed documents
        QTest::newRow("the place of a star") << star << star;
        QTest::newRow("long") << QString(100000, 'x') << QString(250, 'x') + QChar(0x2026);
    }

    /// Names and values of a project are plain text wherever they are shown.
    void foreignTexts()
    {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        const QByteArray written = name.toHtmlEscaped().toUtf8();
        writeFile(m_project, twoPages().replace("First", written).replace("demo", written));
        QVERIFY(m_window->openProjectFile(m_project));
        CScreenModel *page = m_window->project()->screen(0);
        QCOMPARE(page->name(), name);
        m_window->winId(); // has the title as it is shown
        QVERIFY(m_window->windowHandle()->title().startsWith(shown));
        page->project()->undoStack()->push(
            new CCommandChangeItemProperty(page, PropertyKey::Name, name, QString()));
        QVERIFY(m_window->undoGroup()->undoText().contains(shown));

        auto *tabs = m_window->findChild<CScreen *>()->tabBar();
        QCOMPARE(tabs->tabText(0), QString(shown).replace("&", "&&"));
        auto *navigator = m_window->findChild<CScreenNavigator *>();
        QCOMPARE(navigator->item(0)->text(), shown);
        auto *rows = m_window->findChild<CWidgetPropertiesView *>()->findChild<QTreeWidget *>();
        QTRY_VERIFY(rows->topLevelItemCount() > 0);
        rows->topLevelItem(0)->setToolTip(0, name);
        const std::pair<QWidget *, QPoint> places[] = {
            {tabs, tabs->tabRect(0).center()},
            {navigator->viewport(), navigator->visualItemRect(navigator->item(0)).center()},
            {rows->viewport(), rows->visualItemRect(rows->topLevelItem(0)).topLeft()},
        };
        for (const auto &[place, position] : places) {
            QToolTip::hideText();
            QHelpEvent hover(QEvent::ToolTip, position, place->mapToGlobal(position));
            QCoreApplication::sendEvent(place, &hover);
            const QString tip = QToolTip::text();
            const QString seen =
                Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
            QVERIFY2(seen.startsWith(shown.left(250)), qPrintable(tip.left(99)));
            QVERIFY(seen.size() <= 1001);
        }
        CDialogQuestions questions(m_window.get(), nullptr, nullptr);
        m_answers->expect([&](QDialog *dialog) {
            const auto *box = qobject_cast<QMessageBox *>(dialog);
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QVERIFY(box->text().contains(shown));
        });
        QVERIFY(!questions.forgetLeftWork(name));
        QVERIFY(tabs->tabRect(0).width() < 400); // others have room beside it
        m_answers->expect([&](QDialog *dialog) {
            const auto *pages = dialog->findChild<QListWidget *>("screens");
            QCOMPARE(pages->item(0)->text(), shown);
            QVERIFY(pages->visualItemRect(pages->item(0)).width() < 300);
        });
        m_window->printScreen();
    }

    /// Each time, with its reason; there is nothing to silence it with.
    void failedSavesAreShown()
    {
        QVERIFY(m_window->openProjectFile(m_project));
        QVERIFY(QFile::remove(m_project) && QDir().mkdir(m_project));
        auto *box = m_window->findChild<QErrorMessage *>();
        for (int i = 0; i < 2; ++i) {
            QVERIFY(!m_window->saveProject());
            QVERIFY(!m_window->project()->undoStack()->isClean());
            QVERIFY(box->isVisible() && !box->findChild<QCheckBox *>()->isVisible());
            QVERIFY(box->isModal()); // nothing goes on behind it
            QVERIFY(!box->findChild<QLabel *>("errorReason")->text().isEmpty());
            box->accept();
            QVERIFY(!box->isVisible());
        }
    }

private:
    static QString outputText(const CMainWindow &window)
    {
        return window.findChild<QDockWidget *>("outputWindow")
            ->findChild<QTextEdit *>()
            ->toPlainText();
    }

    std::unique_ptr<CProgramFolder> m_folder;
    std::unique_ptr<CDialogAnswers> m_answers;
    QString m_project;
    std::unique_ptr<CMainWindow> m_window;
};

QTEST_MAIN(tst_MainWindow)
#include "tst_mainwindow.moc"
