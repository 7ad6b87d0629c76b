// What the user does to the selection and the view of a canvas: clicks, keys, menu, clipboard,
// zoom.
#include "CXmlGuard.h"
#include "CanvasFixture.h"
#include "ScreenDocuments.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <QWheelEvent>

class tst_CanvasEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init() { resetEditorState(); }

    void clicksSelect()
    {
        Canvas canvas;
        CItemModel *front = appendBox(canvas.screen, 100, 100, 40, 40);
        CItemModel *middle = appendBox(canvas.screen, 80, 80, 80, 80);
        CItemModel *back = appendBox(canvas.screen, 60, 60, 120, 120);
        canvas.show();
        const auto selected = [&canvas] { return canvas.view->selectedItems(); };
        using Items = QVector<CItemModel *>;
        canvas.click({120, 120});
        QCOMPARE(selected(), Items({front}));
        canvas.click({70, 70}, Qt::ShiftModifier);
        QCOMPARE(selected(), Items({front, back}));
        canvas.click({90, 90}, Qt::ControlModifier);
        QCOMPARE(selected(), Items({front, middle, back}));
        canvas.click({400, 20});
        QCOMPARE(selected(), Items());
        for (CItemModel *expected : {front, middle, back, front}) {
            canvas.click({120, 125}, Qt::AltModifier);
            QCOMPARE(selected(), Items({expected}));
        }
        for (CItemModel *expected : {middle, back, front}) {
            QTest::keyClick(canvas.view.get(), Qt::Key_Tab);
            QCOMPARE(selected(), Items({expected}));
        }
        QTest::keyClick(canvas.view.get(), Qt::Key_Tab, Qt::ShiftModifier); // leaves the canvas
        QCOMPARE(selected(), Items({front}));
        canvas.drag({50, 50}, {190, 190}); // a rubber band
        QCOMPARE(selected(), Items({front, middle, back}));
        for (const Qt::KeyboardModifier adds : {Qt::ShiftModifier, Qt::ControlModifier}) {
            canvas.select({front});
            canvas.drag({10, 10}, {62, 62}, adds); // reaches no more than the corner of one
            QCOMPARE(selected(), Items({front, back}));
        }
        canvas.view->commands()->selectAll();
        canvas.view->commands()->selectInverse();
        QCOMPARE(selected(), Items());
        canvas.mouse(QEvent::MouseButtonPress, {70, 70}, Qt::RightButton, Qt::RightButton);
        QCOMPARE(selected(), Items({back}));
        QCOMPARE(canvas.stack.count(), 0);
    }

    void nudges()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
        CItemModel *line = appendWidget(canvas.screen, "Kiv_Line_T",
                                        {{PropertyKey::X, 10}, {PropertyKey::X2, 60}});
        canvas.show();
        canvas.select({item});
        QTest::keyClick(canvas.view.get(), Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(item->x(), 99.0);
        QTest::keyClick(canvas.view.get(), Qt::Key_Down);
        QCOMPARE(item->y(), 120.0);
        QTest::keyClick(canvas.view.get(), Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(item->y(), 100.0);
        QCOMPARE(canvas.stack.count(), 3);
        canvas.select({item, line});
        QTest::keyClick(canvas.view.get(), Qt::Key_Right);
        QCOMPARE(item->x(), 119.0);
        QCOMPARE(line->x(), 30.0);
        QCOMPARE(line->x2(), 80.0);
        QCOMPARE(canvas.stack.count(), 4); // one step for both
        canvas.select({line});
        CEditorState::instance()->setNudgeSteps(7, 3);
        QTest::keyClick(canvas.view.get(), Qt::Key_Right);
        QTest::keyClick(canvas.view.get(), Qt::Key_Left, Qt::ShiftModifier);
        CEditorState::instance()->setNudgeSteps(20, 1);
        QCOMPARE(line->x(), 34.0);
        QCOMPARE(canvas.stack.text(4), QString("Move Object"));
    }

    void groupsBeginAtTheirCorner()
    {
        Canvas canvas;
        QVector<CItemModel *> items;
        for (int index = 0; index < 4; ++index)
            items.append(appendBox(canvas.screen, 40 * index, 20 * index, 30, 20));
        canvas.show();
        const QByteArray before = savedBytes(*canvas.project);
        canvas.select({items.at(0), items.at(1)});
        canvas.view->orderingToFront(); // they are there
        QCOMPARE(canvas.stack.count(), 0);
        canvas.select({items.at(1), items.at(3)});
        canvas.view->group();
        const CItemModel *group = canvas.screen->childItem(1);
        QCOMPARE(QPointF(group->x(), group->y()), QPointF(40, 20));
        canvas.checkOneStep(before);
    }

    void clipboard()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
        item->setProperty(PropertyKey::Id, 7);
        item->setProperty(PropertyKey::Name, "Lamp");
        canvas.show();
        canvas.select({item});
        canvas.view->copy();
        const QByteArray before = savedBytes(*canvas.project);
        canvas.view->paste();
        QCOMPARE(canvas.screen->rowCount(), 2);
        CItemModel *pasted = canvas.screen->childItem(0);
        QCOMPARE(pasted->name(), QString("Lamp 2"));
        QCOMPARE(pasted->id(), 1u);
        QCOMPARE(rectOf(pasted), rectOf(item).translated(10, 10)); // the same lies there
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({pasted}));
        canvas.checkOneStep(before);
        canvas.view->paste();
        QCOMPARE(canvas.screen->childItem(0)->name(), QString("Lamp 3"));
        using Names = std::pair<const char *, const char *>;
        for (const auto &[name, next] :
             {Names("Room 101", "Room 102"), Names("", ""), Names("Lamp", "Lamp 4")}) {
            item->setProperty(PropertyKey::Name, name);
            canvas.select({item});
            canvas.view->copy();
            canvas.view->paste();
            QCOMPARE(canvas.screen->childItem(0)->name(), QString(next));
            canvas.stack.undo();
        }
        QCOMPARE(canvas.screen->childItem(0)->id(), 2u);
        QCOMPARE(rectOf(canvas.screen->childItem(0)), rectOf(item).translated(20, 20));
        item->setProperty(PropertyKey::X, 200);
        canvas.view->paste(); // now its place is free
        QCOMPARE(rectOf(canvas.screen->childItem(0)), QRectF(100, 100, 40, 30));
        canvas.stack.undo();
        canvas.project->setProjectProperty("width", "120");
        canvas.view->paste(); // the page is smaller than the one that it comes from
        QCOMPARE(rectOf(canvas.screen->childItem(0)), QRectF(80, 100, 40, 30));
        canvas.view->paste(); // aside, where there is room
        QCOMPARE(rectOf(canvas.screen->childItem(0)), QRectF(70, 90, 40, 30));
        canvas.stack.undo();
        canvas.stack.undo();
        canvas.project->setProjectProperty("width", "480");
        item->setProperty(PropertyKey::X, 100);
        canvas.select({item});
        canvas.view->cut();
        QCOMPARE(canvas.screen->rowCount(), 2);
        QVERIFY(!canvas.viewOf(item));
        canvas.stack.setIndex(0);
        QCOMPARE(savedBytes(*canvas.project), before);
    }

    /// A row: once, moved, and again as often as wanted. What is chosen anew begins anew.
    void duplicates()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
        item->setLocked(true);
        canvas.show();
        canvas.select({item});
        CSelectionCommands *commands = canvas.view->commands();
        const auto front = [&canvas] { return canvas.screen->childItem(0); };
        commands->duplicate();
        QCOMPARE(rectOf(front()), QRectF(110, 110, 40, 30));
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({front()}));
        commands->nudge(50, -10);
        QStringList names;
        for (const int x : {220, 280, 340}) {
            commands->duplicate();
            QCOMPARE(rectOf(front()), QRectF(x, 100, 40, 30));
            names << front()->name();
        }
        const QString stem = item->name();
        QCOMPARE(names, QStringList({stem + " 3", stem + " 4", stem + " 5"}));
        QVERIFY(!front()->isLocked());
        QCOMPARE(canvas.stack.undoText(), QString("Duplicate"));
        canvas.stack.undo();
        QCOMPARE(canvas.screen->rowCount(), 4);
        canvas.select({item});
        commands->copy();
        commands->pasteInPlace();
        QCOMPARE(rectOf(front()), rectOf(item));
        canvas.select({item});
        commands->duplicate();
        QCOMPARE(rectOf(front()), QRectF(110, 110, 40, 30));
        canvas.stack.setIndex(0);
        QCOMPARE(canvas.screen->rowCount(), 1);
    }

    void rejectedPastes_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QString>("told");
        const auto items = [](const char *name, const QByteArray &inside, const char *told) {
            const QByteArray xml = "<CopyXML>" + inside + "</CopyXML>";
            QTest::newRow(name) << QStringLiteral("widget-copy")
                                << ScreenDocuments::toClipboard(xml) << QString::fromLatin1(told);
        };
        QByteArray attributes;
        for (int i = 0; i < 510; ++i)
            attributes += " a" + QByteArray::number(i) + "=''";
        QTest::newRow("a text") << QStringLiteral("text/plain") << QByteArray("Lamp")
                                << QStringLiteral("neither widgets nor pages");
        QTest::newRow("damaged") << QStringLiteral("widget-copy") << QByteArray("\0\0\1\0a", 5)
                                 << QStringLiteral("nothing in it");
        items("no widget", "", "no widget in it");
        items("too deep",
              QByteArray("<Widget_Group_T>").repeated(CXmlGuard::MaxDepth - 1) +
                  QByteArray("</Widget_Group_T>").repeated(CXmlGuard::MaxDepth - 1),
              "256 levels");
        items("more attributes than are saved", "<Kiv_Rectangle_T" + attributes + "/>",
              "512 attributes");
    }

    /// Nothing has changed then, and the user knows why.
    void rejectedPastes()
    {
        QFETCH(QString, format);
        QFETCH(QByteArray, data);
        QFETCH(QString, told);
        Canvas canvas;
        canvas.show();
        const QByteArray before = savedBytes(*canvas.project);
        auto *copied = new QMimeData;
        copied->setData(format, data);
        QGuiApplication::clipboard()->setMimeData(copied);
        const QSignalSpy message(canvas.view.get(), &CScreenView::message);
        canvas.view->paste();
        QCOMPARE(message.count(), 1);
        QVERIFY2(message.at(0).at(0).toString().contains(told),
                 qPrintable(message.at(0).at(0).toString()));
        QCOMPARE(savedBytes(*canvas.project), before);
        QCOMPARE(canvas.stack.count(), 0);
    }

    void screenAndViewFollowEachOther()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
        canvas.show();
        item->setProperty(PropertyKey::X, 140);
        item->setProperty(PropertyKey::Width, 55);
        QCOMPARE(canvas.viewOf(item)->sceneRect(), QRectF(140, 100, 55, 30));
        CItemModel *behind = appendBox(canvas.screen, 150, 110, 90, 90);
        canvas.select({item});
        QVERIFY(canvas.viewOf(behind)->isHighlighted());
        QVERIFY(!canvas.viewOf(item)->isHighlighted());

        QSignalSpy zoomed(canvas.view.get(), QOverload<int>::of(&CScreenView::zoomChanged));
        canvas.view->resize(800, 400);
        canvas.view->zoom(100, 1);
        QCOMPARE(canvas.view->zoomPercent(), 147);
        QCOMPARE(canvas.view->scale(), 1.47);
        canvas.view->resize(96, 400);
        QCOMPARE(canvas.view->zoomPercent(), 20); // fitted values know no limits
        canvas.view->zoom(20, 0);
        QCOMPARE(canvas.view->zoomPercent(), 50);
        QCOMPARE(canvas.view->scale(), 0.5);
        QVERIFY(zoomed.count() >= 3);

        canvas.screen->removeRow(0);
        QVERIFY(!canvas.viewOf(item));
        QCOMPARE(canvas.view->screenScene()->itemViews(), {canvas.viewOf(behind)});
    }

    void wheel()
    {
        Canvas canvas;
        canvas.show();
        const auto turn = [&canvas](int delta, Qt::KeyboardModifiers modifiers) {
            const QPointF at = canvas.at({300, 200});
            QWheelEvent event(at, canvas.view->viewport()->mapToGlobal(at.toPoint()), {},
                              {0, delta}, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(canvas.view->viewport(), &event);
        };
        turn(120, Qt::ControlModifier);
        QCOMPARE(canvas.view->zoomPercent(), 110);
        canvas.view->zoom(300, 0); // about the middle, also from where nothing could be scrolled
        const QPoint middle = canvas.view->viewport()->rect().center();
        QVERIFY((canvas.at({240, 136}) - middle).manhattanLength() <= 4);
        const QPoint under = canvas.at({300, 200});
        turn(-120, Qt::ControlModifier);
        QCOMPARE(canvas.view->zoomPercent(), 270);
        QVERIFY((canvas.at({300, 200}) - under).manhattanLength() <= 2);
        const int x = canvas.view->horizontalScrollBar()->value();
        const int y = canvas.view->verticalScrollBar()->value();
        turn(-120, Qt::ShiftModifier);
        QVERIFY(canvas.view->horizontalScrollBar()->value() > x);
        QCOMPARE(canvas.view->verticalScrollBar()->value(), y);
        canvas.view->zoom(0, 1);
        const int fitted = canvas.view->zoomPercent();
        turn(120, Qt::ControlModifier);
        QCOMPARE(canvas.view->zoomPercent(), fitted);
    }

    void panning()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 180, 100, 120, 70); // under the pointer
        canvas.show();
        canvas.view->zoom(400, 0);
        const QByteArray before = savedBytes(*canvas.project);
        const auto origin = [&canvas] { return canvas.at({0, 0}); };
        const auto viewportDrag = [&canvas](Qt::MouseButton button, QPoint from, QPoint by) {
            for (const auto &[type, pos] : {qMakePair(QEvent::MouseButtonPress, from),
                                            qMakePair(QEvent::MouseMove, from + by),
                                            qMakePair(QEvent::MouseButtonRelease, from + by)}) {
                QMouseEvent event(type, pos, canvas.view->viewport()->mapToGlobal(pos), button,
                                  button, {});
                QCoreApplication::sendEvent(canvas.view->viewport(), &event);
            }
        };
        const QPoint start = origin();
        viewportDrag(Qt::MiddleButton, {300, 300}, {30, -20});
        QCOMPARE(origin(), start + QPoint(30, -20));
        QTest::keyPress(canvas.view.get(), Qt::Key_Space);
        viewportDrag(Qt::LeftButton, {300, 300}, {-40, 10});
        QTest::keyRelease(canvas.view.get(), Qt::Key_Space);
        QCOMPARE(origin(), start + QPoint(-10, -10));
        QVERIFY(!canvas.viewOf(item)->isSelected());
        QCOMPARE(savedBytes(*canvas.project), before);
        viewportDrag(Qt::LeftButton, {300, 300},
                     {-40, 10}); // Space is up again: this moves the item
        QCOMPARE(origin(), start + QPoint(-10, -10));
        QVERIFY(savedBytes(*canvas.project) != before);
        CItemModel *far = appendBox(canvas.screen, 440, 250, 20, 10);
        QTest::keyClick(canvas.view.get(), Qt::Key_Tab); // what it selects comes into sight
        QVERIFY(canvas.viewOf(far)->isSelected());
        QVERIFY(canvas.view->viewport()->rect().contains(canvas.at({450, 255})));
    }

    void thePreviousZoomComesBack()
    {
        Canvas canvas;
        canvas.show();
        const auto middle = [&] {
            return canvas.view->mapToScene(canvas.view->viewport()->rect().center());
        };
        CEditorState::instance()->setZoom(400, 0);
        canvas.view->centerOn(120, 90);
        const QPointF near = middle();
        canvas.view->showPreviousZoom();
        QCOMPARE(canvas.view->zoomPercent(), 100);
        canvas.view->showPreviousZoom();
        QCOMPARE(canvas.view->zoomPercent(), 400);
        QVERIFY((middle() - near).manhattanLength() < 2);
    }

    void contextMenu()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
        CItemModel *other = appendBox(canvas.screen, 200, 100, 40, 30);
        canvas.show();
        QGuiApplication::clipboard()->clear();
        QStringList enabled;
        const auto open = [&](QPointF pos) {
            enabled.clear();
            QTimer::singleShot(0, [&] {
                auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
                QVERIFY(menu);
                for (const QAction *each : menu->actions()) {
                    if (each->isEnabled() && !each->isSeparator())
                        enabled.append(each->text());
                }
                menu->close();
            });
            canvas.mouse(QEvent::MouseButtonPress, pos, Qt::RightButton, Qt::RightButton);
            QContextMenuEvent event(QContextMenuEvent::Mouse, canvas.at(pos), QPoint(50, 50));
            QCoreApplication::sendEvent(canvas.view->viewport(), &event);
        };
        open({10, 10});
        QCOMPARE(enabled, QStringList());
        open({110, 110});
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({item}));
        QVERIFY(enabled.contains("Cut") && !enabled.contains("Paste"));
        canvas.select({item, other});
        canvas.view->copy();
        open({210, 110}); // on one of several selected items: they stay selected
        QVERIFY(enabled.contains("Lock/Unlock Multiple") && enabled.contains("Paste") &&
                enabled.contains("Group Selected") && !enabled.contains("Ungroup"));
        open({110, 110});
        QVERIFY(!enabled.contains("Bring to Front") && !enabled.contains("Send Backward"));
        canvas.select({other});
        other->setLocked(true);
        open({210, 110}); // it is behind the other; a lock keeps its place
        QVERIFY(enabled.contains("Bring Forward") && !enabled.contains("Send to Back"));
        QVERIFY(enabled.contains("Cut"));
        canvas.select({item, other});
        canvas.view->group();
        open({110, 110});
        QVERIFY(enabled.contains("Ungroup") && !enabled.contains("Group Selected"));
    }
};

QTEST_MAIN(tst_CanvasEditing)
#include "tst_canvasediting.moc"
