// The commands of the menus on a real project with a real emulator: each does to the shown page
// what its name says, is one undo step, and does nothing harmful when there is nothing to do it to.
#include "CArrangeActions.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandChangeOptions.h"
#include "CDialogAnswers.h"
#include "CEditorState.h"
#include "CEmulatorAdapter.h"
#include "CHistoryDock.h"
#include "CHistoryView.h"
#include "CItemView.h"
#include "CMainPanels.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CProjectExplorerView.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CSelectionCommands.h"
#include "CWidgetPropertiesView.h"
#include "CZoomComboWidget.h"
#include "CanvasRoles.h"
#include "ItemGeometry.h"
#include "ItemReorder.h"
#include "ProgramFolder.h"
#include "PropertyKey.h"

#include <QtTest>
#include <QtWidgets>

#include <iterator>
#include <memory>

namespace {
/// Three boxes; A lies in front.
const QByteArray threeBoxes =
    "<Kiv_Project_T project_name=\"demo\" platform=\"QX110\" width=\"480\" height=\"272\">"
    "<Kiv_Screen_T name=\"First\" color=\"#102030\">"
    "<Kiv_Rectangle_T name=\"A\" id=\"1\" x_coordinate=\"10\" y_coordinate=\"10\"/>"
    "<Kiv_Rectangle_T name=\"B\" id=\"2\" x_coordinate=\"60\" y_coordinate=\"60\"/>"
    "<Kiv_Rectangle_T name=\"C\" id=\"3\" x_coordinate=\"110\" y_coordinate=\"110\"/>"
    "</Kiv_Screen_T><Kiv_Screen_T name=\"Second\" color=\"#304050\"/></Kiv_Project_T>";
} // namespace

class tst_CanvasCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<CProgramFolder>();
        m_answers = std::make_unique<CDialogAnswers>();
        const QString path = m_folder->path("demo.nyx");
        writeFile(path, threeBoxes);
        m_window = std::make_unique<CMainWindow>(path);
        QVERIFY(m_window->project());
        m_screens = m_window->findChild<CScreen *>();
        m_explorer = m_window->findChild<CProjectExplorerView *>();
        QCOMPARE(m_screens->count(), 1); // the first page is open
        QCOMPARE(m_screens->currentScreen(), m_window->project()->screen(0));
    }

    void cleanup()
    {
        if (m_window->project())
            m_window->project()->undoStack()->setClean();
        m_window.reset();
        m_answers.reset();
        m_folder.reset();
    }

    void selectionAfterCommands_data()
    {
        QTest::addColumn<int>("action");
        QTest::addColumn<QVector<int>>("counts"); // of selected items, by state; -1: the same ones
        const auto row = [](const char *name, CMenuBar::EAction action,
                            const QVector<int> &counts) {
            QTest::newRow(name) << int(action) << counts;
        };
        const QVector<int> same(4, -1);
        row("front", CMenuBar::BringToFront, same);
        row("back", CMenuBar::SendToBack, same);
        row("forward", CMenuBar::BringForward, same);
        row("backward", CMenuBar::SendBackward, same);
        row("lock", CMenuBar::LockUnlock, same);
        row("hide", CMenuBar::HideShow, same);
        row("copy", CMenuBar::Copy, same);
        row("cut", CMenuBar::Cut, {0, 0, 0, 0});
        row("delete", CMenuBar::Delete, {0, 0, 0, 0});
        row("paste", CMenuBar::Paste, {1, 2, 1, 1});
        row("group", CMenuBar::Group, {-1, 1, -1, -1});
        row("ungroup", CMenuBar::Ungroup, {-1, -1, 2, 2});
    }

    /// Canvas, explorer and property panel agree after the command, its undo and its redo.
    void selectionAfterCommands()
    {
        QFETCH(int, action);
        QFETCH(QVector<int>, counts);
        const auto id = CMenuBar::EAction(action);
        CProjectModel *project = m_window->project();
        QUndoStack *stack = project->undoStack();
        const QStringList states = {"B", "AC", "AB grouped", "AB grouped, a member shown"};
        for (const QString &state : states) {
            CItemModel *member = select(state.section(' ', 0, 0));
            if (state.contains("grouped"))
                trigger(CMenuBar::Group);
            const bool isMember = state.contains("member");
            if (isMember)
                Q_EMIT m_explorer->clicked(member->index());
            const QList<CItemModel *> items = m_screens->selectedItems();
            const Items before(items.begin(), items.end());
            trigger(CMenuBar::Copy);
            const QByteArray bytes = project->saveToBytes(nullptr);
            const int steps = stack->index();
            const QPointer<CItemView> view =
                m_screens->currentView()->screenScene()->viewOf(items.first());
            trigger(id);
            if (isMember && (id == CMenuBar::LockUnlock ||
                             id == CMenuBar::HideShow)) { // the panel still shows the member
                QVERIFY(stack->index() > steps && m_screens->selectedItems() == items);
            } else if (stack->index() > steps) {
                const int count = counts.at(states.indexOf(state));
                const Items after = selected();
                QCOMPARE(after.size(), count < 0 ? before.size() : count);
                QVERIFY(count >= 0 || (after == before && view)); // moved, not made anew
                trigger(CMenuBar::Undo);
                QCOMPARE(selected(), before);
                QCOMPARE(project->saveToBytes(nullptr), bytes);
                trigger(CMenuBar::Redo);
                QCOMPARE(selected(), after);
            } else if (!isMember) { // which the panel still shows
                QCOMPARE(selected(), before);
            }
            while (stack->canUndo())
                trigger(CMenuBar::Undo);
        }
    }

    /// Whatever is selected by then, and wherever.
    void undoBringsTheSelectionBack()
    {
        QUndoStack *stack = m_window->project()->undoStack();
        const Items a = {select("A")};
        QTest::keyClick(m_screens->currentView(), Qt::Key_Right);
        const Items c = {select("C")};
        trigger(CMenuBar::Delete);
        m_screens->openScreen(m_window->project()->screen(1));
        QCOMPARE(selected(), Items());
        trigger(CMenuBar::Undo);
        QCOMPARE(selected(), c);
        select("B");
        trigger(CMenuBar::Undo); // of a step that takes no row away
        QCOMPARE(selected(), a);
        select("B");
        trigger(CMenuBar::Redo);
        QCOMPARE(selected(), a);
        stack->setIndex(2); // several at once come to what the last left
        QCOMPARE(selected(), Items());
        stack->setIndex(0);
        QCOMPARE(selected(), a);
    }

    /// Steps by their names; a click leads to a state, however far, as one change of the canvas.
    void history()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_window->historyDock()->show();
        QListView *list = m_window->historyDock()->view();
        const auto rows = [list] {
            QStringList texts;
            for (int row = 0; row < list->model()->rowCount(); ++row)
                texts << list->model()->index(row, 0).data().toString();
            return texts;
        };
        const auto go = [list](int row) {
            list->scrollTo(list->model()->index(row, 0));
            const QRect place = list->visualRect(list->model()->index(row, 0));
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
        };
        CProjectModel *project = m_window->project();
        const QByteArray before = project->saveToBytes(nullptr);
        CItemModel *b = select("B");
        project->undoStack()->push(
            new CCommandChangeItemProperty(b, PropertyKey::Name, "Frame", "B"));
        project->undoStack()->push(
            new CCommandChangeItemProperty(b, PropertyKey::Width, 50, b->propertyValue("width")));
        project->undoStack()->setClean();
        select("AC");
        QTest::keyClick(m_screens->currentView(), Qt::Key_Right);
        trigger(CMenuBar::BringForward);
        trigger(CMenuBar::Delete);
        select("Frame");
        trigger(CMenuBar::Delete);
        const QStringList names = {
            "Beginning",    "Rename B to Frame",     "Set Width of Frame to 50 (saved)",
            "Move 2 items", "Bring 2 items forward", "Delete 2 items",
            "Delete Frame"};
        QCOMPARE(rows(), names);
        QCOMPARE(list->currentIndex().row(), 6);
        const QByteArray after = project->saveToBytes(nullptr);
        go(0);
        QCOMPARE(project->saveToBytes(nullptr), before);
        QCOMPARE(list->currentIndex().row(), 0);
        QVERIFY(list->model()->index(1, 0).data(CHistoryModel::UndoneRole).toBool());
        go(6);
        QCOMPARE(project->saveToBytes(nullptr), after);
        go(2);
        QCOMPARE(selected(),
                 (Items{project->screen(0)->childItem(0), project->screen(0)->childItem(2)}));
        project->undoStack()->push(new CCommandChangeItemProperty(b, PropertyKey::X, 1, 60));
        QCOMPARE(rows(), (QStringList(names.mid(0, 3)) << "Move Frame"));

        for (int step = 0; step < 300; ++step)
            project->undoStack()->push(
                new CCommandChangeItemProperty(b, PropertyKey::X, step % 2, 1 - step % 2));
        QTRY_VERIFY(!CEmulatorAdapter::instance()->isBusy());
        QCoreApplication::processEvents();
        QSignalSpy frames(CEmulatorAdapter::instance(), &CEmulatorAdapter::emulatorFrameCallback);
        go(0);
        QTRY_VERIFY(!CEmulatorAdapter::instance()->isBusy());
        QVERIFY(frames.size() <= 3); // of the canvas, and of small pictures
        project->undoStack()->setClean();
        m_window->closeProject();
        QCOMPARE(rows(), QStringList());
    }

    /// From the keys; what was selected first gives its size, and the reason for what is disabled
    /// is told.
    void arranging()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        const CArrangeActions *arrange = m_window->arrangeActions();
        const QAction *left = arrange->action(CItemArrange::AlignLeft);
        QVERIFY(!left->isEnabled() && left->statusTip().startsWith("Select one"));
        CScreenScene *scene = m_screens->currentView()->screenScene();
        QVector<CItemModel *> items; // A lies in front; clicked in another order
        for (const char *name : {"C", "A", "B"})
            items.append(select(name));
        scene->chooseModelItems({});
        items[0]->setProperty(PropertyKey::Width, 33);
        for (int count = 1; count <= items.size(); ++count) {
            scene->chooseModelItems(items.mid(0, count));
            QCOMPARE(arrange->action(CItemArrange::DistributeAcross)->isEnabled(), count == 3);
        }
        arrange->action(CItemArrange::SameWidth)->trigger();
        for (CItemModel *each : qAsConst(items))
            QCOMPARE(each->width(), 33.0);
        m_screens->currentView()->setFocus();
        const auto press = [this](const char *keys) {
            QTest::keySequence(m_screens->currentView(), QKeySequence(keys));
        };
        press("Ctrl+Shift+L");
        for (CItemModel *each : qAsConst(items))
            QCOMPARE(each->x(), 10.0);
        QUndoStack *stack = m_window->project()->undoStack();
        QCOMPARE(stack->undoText(), "Align Left");
        QCOMPARE(stack->count(), 2);
        const Items before = selected();
        for (const char *keys : {"Ctrl+[", "Ctrl+[", "Ctrl+]", "Ctrl+Shift+["})
            press(keys);
        for (const char *keys : {"Ctrl+L", "Ctrl+L", "Ctrl+G", "Ctrl+Shift+G"})
            press(keys);
        QCOMPARE(selected(), before);
        press("Ctrl+L");
        QVERIFY(!left->isEnabled() && left->statusTip().contains("locked"));
        press("Ctrl+3");
        QVERIFY(m_screens->currentView()->zoomPercent() > 100);
        press("Ctrl+0");
        QCOMPARE(m_screens->currentView()->zoomPercent(), 100);
    }

    void randomCommands_data()
    {
        QTest::addColumn<uint>("seed");
        for (const uint seed : {1U, 2U, 3U})
            QTest::addRow("seed %u", seed) << seed;
    }

    /// Whatever is chosen and done, in whatever panel: the panels agree, and all of it is undone.
    void randomCommands()
    {
        QFETCH(uint, seed);
        QRandomGenerator random(seed);
        CProjectModel *project = m_window->project();
        const QByteArray before = project->saveToBytes(nullptr);
        constexpr CMenuBar::EAction actions[] = {
            CMenuBar::BringToFront, CMenuBar::SendToBack, CMenuBar::BringForward,
            CMenuBar::SendBackward, CMenuBar::Cut,        CMenuBar::Copy,
            CMenuBar::Paste,        CMenuBar::Duplicate,  CMenuBar::SelectAll,
            CMenuBar::SelectNone,   CMenuBar::Delete,     CMenuBar::SelectInverse,
            CMenuBar::Undo,         CMenuBar::Redo,       CMenuBar::Undo,
            CMenuBar::Group,        CMenuBar::Ungroup,    CMenuBar::NewPage,
            CMenuBar::HideShow,     CMenuBar::LockUnlock, CMenuBar::PasteInPlace};
        for (int step = 0; step < 300; ++step) {
            QVector<CItemModel *> all;
            for (int row = 0; row < project->screenCount(); ++row)
                collect(*project->screen(row), all);
            const auto any = [&] { return all.at(int(random.bounded(uint(all.size())))); };
            const quint32 what = all.isEmpty() ? 99 : random.bounded(22U);
            if (what < 2) {
                m_explorer->expandAll();
                Q_EMIT m_explorer->clicked(any()->index());
            } else if (what == 2) {
                chooseInExplorer(Items{any(), any()}.values());
            } else if (what == 3) {
                m_screens->openScreen(
                    project->screen(int(random.bounded(uint(project->screenCount())))));
            } else if (what == 4 && m_screens->currentView()) {
                const auto views = m_screens->currentView()->screenScene()->itemViews();
                for (CItemView *each : views) {
                    const bool isReachable = each->flags() & QGraphicsItem::ItemIsSelectable;
                    each->setSelected(random.bounded(2U) && isReachable);
                }
            } else if (what == 5 && m_screens->currentView()) {
                QTest::keyClick(m_screens->currentView(), Qt::Key_Right, Qt::ShiftModifier);
            } else if (what == 6) {
                change(*any(), random);
            } else if (what == 8) {
                m_window->arrangeActions()
                    ->action(CItemArrange::EWhat(random.bounded(uint(CItemArrange::GapAcross))))
                    ->trigger();
            } else if (what == 9 && m_screens->currentView()) {
                m_screens->currentView()->placeInMiddle("Kiv_Rectangle_T");
            } else if (what == 10) { // dragged in the explorer
                const QVector<CItemModel *> items = {any()};
                CItemModel *target = any();
                if (target->kind() != CItemModel::Kind::Widget &&
                    ItemReorder::canMove(items, *target) &&
                    ItemReorder::move(items, *target, target->rowCount()))
                    Q_EMIT m_explorer->itemsMoved(items);
            } else if (what < 14 && m_screens->currentView()) {
                const auto place = [&] {
                    return QPointF(random.bounded(240U), random.bounded(160U));
                };
                constexpr Qt::KeyboardModifier keys[] = {Qt::NoModifier, Qt::AltModifier,
                                                         Qt::ShiftModifier};
                drag(place(), place(), keys[random.bounded(3U)]);
            } else if (what < 16 && m_screens->currentView()) {
                QTest::keyClick(m_screens->currentView(), Qt::Key_Return); // into a group
            } else if (what == 7 && project->screenCount() < 9) {
                chooseInExplorer({project->screen(0)});
                random.bounded(2U) ? m_explorer->cut() : m_explorer->copy();
                m_explorer->paste();
            } else {
                trigger(actions[random.bounded(uint(std::size(actions)))]);
            }
            Items inExplorer;
            Items onPage;
            for (const QModelIndex &each : m_explorer->selectionModel()->selectedIndexes()) {
                CItemModel *item = CItemModel::fromItem(project->itemFromIndex(each));
                inExplorer.insert(item);
                const CItemModel *page = item->parentItem();
                while (page && page->parentItem())
                    page = page->parentItem();
                if (page && page == m_screens->currentScreen())
                    onPage.insert(item);
            }
            checkCanvas();
            const QList<CItemModel *> shown = m_screens->selectedItems();
            QCOMPARE(onPage, Items(shown.begin(), shown.end()));
            const CItemModel *inPanel =
                m_window->findChild<CWidgetPropertiesView *>()->currentItemModel();
            const auto isSelected = [&](const CItemModel *item) {
                return inExplorer.contains(const_cast<CItemModel *>(item));
            };
            while (inPanel && inPanel->isGrouped() && !isSelected(inPanel))
                inPanel = inPanel->parentItem();
            QCOMPARE(inPanel, inExplorer.size() == 1 ? *inExplorer.begin() : nullptr);
        }
        QUndoStack *stack = project->undoStack();
        stack->setIndex(stack->count());
        QVector<QByteArray> states{project->saveToBytes(nullptr)};
        while (stack->canUndo()) {
            trigger(CMenuBar::Undo);
            states.prepend(project->saveToBytes(nullptr));
        }
        QCOMPARE(states.first(), before);
        for (int index = 1; index < states.size(); ++index) {
            stack->setIndex(index);
            QCOMPARE(project->saveToBytes(nullptr), states.at(index));
        }
        stack->setIndex(stack->count() / 2); // a project that goes in the middle frees all of it
    }

    /// Who has chosen something there sees it. What comes back elsewhere is shown there.
    void itemsOfAnotherPage()
    {
        CProjectModel *project = m_window->project();
        project->screen(1)->appendRow(select("A")->clone());
        chooseInExplorer({project->screen(1)->childItem(0)});
        QCOMPARE(m_screens->currentScreen(), project->screen(1));
        QCOMPARE(selected(), Items{project->screen(1)->childItem(0)});
        chooseInExplorer({project->screen(0)->childItem(1), project->screen(1)->childItem(0)});
        const QByteArray before = project->saveToBytes(nullptr);
        trigger(CMenuBar::LockUnlock);
        QCOMPARE(project->undoStack()->count(), 1);
        QVERIFY(project->screen(1)->childItem(0)->isLocked());
        trigger(CMenuBar::Undo);
        m_screens->openScreen(project->screen(0));
        trigger(CMenuBar::Redo);
        trigger(CMenuBar::Undo);
        QCOMPARE(project->saveToBytes(nullptr), before);
    }

    void manyRows_data()
    {
        QTest::addColumn<QString>("page"); // its items; groups in brackets
        QTest::addColumn<QVector<int>>("rows");
        QTest::addColumn<QVector<int>>("others"); // rows of the second page, "PQRST"
        const auto row = [](const char *name, const char *page, const QVector<int> &rows,
                            const QVector<int> &others) {
            QTest::newRow(name) << QString(page) << rows << others;
        };
        row("neighbours", "ABCDEFGH", {2, 3, 4}, {});
        row("scattered", "ABCDEFGH", {1, 3, 4, 6}, {});
        row("ends", "ABCDEFGH", {0, 1, 6, 7}, {});
        row("all", "ABCD", {0, 1, 2, 3}, {});
        row("nested groups", "A(B(CD)E)FG((HI)J)(K)", {1, 2, 4, 5}, {});
        row("over pages", "AB(CD)EF", {1, 2, 4}, {0, 2, 3});
    }

    /// Of many at once comes what comes of one after the other: on the page, in the stacking of the
    /// canvas and in the explorer, and back again.
    void manyRows()
    {
        QFETCH(QString, page);
        QFETCH(QVector<int>, rows);
        QFETCH(QVector<int>, others);
        const QString path = m_folder->path("rows.nyx");
        writeFile(path, "<Kiv_Project_T platform=\"QX110\"><Kiv_Screen_T>" + xmlOf(page) +
                            "</Kiv_Screen_T><Kiv_Screen_T>" + xmlOf("PQRST") +
                            "</Kiv_Screen_T></Kiv_Project_T>");
        m_window->openProjectFile(path);
        CProjectModel *project = m_window->project();
        const QByteArray before = project->saveToBytes(nullptr);
        constexpr CMenuBar::EAction actions[] = {
            CMenuBar::BringToFront, CMenuBar::SendToBack, CMenuBar::BringForward,
            CMenuBar::SendBackward, CMenuBar::Delete,     CMenuBar::Cut,
            CMenuBar::Group,        CMenuBar::Ungroup,    CMenuBar::Paste};
        for (const CMenuBar::EAction action : actions) {
            if (!others.isEmpty() && (action == CMenuBar::Group || action == CMenuBar::Ungroup ||
                                      action == CMenuBar::Paste))
                continue; // of one page only
            QList<CItemModel *> chosen;
            for (const int each : qAsConst(others))
                chosen << project->screen(1)->childItem(each);
            for (const int each : qAsConst(rows)) // the page of the last one is shown
                chosen << project->screen(0)->childItem(each);
            chooseInExplorer(chosen);
            if (action == CMenuBar::Paste)
                trigger(CMenuBar::Cut);
            const QString first = oneByOne(page, rows, action);
            const QString second = oneByOne("PQRST", others, action);
            const int steps = project->undoStack()->index();
            trigger(action);
            QVERIFY(project->undoStack()->index() <= steps + 1);
            checkRows(first, second);
            const int end = project->undoStack()->index();
            project->undoStack()->setIndex(0);
            checkRows(page, "PQRST");
            QCOMPARE(project->saveToBytes(nullptr), before);
            project->undoStack()->setIndex(end);
            checkRows(first, second);
            project->undoStack()->setIndex(0);
        }
    }

    void undoShowsThePageOnWhichItIs()
    {
        CScreenModel *first = m_window->project()->screen(0);
        CItemModel *item = select("B");
        trigger(CMenuBar::Delete);
        m_screens->openScreen(m_window->project()->screen(1));
        trigger(CMenuBar::Undo);
        QCOMPARE(m_screens->currentScreen(), first);
        QCOMPARE(selected(), Items{item});
        QTest::keyClick(m_screens->currentView(), Qt::Key_Left);
        for (const auto id : {CMenuBar::Undo, CMenuBar::Redo}) { // also of what stays
            m_screens->openScreen(m_window->project()->screen(1));
            trigger(id);
            QCOMPARE(m_screens->currentScreen(), first);
            QCOMPARE(selected(), Items{item});
        }
    }

    /// Also of what the canvas leaves out.
    void theMemoryIsThatOfTheExport()
    {
        QVector<size_t> sizes;
        connect(m_screens, &CScreen::memoryUsageChanged, this,
                [&sizes](size_t displayList, size_t) { sizes.append(displayList); });
        m_window->show();
        QTRY_VERIFY(!sizes.isEmpty() && !CEmulatorAdapter::instance()->isBusy());
        select("A");
        const size_t whole = sizes.last();
        for (const bool isHidden : {true, false}) {
            sizes.clear();
            trigger(CMenuBar::HideShow);
            QTRY_COMPARE(sizes, QVector<size_t>{whole});
            QCOMPARE(m_window->project()->screen(0)->childItem(0)->isHidden(), isHidden);
        }
    }

    /// What is below the entries of the canvas is enabled when it does something, for as long as
    /// they are shown.
    void menusOfTheContextMenu()
    {
        const CMenuBar *bar = m_window->actions();
        QGuiApplication::clipboard()->clear();
        CScreenView *view = m_screens->currentView();
        for (const bool isAny : {false, true}) {
            choose({});
            if (isAny)
                select("A");
            {
                QMenu menu(view);
                view->commands()->addTo(&menu);
                Q_EMIT view->menuAboutToShow(&menu);
                QVERIFY(menu.actions().contains(bar->action(CMenuBar::Delete)));
                for (const auto id : {CMenuBar::Delete, CMenuBar::Cut, CMenuBar::Copy,
                                      CMenuBar::Duplicate, CMenuBar::ZoomSelection})
                    QCOMPARE(bar->action(id)->isEnabled(), isAny);
                QVERIFY(!bar->action(CMenuBar::Paste)->isEnabled());
                QVERIFY(!bar->action(CMenuBar::PasteInPlace)->isEnabled());
            }
            QVERIFY(bar->action(CMenuBar::Delete)->isEnabled()); // also for texts
            QVERIFY(!m_window->findChild<QAction *>("pasteToReplace")->isEnabled());
        }
        trigger(CMenuBar::Copy);
        QVERIFY(m_window->findChild<QAction *>("pasteToReplace")->isEnabled());
    }

    /// Whatever comes while a group is entered becomes a member, in front of the others and
    /// selected; back and forth again.
    void newMembers()
    {
        CScreenView *view = m_screens->currentView();
        select("AB");
        trigger(CMenuBar::Copy);
        trigger(CMenuBar::Group);
        CItemModel *group = m_window->project()->screen(0)->childItem(0);
        QUndoStack *stack = m_window->project()->undoStack();
        const std::function<void()> ways[] = {[&] { trigger(CMenuBar::Duplicate); },
                                              [&] { trigger(CMenuBar::Paste); },
                                              [&] { view->placeInMiddle("Kiv_Rectangle_T"); },
                                              [&] {
                                                  drag({30, 30}, {300, 30}, Qt::AltModifier);
                                              },
                                              [&] { view->commands()->pasteToReplace(); }};
        for (const auto &way : ways) {
            view->screenScene()->chooseModelItems({group});
            QTest::keyClick(view, Qt::Key_Return);
            const Items before = selected();
            QCOMPARE(before, Items{group->childItem(0)});
            const QByteArray bytes = m_window->project()->saveToBytes(nullptr);
            way();
            const Items after = selected();
            QVERIFY(after.contains(group->childItem(0)) && after != before);
            QCOMPARE(m_window->project()->screen(0)->rowCount(), 2);
            checkCanvas();
            trigger(CMenuBar::Undo);
            QCOMPARE(m_window->project()->saveToBytes(nullptr), bytes);
            QCOMPARE(selected(), before);
            view->commands()->leaveGroup();
            trigger(CMenuBar::Redo);
            QCOMPARE(selected(), after);
            checkCanvas();
            trigger(CMenuBar::Undo);
        }
        group->childItem(1)->setLocked(true);
        trigger(CMenuBar::SelectAll);
        trigger(CMenuBar::Delete); // with the last member, locked or not, its group goes
        QCOMPARE(names(m_window->project()->screen(0)), "C");
        while (stack->canUndo())
            trigger(CMenuBar::Undo);
        QCOMPARE(names(m_window->project()->screen(0)), "ABC");
        checkCanvas();
    }

    /// After its member, a press on the group that is selected already.
    void aPressOnTheGroupIsForTheGroup()
    {
        m_window->show();
        CItemModel *member = select("AB");
        trigger(CMenuBar::Group);
        m_explorer->expandAll();
        QTest::mouseClick(m_explorer->viewport(), Qt::LeftButton, {},
                          m_explorer->visualRect(member->index()).center());
        QCOMPARE(m_explorer->selectionModel()->selectedIndexes(),
                 QModelIndexList{member->parent()->index()});
        auto *panel = m_window->findChild<CWidgetPropertiesView *>();
        QCOMPARE(panel->currentItemModel(), member);
        CScreenView *view = m_screens->currentView();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->mapFromScene(12, 12));
        QCOMPARE(panel->currentItemModel(), member->parentItem());
        m_explorer->setCurrentIndex(member->parent()->index());
        CItemModel *next = member->parentItem()->childItem(1);
        for (CItemModel *each : {member, next}) { // the keys walk through the members
            QTest::keyClick(m_explorer, Qt::Key_Down);
            QCOMPARE(panel->currentItemModel(), each);
            QCOMPARE(m_screens->selectedItems(), QList<CItemModel *>{member->parentItem()});
        }
        Q_EMIT m_explorer->clicked(member->parent()->index());
        QCOMPARE(selected(), Items{member->parentItem()});
    }

    /// Keys are for what has the focus.
    void keysInOtherPanels()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        CProjectModel *project = m_window->project();
        const QByteArray before = project->saveToBytes(nullptr);
        select("B");
        trigger(CMenuBar::Copy);
        auto *output = m_window->findChild<QDockWidget *>("outputWindow")->findChild<QTextEdit *>();
        output->setPlainText("a message");
        auto *rows = m_window->findChild<CWidgetPropertiesView *>()->findChild<QTreeWidget *>();
        for (QWidget *panel : {static_cast<QWidget *>(output), static_cast<QWidget *>(rows)}) {
            panel->setFocus();
            for (const int key : {Qt::Key_A, Qt::Key_C, Qt::Key_X, Qt::Key_V})
                QTest::keyClick(panel, Qt::Key(key), Qt::ControlModifier);
            QTest::keyClick(panel, Qt::Key_Delete);
            QTest::keyClick(panel, Qt::Key_D, Qt::ControlModifier);
            QTest::keyClick(panel, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
            QCOMPARE(selected().size(), 1);
            QCOMPARE(project->saveToBytes(nullptr), before);
        }
        QCOMPARE(QGuiApplication::clipboard()->text(), "a message");
        rows->setFocus(); // where a typed value leaves it
        trigger(CMenuBar::Delete);
        QCOMPARE(selected().size(), 0);
        trigger(CMenuBar::Undo);
        QCOMPARE(project->saveToBytes(nullptr), before);
        m_screens->currentView()->setFocus();
        QTest::keyClick(m_screens->currentView(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(selected().size(), 3);
        QTest::keyClick(m_screens->currentView(), Qt::Key_Escape);
        QCOMPARE(selected().size(), 0);
        QCOMPARE(project->saveToBytes(nullptr), before);
    }

    /// In the explorer a page is copied by the keys too; what was copied last is pasted, and the
    /// names count up.
    void pagesByKeys()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        CProjectModel *project = m_window->project();
        select("B");
        trigger(CMenuBar::Copy);
        chooseInExplorer({project->screen(0)});
        QTest::keyClick(m_explorer, Qt::Key_C, Qt::ControlModifier);
        m_screens->currentView()->setFocus();
        QTest::keyClick(m_screens->currentView(), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(m_window->focusWidget(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(project->screenCount(), 4);
        QCOMPARE(project->screen(2)->name(), "First 2");
        QCOMPARE(project->screen(3)->name(), "First 3");
        QCOMPARE(names(project->screen(3)), names(project->screen(0)));
        QTest::keyClick(m_window->focusWidget(), Qt::Key_X, Qt::ControlModifier); // the last one
        QCOMPARE(project->screenCount(), 3);
        m_screens->currentView()->setFocus(); // keys are no longer for pages
        trigger(CMenuBar::Undo);
        trigger(CMenuBar::Delete);
        QCOMPARE(project->screenCount(), 4);
    }

    /// The signal to end comes while the user drags an item: what is saved is no half a drag.
    void unattendedCloseInTheMiddleOfADrag()
    {
        const QString key = QStringLiteral("x_coordinate");
        CItemModel *item = m_window->project()->screen(0)->childItem(0);
        trigger(CMenuBar::NewPage);
        m_screens->setCurrentIndex(0);
        CScreenView *view = m_screens->currentView();
        QTest::mousePress(view->viewport(), Qt::LeftButton, {}, view->mapFromScene(15, 15));
        QMouseEvent drag(QEvent::MouseMove, view->mapFromScene(90, 90), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &drag);
        QVERIFY(item->propertyValue(key).toInt() > 10);
        m_window->closeUnattended();
        const QByteArray saved = readFile(m_folder->path("demo.nyx"));
        QCOMPARE(saved.count("Kiv_Screen_T name="), 3);
        QVERIFY(saved.contains("x_coordinate=\"10\""));
    }

    void newPageAndNothingWithoutAProject()
    {
        trigger(CMenuBar::NewPage);
        QCOMPARE(m_window->project()->screenCount(), 3);
        m_window->project()->undoStack()->setClean();
        QVERIFY(m_window->closeProject());
        QVERIFY(!m_window->actions()->action(CMenuBar::SaveProject)->isEnabled());
        for (const auto id :
             {CMenuBar::NewPage, CMenuBar::Paste, CMenuBar::SelectAll, CMenuBar::PageToDL,
              CMenuBar::PageToBinary, CMenuBar::ProjectToDL, CMenuBar::Delete, CMenuBar::Group,
              CMenuBar::SaveProject, CMenuBar::SaveAs, CMenuBar::CloseProject, CMenuBar::FitToPage})
            trigger(id);
        QVERIFY(m_answers->allGiven());
    }

    /// After a click in the explorer the canvas moves what was chosen; there Enter leads into a
    /// group, and Esc out of it.
    void theCanvasHasTheKeys()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        m_explorer->expandAll();
        CItemModel *item = m_screens->currentScreen()->childItem(1);
        m_explorer->setFocus();
        m_explorer->setCurrentIndex(item->index());
        Q_EMIT m_explorer->clicked(item->index());
        press(Qt::Key_Right);
        QCOMPARE(item->x(), 80.0);

        select("AC");
        trigger(CMenuBar::Group);
        CItemModel *group = m_screens->selectedItems().value(0);
        m_screens->currentView()->setFocus();
        press(Qt::Key_Return);
        const Items member = {group->childItem(0)};
        QCOMPARE(selected(), member); // on the canvas and in the panel
        press(Qt::Key_Right);
        trigger(CMenuBar::Undo);
        QCOMPARE(selected(), member);
        press(Qt::Key_Escape);
        QCOMPARE(selected(), Items({group}));
        press(Qt::Key_Escape);
        QCOMPARE(selected(), Items());
        QMenu menu;
        m_screens->currentView()->commands()->addTo(&menu);
        m_window->actions()->complete(&menu);
        QCOMPARE(menu.findChild<QAction *>("Group")->shortcut(), QKeySequence("Ctrl+G"));
    }

    void pageExports_data()
    {
        QTest::addColumn<bool>("isHidden");
        QTest::newRow("what the page has last received") << false;
        QTest::newRow("with what it hides") << true;
    }

    /// What is written equals the page's part of the project.
    void pageExports()
    {
        QFETCH(bool, isHidden);
        m_window->show();
        const CScreenView *view = m_screens->currentView();
        QTRY_VERIFY(!view->lastDisplayListBytes().isEmpty());
        const QString text = view->lastDisplayListText();
        const QByteArray bytes = view->lastDisplayListBytes();
        if (isHidden) {
            select("B");
            trigger(CMenuBar::HideShow);
            QTRY_VERIFY(view->lastDisplayListBytes() != bytes);
        }
        for (const auto &[action, written] :
             {std::pair(CMenuBar::PageToDL, "===First===\n" + text.toUtf8() + "\n"),
              std::pair(CMenuBar::PageToBinary, bytes)}) {
            QString suffix;
            m_answers->expect([&](QDialog *dialog) {
                auto *files = qobject_cast<QFileDialog *>(dialog);
                suffix = files->defaultSuffix();
                files->findChild<QLineEdit *>("fileNameEdit")->setText(m_folder->path("page"));
                QMetaObject::invokeMethod(files, "accept");
            });
            trigger(action);
            QCOMPARE(suffix, QString(action == CMenuBar::PageToDL ? "dl" : "bin"));
            QCOMPARE(readFile(m_folder->path() + "/page." + suffix), written);
        }
        QVERIFY(text.count(QLatin1Char(';')) > 3);
        QCOMPARE(text.count(QLatin1Char(';')), text.count(QLatin1String(";\n")));
    }

    void screenshotsOfPagesThatWereNeverShown()
    {
        m_window->show();
        m_window->findChild<QDockWidget *>("screenNavigator")->hide();
        m_answers->expect([](QDialog *dialog) {
            const auto *pages = dialog->findChild<QListWidget *>("screens");
            QCOMPARE(pages->count(), 2);
            const auto colour = [pages] {
                return pages->item(1)->icon().pixmap(64, 64).toImage().pixelColor(32, 18);
            };
            QTRY_COMPARE(colour(), QColor(0x30, 0x40, 0x50));
        });
        m_window->printScreen();
        QVERIFY(m_answers->allGiven());
    }

    /// It is the same frame; the emulator is not asked for it again.
    void zoomingAsksForNoFrame()
    {
        m_window->show();
        const CScreenView *view = m_screens->currentView();
        const QSignalSpy asked(view, &CScreenView::frameWanted);
        for (const int type : {CZoomComboWidget::FitToPage, CZoomComboWidget::FreeValue}) {
            const double before = view->scale();
            Q_EMIT m_window->setZoom(213, type);
            QVERIFY(view->scale() != before);
        }
        QWheelEvent notch({20, 20}, {20, 20}, {}, {0, 120}, {}, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view->viewport(), &notch);
        QCOMPARE(view->scale(), 2.34);
        QCOMPARE(asked.count(), 0);
    }

    /// Beside the page too.
    void whatIsGoneToIsInSight()
    {
        m_window->show();
        CItemModel *item = select("A");
        const CScreenView *view = m_screens->currentView();
        for (const int type : {CZoomComboWidget::FitToPage, CZoomComboWidget::FreeValue})
            for (const QPoint place : {QPoint(-4000, 50), QPoint(300, 9000), QPoint(10, 10)}) {
                Q_EMIT m_window->setZoom(100, type);
                item->setProperty(PropertyKey::X, place.x());
                item->setProperty(PropertyKey::Y, place.y());
                m_window->findChild<CMainPanels *>()->goTo(item);
                const QRect seen = view->mapFromScene(ItemGeometry::frameOf(*item)).boundingRect();
                QVERIFY(view->viewport()->rect().contains(seen));
                trigger(CMenuBar::FitToPage);
                const QRectF page = view->scene()->sceneRect();
                QVERIFY(view->viewport()->rect().contains(
                    view->mapFromScene(page.center()))); // and the page again
            }
    }

    void whatIsTypedInThePropertyPanelIsSaved()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        auto *panel = m_window->findChild<CWidgetPropertiesView *>();
        panel->showItems({select("A")});
        const auto type = [this, panel](const char *key, const char *text) { // and no Enter
            panel->edit(key);
            auto *box = qobject_cast<QSpinBox *>(m_window->focusWidget());
            QVERIFY2(box, key);
            box->selectAll();
            QTest::keyClicks(box, text);
        };
        type("x_coordinate", "77");
        trigger(CMenuBar::SaveProject);
        QVERIFY(readFile(m_folder->path("demo.nyx")).contains("x_coordinate=\"77\""));
        type("y_coordinate", "78");
        m_screens->openScreen(m_window->project()->screen(1)); // which stays, although it is kept
        QCOMPARE(m_screens->currentScreen(), m_window->project()->screen(1));
        QCOMPARE(m_window->project()->screen(0)->childItem(0)->y(), 78.0);
    }

    void aRefusalIsSeenAlthoughTheOutputWindowWasClosed()
    {
        m_window->show();
        auto *output = m_window->findChild<QDockWidget *>("outputWindow");
        output->close();
        Q_EMIT m_screens->message("not taken");
        QVERIFY(output->isVisible());
        QVERIFY(m_window->actions()->action(CMenuBar::OutputWindow)->isChecked());
    }

    /// A drag is painted with its frame; without one it must not freeze the canvas.
    void dragsArePaintedWithAndWithoutFrames()
    {
        m_window->resize(1600, 1000);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        CScreenView *view = m_screens->currentView();
        QWidget *canvas = view->viewport();
        const auto moveTo = [view, canvas](int x, int y, QEvent::Type type) {
            const QPoint pos = view->mapFromScene(x, y);
            QMouseEvent event(type, pos, canvas->mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(canvas, &event);
        };
        moveTo(30, 30, QEvent::MouseButtonPress);
        for (const bool isStopped : {false, true}) {
            QTRY_VERIFY(!CEmulatorAdapter::instance()->isBusy());
            moveTo(isStopped ? 90 : 60, 30, QEvent::MouseMove);
            QVERIFY(!canvas->updatesEnabled());
            if (isStopped) { // the frame has been asked for and will not come
                QCoreApplication::sendPostedEvents(m_screens->currentWidget(), QEvent::MetaCall);
                CEmulatorAdapter::instance()->emulatorStop();
            }
            QTRY_VERIFY(canvas->updatesEnabled());
        }
        moveTo(90, 30, QEvent::MouseButtonRelease);
        QCOMPARE(m_window->project()->screen(0)->childItem(0)->x(), 70.0);
    }

private:
    void trigger(CMenuBar::EAction id) { m_window->actions()->action(id)->trigger(); }

    CItemModel *select(const QString &wanted)
    {
        QList<CItemModel *> items;
        const CScreenModel *screen = m_window->project()->screen(0);
        for (int row = 0; row < screen->rowCount(); ++row) {
            if (wanted.contains(screen->childItem(row)->name()))
                items << screen->childItem(row);
        }
        choose(items);
        return items.value(0);
    }

    void drag(const QPointF &from, const QPointF &to, Qt::KeyboardModifier key)
    {
        const CScreenView *view = m_screens->currentView();
        const auto send = [&](QEvent::Type type, const QPointF &place) {
            const QPoint pos = view->mapFromScene(place);
            QMouseEvent event(type, pos, view->viewport()->mapToGlobal(pos), Qt::LeftButton,
                              Qt::LeftButton, key);
            QCoreApplication::sendEvent(view->viewport(), &event);
        };
        send(QEvent::MouseButtonPress, from);
        send(QEvent::MouseMove, (from + to) / 2);
        send(QEvent::MouseMove, to);
        send(QEvent::MouseButtonRelease, to);
    }

    static void collect(CItemModel &item, QVector<CItemModel *> &items)
    {
        items.append(&item);
        for (int row = 0; row < item.rowCount(); ++row)
            collect(*item.childItem(row), items);
    }

    /// A property of an item, or the chip.
    void change(CItemModel &item, QRandomGenerator &random)
    {
        QUndoStack *stack = m_window->project()->undoStack();
        QStringList keys = item.properties().keys();
        keys.sort(); // the hash's order is not part of the seed
        const QString key = keys.value(int(random.bounded(uint(keys.size() + 1))));
        const QString number = QString::number(random.bounded(200U));
        if (key.isEmpty())
            stack->push(new CCommandChangeOptions(
                m_window->project(),
                {{"platform", random.bounded(2U) ? "QX100" : "ABC"}, {"zone", number}},
                m_window.get()));
        else
            stack->push(
                new CCommandChangeItemProperty(&item, key, number, item.propertyValue(key)));
    }

    /// As a user does on the canvas.
    void choose(const QList<CItemModel *> &items)
    {
        const CScreenScene *scene = m_screens->currentView()->screenScene();
        for (CItemView *each : scene->itemViews())
            each->setSelected(items.contains(each->item()));
    }

    /// As a user does in the explorer.
    void chooseInExplorer(const QList<CItemModel *> &items)
    {
        QItemSelection chosen;
        for (const CItemModel *each : items)
            chosen.select(each->index(), each->index());
        m_explorer->setFocus();
        m_explorer->selectionModel()->setCurrentIndex(items.last()->index(),
                                                      QItemSelectionModel::NoUpdate);
        m_explorer->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
    }

    using Items = QSet<CItemModel *>;

    /// What canvas, explorer and property panel show as selected, which must be the same.
    Items selected()
    {
        const QList<CItemModel *> items = m_screens->selectedItems();
        const Items onCanvas(items.begin(), items.end());
        Items inExplorer;
        for (const QModelIndex &each : m_explorer->selectionModel()->selectedIndexes())
            inExplorer.insert(CItemModel::fromItem(m_window->project()->itemFromIndex(each)));
        [&] { QCOMPARE(inExplorer, onCanvas); }();
        CItemModel *inPanel = m_window->findChild<CWidgetPropertiesView *>()->currentItemModel();
        [&] { QCOMPARE(inPanel, items.size() == 1 ? items.first() : nullptr); }();
        return onCanvas;
    }

    static QString names(const CItemModel *parent)
    {
        QString text;
        for (int row = 0; row < parent->rowCount(); ++row) {
            const CItemModel *item = parent->childItem(row);
            text += item->kind() == CItemModel::Kind::Group
                        ? QLatin1Char('(') + names(item) + QLatin1Char(')')
                        : item->name();
        }
        return text;
    }

    static QByteArray xmlOf(const QString &page)
    {
        QByteArray xml;
        for (const QChar each : page) {
            if (each == '(')
                xml += "<Widget_Group_T>";
            else if (each == ')')
                xml += "</Widget_Group_T>";
            else
                xml += QString("<Kiv_Rectangle_T name=\"%1\" id=\"%2\"/>")
                           .arg(each)
                           .arg(each.unicode())
                           .toUtf8();
        }
        return xml;
    }

    /// What stands in each row.
    static QStringList rowsOf(const QString &page)
    {
        QStringList rows;
        int depth = 0;
        for (const QChar each : page) {
            if (depth == 0)
                rows << QString();
            depth += each == '(' ? 1 : each == ')' ? -1 : 0;
            rows.last() += each;
        }
        return rows;
    }

    /// The page after the action on each of the rows, one after the other.
    static QString oneByOne(const QString &page, const QVector<int> &rows, int action)
    {
        QStringList all = rowsOf(page);
        const int count = rows.size();
        if (action == CMenuBar::Group && count > 0)
            all.insert(rows.first(), "()");
        for (int done = 0; done < count; ++done) {
            const int ahead = rows.at(done);              // from the front on
            const int behind = rows.at(count - 1 - done); // from the back on
            if (action == CMenuBar::BringToFront || action == CMenuBar::Paste)
                all.move(behind + done, 0);
            else if (action == CMenuBar::SendToBack)
                all.move(ahead - done, all.size() - 1);
            else if (action == CMenuBar::BringForward)
                all.move(ahead, std::max(ahead - 1, done));
            else if (action == CMenuBar::SendBackward)
                all.move(behind, std::min(behind + 1, int(all.size()) - 1 - done));
            else if (action == CMenuBar::Group) {
                const QString member = all.takeAt(behind + 1);
                all[rows.first()].insert(1, member);
            } else if (action == CMenuBar::Ungroup && all.at(ahead).startsWith('('))
                all[ahead] = all.at(ahead).mid(1).chopped(1);
            else if (action != CMenuBar::Ungroup)
                all.removeAt(behind);
        }
        return all.join(QString());
    }

    /// The canvas is as its model is, and knows of no group that is gone.
    void checkCanvas()
    {
        const CScreenView *view = m_screens->currentView();
        QVector<CItemModel *> items;
        if (view)
            collect(*view->screen(), items);
        for (CItemModel *each : items.mid(1)) {
            const CItemView *its = view->screenScene()->viewOf(each);
            QVERIFY(its && its->pos() == QPointF(each->x(), each->y()));
            QCOMPARE(its->sceneRect(), ItemGeometry::frameOf(*each));
            CItemModel *entered = view->screenScene()->entered();
            QVERIFY(!entered || (items.contains(entered) && !entered->isUnderLock()));
            QCOMPARE(each->isGrouped(), each->parentItem() != view->screen());
            QCOMPARE(each->isSelectable(), !each->isGrouped() || each->parentItem() == entered);
        }
    }

    void checkRows(const QString &first, const QString &second)
    {
        const CProjectModel *project = m_window->project();
        QCOMPARE(names(project->screen(0)), first);
        QCOMPARE(names(project->screen(1)), second);
        QVector<CItemModel *> onPage;
        collect(*project->screen(0), onPage);
        QVector<CItemModel *> inProject = onPage;
        collect(*project->screen(1), inProject);
        for (const CItemModel *each : qAsConst(inProject)) {
            const CItemModel *parent = each->parentItem();
            QCOMPARE(each->isGrouped(), parent && parent->kind() == CItemModel::Kind::Group);
        }
        QVector<CItemModel *> seen;
        m_explorer->expandAll();
        for (QModelIndex each = project->index(0, 0); each.isValid();
             each = m_explorer->indexBelow(each))
            seen << CItemModel::fromItem(project->itemFromIndex(each));
        QCOMPARE(seen, inProject);
        m_screens->openScreen(project->screen(0));
        const CScreenScene *scene = m_screens->currentView()->screenScene();
        seen = {project->screen(0)};
        for (const CItemView *each : scene->itemViews())
            seen << each->item();
        QCOMPARE(seen, onPage);
        seen = {project->screen(0)};
        for (QGraphicsItem *each :
             scene->items(QPointF(40, 30))) { // where all lie; the front one first
            if (each->data(CanvasRole::RoleKey) == CanvasRole::ItemView)
                seen << static_cast<CItemView *>(each)->item();
        }
        QCOMPARE(seen, onPage);
    }

    std::unique_ptr<CProgramFolder> m_folder;
    std::unique_ptr<CDialogAnswers> m_answers;
    std::unique_ptr<CMainWindow> m_window;
    CScreen *m_screens = nullptr;
    CProjectExplorerView *m_explorer = nullptr;
};

QTEST_MAIN(tst_CanvasCommands)
#include "tst_canvascommands.moc"
