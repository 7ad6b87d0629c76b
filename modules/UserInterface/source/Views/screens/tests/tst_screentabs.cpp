// The tab area and the navigator: which screens are shown, and what becomes of them when screens
// come, go and are renamed.
#include "CCommandDeleteScreen.h"
#include "CCommandOrderItem.h"
#include "CEditorState.h"
#include "CItemView.h"
#include "CRuler.h"
#include "CScreen.h"
#include "CScreenNavigator.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CSelectionCommands.h"
#include "CanvasTestSupport.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMainWindow>
#include <QScrollBar>
#include <QTabBar>
#include <QTimer>
#include <QUndoStack>

/// The tab area of a project, with the first screens open.
struct OpenTabs
{
    OpenTabs(int screens, int opened) : project(newTestProject(screens))
    {
        tabs.setProject(project.get());
        for (int row = 0; row < opened; ++row)
            tabs.openScreen(project->screen(row));
        tabs.resize(600, 400);
        tabs.show();
    }
    std::unique_ptr<CProjectModel> project;
    CScreen tabs;
};

class tst_ScreenTabs : public QObject
{
    Q_OBJECT

private:
    static QStringList texts(const CScreen &tabs)
    {
        QStringList names;
        for (int index = 0; index < tabs.count(); ++index)
            names.append(tabs.tabText(index));
        return names;
    }

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }

    void screensAreOpenedOnceAndClosedWithoutLoss()
    {
        OpenTabs open(3, 0);
        auto &[project, tabs] = open;
        tabs.openScreen(project->screen(0));
        tabs.openScreen(project->screen(2));
        tabs.openScreen(project->screen(0));
        QCOMPARE(texts(tabs), QStringList({"Page 1", "Page 3"}));
        QCOMPARE(tabs.currentScreen(), project->screen(0));
        Q_EMIT tabs.tabCloseRequested(0);
        QCOMPARE(texts(tabs), QStringList({"Page 3"}));
        QCOMPARE(project->screenCount(), 3);

        tabs.clear();
        QList<CScreenModel *> shown; // laying a page out takes long
        connect(&tabs, &CScreen::currentScreenChanged, &tabs,
                [&shown](CScreenModel *each) { shown.append(each); });
        tabs.openScreens({project->screen(2), project->screen(1), project->screen(0)},
                         project->screen(1));
        QCOMPARE(texts(tabs), QStringList({"Page 3", "Page 2", "Page 1"}));
        QCOMPARE(tabs.currentScreen(), project->screen(1));
        QCOMPARE(shown, {project->screen(1)});
        tabs.clear();
        QVERIFY(!shown.contains(project->screen(0)) && !shown.contains(project->screen(2)));
    }

    void rulersShowTheExtentOfWhatIsSelected()
    {
        OpenTabs open(1, 1);
        auto &[project, tabs] = open;
        CItemModel *box = appendBox(project->screen(0), 100, 50, 80, 40);
        CRuler *ruler = tabs.findChild<CRuler *>();
        const QImage none = ruler->grab().toImage();
        tabs.currentView()->screenScene()->viewOf(box)->setSelected(true); // as a click does
        const QImage clicked = ruler->grab().toImage();
        QVERIFY(clicked != none);
        tabs.currentView()->commands()->selectNone();
        QCOMPARE(ruler->grab().toImage(), none);
        tabs.currentView()->commands()->selectAll();
        QCOMPARE(ruler->grab().toImage(), clicked);
    }

    void tabsFollowRemovedMovedAndRenamedScreens()
    {
        OpenTabs open(3, 3);
        auto &[project, tabs] = open;
        QUndoStack &stack = *project->undoStack();
        QWidget *const page = tabs.widget(0);

        stack.push(new CCommandOrderItem({project->screen(0)}, {2}));
        QCOMPARE(texts(tabs), QStringList({"Page 1", "Page 2", "Page 3"}));
        QCOMPARE(tabs.widget(0), page); // the same tab, not a new one

        stack.push(new CCommandDeleteScreen(project->screen(2)));
        QCOMPARE(texts(tabs), QStringList({"Page 2", "Page 3"}));
        stack.undo();
        QVERIFY(texts(tabs).contains("Page 1"));
        const auto *hint = tabs.findChild<QLabel *>("noScreenHint");
        QVERIFY(hint->isHidden());
        while (project->screenCount() > 0)
            stack.push(new CCommandDeleteScreen(project->screen(0)));
        QVERIFY(hint->isVisible() && hint->text().contains("New Page")); // there is none to choose
        stack.undo();
        QVERIFY(hint->isHidden());
    }

    void aDoubleClickRenamesTheScreen()
    {
        OpenTabs open(2, 2);
        auto &[project, tabs] = open;
        for (const auto answer : {QDialog::Rejected, QDialog::Accepted}) {
            QTimer::singleShot(0, this, [answer] {
                auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
                dialog->setTextValue(" Home ");
                dialog->done(answer);
            });
            QTest::mouseDClick(tabs.tabBar(), Qt::LeftButton, {},
                               tabs.tabBar()->tabRect(1).center());
            QCOMPARE(project->undoStack()->count(), int(answer));
        }
        QCOMPARE(texts(tabs), QStringList({"Page 1", "Home"}));
        project->undoStack()->undo();
        QCOMPARE(texts(tabs), QStringList({"Page 1", "Page 2"}));
    }

    void theNavigatorListsEveryScreen()
    {
        const auto project = newTestProject(2);
        CScreenNavigator navigator;
        navigator.setProject(project.get());
        project->appendRow(new CScreenModel(project.get()));
        project->screen(1)->setProperty(PropertyKey::Name, QStringLiteral("Menu"));
        QCOMPARE(navigator.item(1)->text(), QStringLiteral("Menu"));

        project->removeRow(0);
        QCOMPARE(navigator.count(), 2);
    }

    void theNavigatorKeepsItsPlace()
    {
        const auto project = newTestProject(20);
        CScreenNavigator navigator;
        navigator.resize(200, 400);
        navigator.show();
        navigator.setProject(project.get());
        navigator.setCurrentScreen(project->screen(0));
        QScrollBar *bar = navigator.verticalScrollBar();
        QTRY_VERIFY(bar->maximum() > 1000);
        bar->setValue(700);
        project->appendRow(new CScreenModel(project.get()));
        QTest::qWait(1); // the list is laid out
        QCOMPARE(bar->value(), 700);
        project->insertRow(3, project->takeRow(12));
        project->removeRow(15);
        QTest::qWait(1);
        QCOMPARE(bar->value(), 700);
        navigator.setCurrentScreen(project->screen(1)); // goes to another page
        QVERIFY(bar->value() < 300);
        bar->setValue(700);
        const auto other = newTestProject(20);
        navigator.setProject(other.get());
        QTest::qWait(1);
        QCOMPARE(bar->value(), 0);
    }

    /// Also when it gets its size only after it is shown.
    void aPageBeginsInItsMiddle()
    {
        for (const bool isShownBefore : {false, true}) {
            CEditorState::instance()->setZoom(200, 0);
            const auto project = newTestProject(2);
            QMainWindow window;
            auto *tabs = new CScreen(&window);
            tabs->setProject(project.get());
            window.setCentralWidget(tabs);
            window.resize(760, 560);
            if (isShownBefore)
                window.show();
            tabs->openScreen(project->screen(0));
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            const auto middle = [tabs] {
                const CScreenView *view = tabs->currentView();
                return view->mapToScene(view->viewport()->rect().center()).toPoint();
            };
            QVERIFY((middle() - QPoint(240, 136)).manhattanLength() <= 2);
            const QPointF corner = tabs->currentView()->mapToScene(0, 0);
            window.resize(700, 560); // what is seen stays
            QTest::qWait(1);
            QCOMPARE(tabs->currentView()->mapToScene(0, 0), corner);
            tabs->openScreen(project->screen(1));
            QTest::qWait(1);
            QVERIFY((middle() - QPoint(240, 136)).manhattanLength() <= 2);
        }
        CEditorState::instance()->setZoom(100, 0);
    }
};

QTEST_MAIN(tst_ScreenTabs)
#include "tst_screentabs.moc"
