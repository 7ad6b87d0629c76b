// Guides on a page with its rulers: what the pointer and the keys do to them and what they leave to
// the items; and measuring with Alt. Nothing is selected at the start.
#include "CEditorState.h"
#include "CGuideEdits.h"
#include "CGuideMenu.h"
#include "CGuideTool.h"
#include "CRuler.h"
#include "CScreenCompositeView.h"
#include "CanvasFixture.h"

#include <QInputDialog>
#include <QMenu>
#include <QRegularExpression>
#include <QTimer>

namespace {
struct Page
{
    explicit Page(const QString &guides = {}, int zoom = 100)
    {
        resetEditorState();
        CEditorState::instance()->setSnapToGrid(false);
        CEditorState::instance()->setGuidesShown(true);
        CEditorState::instance()->setSnapping(true, ESnapKind::Items | ESnapKind::Page);
        CEditorState::instance()->setZoom(zoom, 0);
        screen->setGuides(ScreenGuides::fromText(guides));
        box = appendBox(screen, 100, 100, 60, 40);
        thin = appendBox(screen, 200, 100, 4, 40);
        page = std::make_unique<CScreenCompositeView>(screen);
        page->resize(760, 560);
        page->show();
        view = page->view();
        view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(page.get()));
    }
    QString guides() const { return ScreenGuides::text(screen->guides()); }
    CRuler *ruler(Qt::Orientation orientation) const
    {
        for (CRuler *each : page->findChildren<CRuler *>()) {
            if ((each->width() > each->height()) == (orientation == Qt::Horizontal))
                return each;
        }
        return nullptr;
    }
    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *target = grabber ? grabber : view->viewport();
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease   ? Qt::MouseButtons()
                                      : isDown || button == Qt::LeftButton ? Qt::LeftButton
                                                                           : Qt::NoButton;
        const QPoint global = view->viewport()->mapToGlobal(place);
        QMouseEvent event(type, target->mapFromGlobal(global), global, button, held | button,
                          modifiers);
        QCoreApplication::sendEvent(target, &event);
    }
    /// Words apart by ";": what the hand does, and where; "120+3" is 3 pixels beside 120.
    void run(const QString &steps)
    {
        static const QRegularExpression number("(-?\\d+)([+-]\\d+)?");
        for (const QString &step : steps.split(';')) {
            const QString word = step.trimmed().section(' ', 0, 0);
            QPointF units;
            QPoint pixels;
            auto found = number.globalMatch(step.trimmed().section(' ', 1));
            for (double *each : {&units.rx(), &units.ry()}) {
                if (!found.hasNext())
                    break;
                const auto match = found.next();
                *each = match.captured(1).toDouble();
                (each == &units.rx() ? pixels.rx() : pixels.ry()) = match.captured(2).toInt();
            }
            if (step.contains(QRegularExpression("\\d")))
                place = view->mapFromScene(units) + pixels;
            act(word);
        }
    }
    void act(const QString &word)
    {
        if (word == "top" || word == "left") {
            grabber = ruler(word == "top" ? Qt::Horizontal : Qt::Vertical);
            place = view->viewport()->mapFromGlobal(grabber->mapToGlobal({9, 9}));
        }
        if (word == "top" || word == "left" || word == "press") {
            mouse(QEvent::MouseButtonPress, Qt::LeftButton);
            isDown = true;
        } else if (word == "to" || word == "shift" || word == "alt" || word == "ctrl") {
            mouse(QEvent::MouseMove, Qt::NoButton,
                  word == "to"      ? Qt::NoModifier
                  : word == "shift" ? Qt::ShiftModifier
                  : word == "ctrl"  ? Qt::ControlModifier
                                    : Qt::AltModifier);
        } else if (word == "up") {
            mouse(QEvent::MouseButtonRelease, Qt::LeftButton);
            grabber = nullptr;
            isDown = false;
        } else if (word == "right") {
            mouse(QEvent::MouseButtonPress, Qt::RightButton);
            mouse(QEvent::MouseButtonRelease, Qt::RightButton);
        } else if (word == "double") {
            mouse(QEvent::MouseButtonDblClick, Qt::LeftButton);
        } else if (word == "esc") {
            QTest::keyClick(view, Qt::Key_Escape);
        } else if (word == "del") {
            QTest::keyClick(view, Qt::Key_Delete);
        } else if (word == "hide") {
            CEditorState::instance()->setGuidesShown(false);
        } else if (word == "other") {
            screen->setGuides(ScreenGuides::fromText("y1"));
        }
    }
    int cursorAt(const QString &at)
    {
        run("to " + at);
        return view->viewport()->cursor().shape();
    }

    std::unique_ptr<CProjectModel> project = newTestProject();
    CScreenModel *screen = project->screen(0);
    CItemModel *box = nullptr;
    CItemModel *thin = nullptr;
    std::unique_ptr<CScreenCompositeView> page;
    CScreenView *view = nullptr;
    QWidget *grabber = nullptr;
    QPoint place; ///< of the viewport
    bool isDown = false;
};
} // namespace

class tst_Guides : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }

    void gestures_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("commands");
        QTest::addColumn<int>("moved"); // how far the items were, together
        QTest::addColumn<int>("zoom");
        const auto row = [](const char *name, const QString &before, const QString &steps,
                            const QString &after, int commands = 1, int moved = 0, int zoom = 100) {
            QTest::newRow(name) << before << steps << after << commands << moved << zoom;
        };
        const QString all = "x120 y9,locked";
        row("from the left ruler", "y9", "left; to 60 50; to 121 50; up", "y9 x121");
        row("from the top ruler", "", "top; to 50 60; up", "y60");
        row("from the ruler, tens", "", "top; shift 50 57; up", "y60");
        row("onto an edge", "", "left; to 157 50; up", "x160");
        row("onto the middle of the page", "", "top; to 9 133; up", "y136");
        row("between, Ctrl", "", "left; ctrl 157 50; up", "x157");
        row("edges are near in pixels", "", "left; to 237 136; up", "x237", 1, 0, 400);
        row("off the page", "", "left; to -20 50; up", "x-20");
        row("back to the ruler", "", "top; to 50 60; to 50 -999; up", "", 0);
        row("only pressed", "", "top; up", "", 0);
        row("from the ruler, Esc", "", "top; to 50 60; esc; to 50 80; up", "", 0);
        row("from the ruler, right", "", "top; to 50 60; right; to 50 80; up", "", 0);
        row("where one lies", "y60", "top; to 50 60; up", "y60", 0);
        row("too many", QString("y5 ").repeated(200).trimmed(), "top; to 50 60; up",
            QString("y5 ").repeated(200).trimmed(), 0);
        row("while hidden", "", "hide; top; to 50 60; up", "y60");
        row("move", all, "press 120+2 50; to 130 50; to 140 50; up", "x140 y9,locked");
        row("move at 3000 %", "x240", "press 240+2 136; to 243 136; up", "x243", 1, 0, 3000);
        row("move at 50 %", all, "press 120+4 250; to 300 250; up", "x300 y9,locked", 1, 0, 50);
        row("hand that trembles", all, "press 120 50; to 120+2 50; up", all, 0);
        row("there and back", all, "press 120 50; to 140 50; to 120 50; up", all, 0);
        row("away to the ruler", all, "press 120 50; to 60 50; to -999 50; up", "y9,locked");
        row("Esc", all, "press 120 50; to 140 50; esc; to 160 50; up", all, 0);
        row("right button", all, "press 120 50; to 140 50; right; to 160 50; up", all, 0);
        row("others change them", all, "press 120 50; to 140 50; other; to 160 50; up", "y1", 0);
        row("Delete", all, "press 120 50; up; del", "y9,locked");
        row("Delete, then another", all, "press 120 50; up; press 300 200; up; del", all, 0);
        row("Delete, then an item", all, "press 120 50; up; press 110 110; up; del", all, 0);
        row("Delete a locked one", all, "right 50 9; del", all, 0);
        row("drag a locked one", all, "press 50 9; to 50 40; up", all, 0);
        row("drag a hidden one", all, "hide; press 120 50; to 140 50; up", all, 0);
        row("reach", "x120", "press 120+5 50; to 140 50; up", "x140");
        row("out of reach", "x120", "press 120+6 50; to 140 50; up", "x120", 0);
        row("on an item", "x130", "press 130-3 110; to 150 110; up", "x150");
        row("item near a guide", "x130", "press 130-4 110; to 140-4 110; up", "x130", 1, 10);
        row("on a thin item", "x202", "press 202 110; to 212 110; up", "x202", 1, 10);
        row("on a thin item at 400 %", "x202", "press 202 110; to 212 110; up", "x212", 1, 0, 400);
        row("nearer of two", "x120 x123", "press 120+2 50; to 140 50; up", "x120 x140");
    }

    void gestures()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(int, commands);
        QFETCH(int, zoom);
        QFETCH(QString, steps);
        Page page(before, zoom);
        QCOMPARE(page.guides(), before);
        page.run(steps);
        QCOMPARE(page.guides(), after);
        const QUndoStack *stack = page.project->undoStack();
        QCOMPARE(stack->count(), commands);
        QTEST(int(page.box->x() + page.thin->x() - 300), "moved");
        QVERIFY(!page.view->isGestureActive());
        if (commands == 0)
            return;
        page.project->undoStack()->undo();
        QCOMPARE(page.guides(), before);
        page.project->undoStack()->redo();
        QCOMPARE(page.guides(), after);
    }

    void cursors()
    {
        Page page("x120 y70 x20,locked x130");
        QCOMPARE(page.cursorAt("120+5 50"), int(Qt::SplitHCursor));
        QCOMPARE(page.cursorAt("50 70"), int(Qt::SplitVCursor));
        QCOMPARE(page.cursorAt("20 50"), int(Qt::ArrowCursor));
        QCOMPARE(page.cursorAt("130 110"), int(Qt::SplitHCursor));
        QVERIFY(!page.view->screenScene()->viewOf(page.box)->isUnderMouse());
        const int item = page.cursorAt("150 110");
        QVERIFY(item != Qt::SplitHCursor);
        page.run("to 130 110; to 150 110"); // from the item onto the guide and back
        QCOMPARE(page.view->viewport()->cursor().shape(), Qt::CursorShape(item));
        QCOMPARE(page.cursorAt("300 200"), int(Qt::ArrowCursor));
        page.run("to 120 50; hide");
        QCOMPARE(page.view->viewport()->cursor().shape(), Qt::ArrowCursor);
    }

    void menuAndDialog()
    {
        Page page("x120 y70,locked");
        const auto choose = [&page](int guide, const QStringList &path) {
            QMenu menu;
            CGuideMenu guides(page.screen, page.view);
            guides.fill(&menu, guide);
            QList<QAction *> actions = menu.actions();
            for (const QString &word : path) {
                for (QAction *each : qAsConst(actions)) {
                    if (each->text().remove('&') != word)
                        continue;
                    if (each->menu())
                        actions = each->menu()->actions();
                    else if (each->isEnabled())
                        each->trigger();
                    break;
                }
            }
            return page.guides();
        };
        QCOMPARE(choose(1, {"Delete Guide"}), QString("x120 y70,locked"));
        QCOMPARE(choose(1, {"Locked"}), QString("x120 y70"));
        QCOMPARE(choose(0, {"Colour", "Orange"}), QString("x120,#f2872b y70"));
        QCOMPARE(choose(0, {"Colour", "Usual"}), QString("x120 y70"));
        const auto answer = [&page](int value) {
            QTimer::singleShot(0, page.view, [&page, value] {
                auto *dialog = page.view->findChild<QInputDialog *>();
                QVERIFY(dialog);
                dialog->setIntValue(value);
                dialog->accept();
            });
        };
        answer(77);
        QCOMPARE(choose(0, {"Position..."}), QString("x77 y70"));
        page.run("double 77 50; up");
        answer(-5); // after the one that opens it
        QTRY_COMPARE(page.guides(), QString("x-5 y70"));
        QCOMPARE(choose(0, {"Delete Guide"}), QString("y70"));
        CGuideEdits(page.screen).setAllLocked(true);
        QCOMPARE(page.guides(), QString("y70,locked"));
        CGuideEdits(page.screen).clear();
        CGuideEdits(page.screen).clear(); // nothing is no step
        QCOMPARE(page.project->undoStack()->count(), 8);
        while (page.project->undoStack()->canUndo())
            page.project->undoStack()->undo();
        QCOMPARE(page.guides(), QString("x120 y70,locked"));
    }

    void distances_data()
    {
        QTest::addColumn<QRectF>("to");
        QTest::addColumn<QString>("expected"); // of the box 100,100 60x40: lines, then leads
        QTest::newRow("page") << QRectF(0, 0, 480, 272)
                              << "100,120-0,120 160,120-480,120 130,100-130,0 130,140-130,272";
        QTest::newRow("right") << QRectF(172, 110, 20, 90) << "160,125-172,125";
        QTest::newRow("below, left") << QRectF(20, 150, 40, 40)
                                     << "100,120-60,120 130,140-130,150 | 60,120-60,150 "
                                        "130,150-60,150";
        QTest::newRow("overlapping")
            << QRectF(90, 100, 20, 50) << "100,120-90,120 160,120-110,120 105,140-105,150";
        QTest::newRow("equal") << QRectF(100, 100, 60, 40) << "";
        QTest::newRow("touching") << QRectF(160, 100, 60, 40) << "";
        QTest::newRow("less than half a pixel") << QRectF(160.4, 100, 60, 40) << "";
    }

    void distances()
    {
        QFETCH(QRectF, to);
        QFETCH(QString, expected);
        QStringList lines;
        QStringList leads;
        const auto text = [](const QLineF &line) {
            return QString("%1,%2-%3,%4")
                .arg(line.x1())
                .arg(line.y1())
                .arg(line.x2())
                .arg(line.y2());
        };
        for (const auto &each : MeasureRule::distances({100, 100, 60, 40}, to)) {
            QCOMPARE(each.length, int(each.line.length()));
            lines.append(text(each.line));
            if (!each.lead.isNull())
                leads.append(text(each.lead));
        }
        if (!leads.isEmpty())
            lines += QStringList("|") + leads;
        QCOMPARE(lines.join(' '), expected);
    }

    void measuring()
    {
        Page page;
        const auto lengths = [&page](const QString &step) {
            page.run(step);
            QStringList texts;
            for (const auto &each : page.view->measure().distances())
                texts.append(QString::number(each.length));
            return texts.join(' ');
        };
        QCOMPARE(lengths("alt 202 110"), QString()); // from nothing
        page.run("press 110 110; up");
        QCOMPARE(lengths("to 202 110"), QString());
        const QImage plain = page.view->viewport()->grab().toImage();
        QCOMPARE(lengths("alt 202 110"), QString("40")); // the thin one begins at 200
        QVERIFY(page.view->viewport()->grab().toImage() != plain);
        QCOMPARE(lengths("alt 300 250"), QString("100 320 100 132")); // the page
        QCOMPARE(lengths("alt 110 110"), QString("100 320 100 132")); // itself
        QTest::keyRelease(page.view, Qt::Key_Alt);
        QCOMPARE(lengths(""), QString());
        QCOMPARE(page.view->viewport()->grab().toImage(), plain);
        page.run("alt 202 110");
        page.page->setFocus();
        page.view->clearFocus();
        QCOMPARE(lengths(""), QString());
        QCOMPARE(page.project->undoStack()->count(), 0);
    }

    void picture()
    {
        CEditorState::instance()->setGrid(false, 20, Qt::white, Qt::SolidLine);
        const QColor colour(1, 200, 3);
        const QColor locked(200, 1, 3);
        Page page("x20,#01c803 y-9,#c80103", 137);
        CEditorState::instance()->setGrid(false, 20, Qt::white, Qt::SolidLine);
        const auto count = [&page](const QColor &wanted) {
            const QImage picture = page.view->viewport()->grab().toImage();
            int pixels = 0;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x)
                    pixels += picture.pixelColor(x, y) == wanted;
            }
            return pixels;
        };
        const QSize size = page.view->viewport()->size();
        QCOMPARE(count(colour), size.height() - 1); // all of it, and one crosses it
        QCOMPARE(count(locked), size.width());
        page.run("hide");
        QCOMPARE(count(colour) + count(locked), 0);
    }
};

QTEST_MAIN(tst_Guides)
#include "tst_guides.moc"
