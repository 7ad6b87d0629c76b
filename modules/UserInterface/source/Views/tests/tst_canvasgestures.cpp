// What the user does on the canvas, with real mouse and key events on a shown view.
#include "CEditorState.h"
#include "CItemView.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CWidgetSelectionView.h"
#include "CanvasRoles.h"
#include "CanvasTestSupport.h"

#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QUndoStack>

#include <cmath>

namespace {
/// A project with one screen, shown.
struct Canvas
{
    std::unique_ptr<CProjectModel> project = newTestProject();
    CScreenModel *screen = project->screen(0);
    QUndoStack &stack = *project->undoStack();
    std::unique_ptr<CScreenView> view;

    void show()
    {
        view = std::make_unique<CScreenView>(screen);
        view->resize(760, 560);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }
    QPoint at(QPointF scenePos) const { return view->mapFromScene(scenePos); }
    void mouse(QEvent::Type type, QPointF scenePos, Qt::MouseButton button,
               Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QPoint pos = at(scenePos);
        QMouseEvent event(type, pos, view->viewport()->mapToGlobal(pos), button, buttons,
                          modifiers);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
    void press(QPointF pos, Qt::KeyboardModifiers modifiers = {}) const
    {
        mouse(QEvent::MouseButtonPress, pos, Qt::LeftButton, Qt::LeftButton, modifiers);
    }
    void move(QPointF pos, Qt::KeyboardModifiers modifiers = {}) const
    {
        mouse(QEvent::MouseMove, pos, Qt::NoButton, Qt::LeftButton, modifiers);
    }
    void release(QPointF pos, Qt::KeyboardModifiers modifiers = {}) const
    {
        mouse(QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton, modifiers);
    }
    void click(QPointF pos, Qt::KeyboardModifiers modifiers = {}) const
    {
        press(pos, modifiers);
        release(pos, modifiers);
    }
    void drag(QPointF from, QPointF to, Qt::KeyboardModifiers modifiers = {}) const
    {
        press(from, modifiers);
        for (int step = 1; step <= 4; ++step)
            move(from + (to - from) * step / 4, modifiers);
        release(to, modifiers);
    }
    /// The last step is undone and done again: the same bytes as before and after it.
    void checkOneStep(const QByteArray &before) const
    {
        const QByteArray after = savedBytes(*project);
        QVERIFY(!after.isEmpty());
        QVERIFY(after != before);
        QCOMPARE(stack.count(), 1);
        stack.undo();
        QCOMPARE(savedBytes(*project), before);
        stack.redo();
        QCOMPARE(savedBytes(*project), after);
    }
    void select(const QVector<CItemModel *> &items) const
    {
        view->screenScene()->selectModelItems(items);
    }
    CItemView *viewOf(const CItemModel *item) const { return view->screenScene()->viewOf(item); }
};

QRectF rectOf(const CItemModel *item)
{
    return {item->x(), item->y(), item->width(), item->height()};
}
} // namespace

class tst_CanvasGestures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void everyHandleIsOneStep_data();
    void everyHandleIsOneStep();
    void aDragSnaps_data();
    void aDragSnaps();
    void severalItemsMoveTogether();
    void aGroupMovesItsMembers();
    void aLockedItemStays();
    void escapeRestoresTheStart();
    void aClickChangesNothing();
    void rotation();
    void pointsOfALine();
    void coveredHandlesCanBeDragged();
    void clicksSelect();
    void nudges();
    void orderAndGroups();
    void clipboard();
    void dropsFromThePalette();
    void screenAndViewFollowEachOther();
};

void tst_CanvasGestures::initTestCase()
{
    loadWidgetLibrary();
}

void tst_CanvasGestures::init()
{
    CEditorState::instance()->setSnapToGrid(true);
    CEditorState::instance()->setGrid(true, 20, Qt::red, Qt::SolidLine);
    CEditorState::instance()->setZoom(100, 0);
}

void tst_CanvasGestures::everyHandleIsOneStep_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("handle");
    const QStringList types = {"Kiv_Rectangle_T", "Kiv_Circle_T", "Kiv_Ring_T",
                               "Kiv_Line_T",      "Kiv_Toggle_T", "Kiv_Text_T"};
    for (const QString &type : types) {
        for (int handle = 0; handle < 8; ++handle)
            QTest::addRow("%s %d", qPrintable(type), handle) << type << handle;
    }
}

void tst_CanvasGestures::everyHandleIsOneStep()
{
    QFETCH(QString, type);
    QFETCH(int, handle);
    Canvas canvas;
    CItemModel *item = appendWidget(
        canvas.screen, type, {{PropertyKey::X, 200}, {PropertyKey::Y, 150}, {PropertyKey::Id, 1}});
    if (item->geometryMode() == GeometryMode::TwoCorners) {
        item->setProperty(PropertyKey::X2, 260);
        item->setProperty(PropertyKey::Y2, 190);
    }
    if (item->hasAngle())
        item->setProperty(PropertyKey::Angle, 0);
    canvas.show();
    canvas.select({item});
    const QByteArray before = savedBytes(*canvas.project);
    QGraphicsItem *dragged = nullptr;
    int seen = 0;
    for (QGraphicsItem *child : canvas.viewOf(item)->childItems()) {
        if (child->data(CanvasRole::RoleKey).toInt() != CanvasRole::Handle)
            continue;
        if (seen++ == handle)
            dragged = child;
    }
    QVERIFY(dragged);
    if (!dragged->isVisible()) { // the height is not the item's own
        QCOMPARE(type, QString("Kiv_Toggle_T"));
        QVERIFY(handle == 0 || handle == 4);
        return;
    }
    const QPointF at = dragged->scenePos();
    canvas.drag(at, at + QPointF(12, 8));
    canvas.checkOneStep(before);
    QCOMPARE(canvas.stack.text(0), QString("Resize Item"));
    for (const double number : {item->x(), item->y(), item->width(), item->height()})
        QCOMPARE(number, std::round(number));
    QCOMPARE(canvas.viewOf(item)->pos(), QPointF(item->x(), item->y()));
}

void tst_CanvasGestures::aDragSnaps_data()
{
    QTest::addColumn<QPointF>("by");
    QTest::addColumn<QPointF>("expected");
    // A box at (100, 100), another from (223, 47) to (263, 77), so with the centre (243, 62);
    // the grid lies at 20s.
    QTest::newRow("to the grid") << QPointF(33, 27) << QPointF(140, 120);
    QTest::newRow("to an edge") << QPointF(122, 4) << QPointF(223, 100);
    QTest::newRow("to the other edge") << QPointF(164, 24) << QPointF(263, 120);
    QTest::newRow("to the centre") << QPointF(144, -39) << QPointF(243, 62);
    QTest::newRow("back to where it was") << QPointF(4, -4) << QPointF(100, 100);
    QTest::newRow("beyond the screen") << QPointF(-131, -149) << QPointF(-40, -40);
}

void tst_CanvasGestures::aDragSnaps()
{
    QFETCH(QPointF, by);
    QFETCH(QPointF, expected);
    Canvas canvas;
    CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
    appendBox(canvas.screen, 223, 47, 40, 30);
    canvas.show();
    const QByteArray before = savedBytes(*canvas.project);
    canvas.drag({110, 110}, QPointF(110, 110) + by);
    QCOMPARE(QPointF(item->x(), item->y()), expected);
    QCOMPARE(canvas.viewOf(item)->pos(), expected);
    if (expected == QPointF(100, 100)) {
        QCOMPARE(canvas.stack.count(), 0);
        QCOMPARE(savedBytes(*canvas.project), before);
    } else {
        canvas.checkOneStep(before);
        QCOMPARE(canvas.stack.text(0), QString("Move Selected Items"));
    }
}

void tst_CanvasGestures::severalItemsMoveTogether()
{
    Canvas canvas;
    CItemModel *first = appendBox(canvas.screen, 100, 100, 40, 30);
    CItemModel *line = appendWidget(
        canvas.screen, "Kiv_Line_T",
        {{PropertyKey::X, 13}, {PropertyKey::Y, 7}, {PropertyKey::X2, 53}, {PropertyKey::Y2, 9}});
    CItemModel *locked = appendBox(canvas.screen, 300, 200, 40, 30);
    canvas.show();
    locked->setLocked(true);
    canvas.select({first, line, locked});
    const QByteArray before = savedBytes(*canvas.project);
    canvas.drag({110, 110}, {141, 131});
    QCOMPARE(rectOf(first), QRectF(140, 120, 40, 30));
    QCOMPARE(QPointF(line->x(), line->y()), QPointF(53, 27));
    QCOMPARE(QPointF(line->x2(), line->y2()), QPointF(93, 29));
    QCOMPARE(rectOf(locked), QRectF(300, 200, 40, 30));
    canvas.checkOneStep(before);

    // Without snapping everything follows the pointer by whole units.
    canvas.stack.undo();
    CEditorState::instance()->setSnapToGrid(false);
    canvas.drag({110, 110}, {123, 114});
    QCOMPARE(QPointF(first->x(), first->y()), QPointF(113, 104));
    QCOMPARE(QPointF(line->x2(), line->y2()), QPointF(66, 13));
    canvas.stack.undo();
    QCOMPARE(savedBytes(*canvas.project), before);

    canvas.drag({110, 110}, {150, 150}, Qt::ShiftModifier); // selects, moves nothing
    QCOMPARE(savedBytes(*canvas.project), before);
}

void tst_CanvasGestures::aGroupMovesItsMembers()
{
    Canvas canvas;
    CItemModel *box = appendBox(canvas.screen, 100, 100, 40, 30);
    CItemModel *other = appendBox(canvas.screen, 150, 120, 20, 20);
    canvas.show();
    canvas.select({box, other});
    canvas.view->group();
    canvas.stack.clear();
    const QByteArray before = savedBytes(*canvas.project);
    canvas.drag({110, 110}, {151, 129}); // a press on a member acts on the group
    QCOMPARE(rectOf(box), QRectF(140, 120, 40, 30));
    QCOMPARE(rectOf(other), QRectF(190, 140, 20, 20));
    canvas.checkOneStep(before);
}

void tst_CanvasGestures::aLockedItemStays()
{
    Canvas canvas;
    CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
    canvas.show();
    canvas.select({item});
    canvas.view->lockItems();
    QVERIFY(item->isLocked());
    const QByteArray before = savedBytes(*canvas.project);
    canvas.drag({110, 110}, {190, 190});
    canvas.drag({140, 130}, {190, 190}); // where its handle would be
    QTest::keyClick(canvas.view.get(), Qt::Key_Left);
    QCOMPARE(savedBytes(*canvas.project), before);
    QCOMPARE(canvas.stack.count(), 0);
    canvas.select({item});
    canvas.view->lockItems();
    canvas.drag({110, 110}, {150, 110});
    QCOMPARE(item->x(), 140.0);
}

void tst_CanvasGestures::escapeRestoresTheStart()
{
    Canvas canvas;
    CItemModel *item = appendBox(canvas.screen, 103, 107, 40, 30);
    canvas.show();
    canvas.select({item});
    const QByteArray before = savedBytes(*canvas.project);
    const QVector<QPointF> grips = {{120, 120}, {143, 137}, {103, 107}}; // body and two handles
    for (const QPointF &grip : grips) {
        canvas.press(grip);
        canvas.move(grip + QPointF(30, 30));
        canvas.move(grip + QPointF(50, 50));
        QVERIFY(savedBytes(*canvas.project) != before); // it follows live
        QVERIFY(canvas.view->isGestureActive());
        QTest::keyClick(canvas.view.get(), Qt::Key_Escape);
        QCOMPARE(savedBytes(*canvas.project), before);
        QCOMPARE(canvas.viewOf(item)->pos(), QPointF(103, 107));
        canvas.move(grip + QPointF(70, 70)); // the button is still held
        canvas.release(grip + QPointF(70, 70));
        QCOMPARE(savedBytes(*canvas.project), before);
        QCOMPARE(canvas.stack.count(), 0);
        QVERIFY(!canvas.view->isGestureActive());
    }
}

void tst_CanvasGestures::aClickChangesNothing()
{
    Canvas canvas;
    CItemModel *item = appendBox(canvas.screen, 103, 107, 40, 30); // on no line of the grid
    canvas.show();
    const QByteArray before = savedBytes(*canvas.project);
    canvas.press({110, 110});
    canvas.move({111, 110}); // a trembling hand
    canvas.release({111, 110});
    canvas.click({143, 137}); // a handle
    QCOMPARE(savedBytes(*canvas.project), before);
    QCOMPARE(canvas.stack.count(), 0);
    QVERIFY(canvas.viewOf(item)->isSelected());
}

void tst_CanvasGestures::rotation()
{
    Canvas canvas;
    CItemModel *item = appendBox(canvas.screen, 200, 150, 60, 40);
    canvas.show();
    canvas.select({item});
    const QByteArray before = savedBytes(*canvas.project);
    canvas.drag({230, 128}, {272, 170}); // from above the centre (230, 170) to its right
    QCOMPARE(item->angle(), 90.0);
    QCOMPARE(rectOf(item), QRectF(200, 150, 60, 40));
    canvas.checkOneStep(before);
    QCOMPARE(canvas.stack.text(0), QString("Rotate Item"));
    canvas.stack.undo();
    canvas.drag({230, 128}, {250, 135}, Qt::ShiftModifier);
    QCOMPARE(item->angle(), 30.0);
}

void tst_CanvasGestures::pointsOfALine()
{
    Canvas canvas;
    CItemModel *line = appendWidget(
        canvas.screen, "Kiv_Polyline_T",
        {{PropertyKey::X, 100}, {PropertyKey::Y, 100}, {PropertyKey::PointList, "0,0;80,0;80,60"}});
    canvas.show();
    canvas.select({line});
    const QByteArray before = savedBytes(*canvas.project);
    const auto points = [line] { return line->propertyText(PropertyKey::PointList); };

    canvas.drag({180, 100}, {190, 90});
    QCOMPARE(points(), QString("0,0;90,-10;80,60"));
    canvas.checkOneStep(before);
    QVERIFY(canvas.stack.text(0).startsWith("Change Property"));
    canvas.stack.undo();

    canvas.click({140, 103}, Qt::ShiftModifier);
    QCOMPARE(points(), QString("0,0;40,3;80,0;80,60"));
    canvas.checkOneStep(before);
    QCOMPARE(canvas.stack.text(0), QString("Add Point"));
    QVERIFY(canvas.viewOf(line)->isSelected());
    canvas.stack.undo();

    canvas.click({180, 100}, Qt::ControlModifier);
    QCOMPARE(points(), QString("0,0;80,60"));
    canvas.checkOneStep(before);
    canvas.click({100, 100}, Qt::ControlModifier); // two points are the fewest
    QCOMPARE(points(), QString("0,0;80,60"));
}

void tst_CanvasGestures::coveredHandlesCanBeDragged()
{
    Canvas canvas;
    appendBox(canvas.screen, 130, 120, 60, 60); // in front, over the handle
    CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
    canvas.show();
    canvas.select({item});
    canvas.drag({140, 130}, {150, 145});
    QCOMPARE(rectOf(item), QRectF(100, 100, 50, 45));
}

void tst_CanvasGestures::clicksSelect()
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
    canvas.drag({50, 50}, {190, 190}); // a rubber band
    QCOMPARE(selected(), Items({front, middle, back}));
    canvas.view->selectInverse();
    QCOMPARE(selected(), Items());
    canvas.mouse(QEvent::MouseButtonPress, {70, 70}, Qt::RightButton, Qt::RightButton);
    QCOMPARE(selected(), Items({back}));
    QCOMPARE(canvas.stack.count(), 0);
}

void tst_CanvasGestures::nudges()
{
    Canvas canvas;
    CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
    CItemModel *line =
        appendWidget(canvas.screen, "Kiv_Line_T", {{PropertyKey::X, 10}, {PropertyKey::X2, 60}});
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
    QTest::keyClick(canvas.view.get(), Qt::Key_Right);
    QCOMPARE(canvas.stack.text(4), QString("Move Object"));
}

void tst_CanvasGestures::orderAndGroups()
{
    Canvas canvas;
    QVector<CItemModel *> items;
    for (int index = 0; index < 5; ++index)
        items.append(appendBox(canvas.screen, 40 * index, 20 * index, 30, 20));
    canvas.show();
    const auto order = [&canvas, &items] {
        QString text;
        for (int row = 0; row < canvas.screen->rowCount(); ++row)
            text += QString::number(items.indexOf(canvas.screen->childItem(row)));
        return text;
    };
    const QByteArray before = savedBytes(*canvas.project);
    struct Case
    {
        void (CScreenView::*operation)();
        QVector<int> selected;
        QString expected;
    };
    const QVector<Case> cases = {
        {&CScreenView::orderingToFront, {2, 4}, "24013"},
        {&CScreenView::orderingToBack, {0, 2}, "13402"},
        {&CScreenView::orderingForward, {1, 2}, "12034"},
        {&CScreenView::orderingForward, {0, 1, 4}, "01243"},
        {&CScreenView::orderingBackward, {2, 3}, "01423"},
        {&CScreenView::orderingBackward, {0, 3, 4}, "10234"},
    };
    for (const Case &each : cases) {
        QVector<CItemModel *> selected;
        for (const int index : each.selected)
            selected.append(items.at(index));
        canvas.select(selected);
        (canvas.view.get()->*each.operation)();
        QCOMPARE(order(), each.expected);
        QCOMPARE(canvas.view->selectedItems().size(), selected.size());
        canvas.stack.undo();
        QCOMPARE(savedBytes(*canvas.project), before);
    }
    canvas.stack.clear();
    canvas.select({items.at(0), items.at(1)});
    canvas.view->orderingToFront(); // they are there
    QCOMPARE(canvas.stack.count(), 0);

    canvas.select({items.at(1), items.at(3)});
    canvas.view->group();
    CItemModel *group = canvas.screen->childItem(1);
    QCOMPARE(group->kind(), CItemModel::Kind::Group);
    QCOMPARE(group->childItem(0), items.at(1));
    QCOMPARE(group->childItem(1), items.at(3));
    QCOMPARE(QPointF(group->x(), group->y()), QPointF(40, 20));
    QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({group}));
    canvas.checkOneStep(before);
    const QByteArray grouped = savedBytes(*canvas.project);
    canvas.select({canvas.screen->childItem(1)});
    canvas.view->ungroup();
    QCOMPARE(order(), QString("01324"));
    QCOMPARE(canvas.view->selectedItems().size(), 2);
    canvas.stack.undo();
    QCOMPARE(savedBytes(*canvas.project), grouped);
    canvas.stack.undo();
    QCOMPARE(savedBytes(*canvas.project), before);
}

void tst_CanvasGestures::clipboard()
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
    QCOMPARE(rectOf(pasted), rectOf(item));
    QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({pasted}));
    canvas.checkOneStep(before);
    canvas.view->paste();
    QCOMPARE(canvas.screen->childItem(0)->name(), QString("Lamp 3"));
    QCOMPARE(canvas.screen->childItem(0)->id(), 2u);
    canvas.select({item});
    canvas.view->cut();
    QCOMPARE(canvas.screen->rowCount(), 2);
    QVERIFY(!canvas.viewOf(item));
    canvas.stack.setIndex(0);
    QCOMPARE(savedBytes(*canvas.project), before);
}

void tst_CanvasGestures::dropsFromThePalette()
{
    Canvas canvas;
    canvas.show();
    const QByteArray before = savedBytes(*canvas.project);
    CWidgetSelectionView palette;
    palette.setToolbox(CWidgetLibraryManager::instance().toolboxModel(0x110),
                       CWidgetLibraryManager::instance().libraryModel(0x110));
    const auto dropData = [&canvas](const QMimeData &dropped, QPointF scenePos) {
        QDragEnterEvent enter(canvas.at(scenePos), Qt::CopyAction, &dropped, Qt::LeftButton, {});
        QCoreApplication::sendEvent(canvas.view->viewport(), &enter);
        QDropEvent event(canvas.at(scenePos), Qt::CopyAction, &dropped, Qt::LeftButton, {});
        QCoreApplication::sendEvent(canvas.view->viewport(), &event);
    };
    const auto drop = [&palette, &dropData](const QString &type, QPointF scenePos) {
        for (int row = 0; row < palette.count(); ++row) {
            if (palette.item(row)->data(CWidgetSelectionView::TypeRole).toString() == type)
                palette.setCurrentRow(row);
        }
        const std::unique_ptr<QMimeData> dragged(palette.dragData());
        QCOMPARE(dragged->text(), type);
        dropData(*dragged, scenePos);
    };
    drop("Kiv_Arrow_T", {131, 49});
    CItemModel *arrow = canvas.screen->childItem(0);
    QVERIFY(arrow);
    QCOMPARE(QPointF(arrow->x(), arrow->y()), QPointF(140, 40));
    QCOMPARE(QPointF(arrow->x2(), arrow->y2()), QPointF(260, 40)); // it keeps its length
    QCOMPARE(arrow->id(), 1u);
    canvas.checkOneStep(before);
    CEditorState::instance()->setSnapToGrid(false);
    drop("Kiv_Rectangle_T", {131, 49});
    QCOMPARE(QPointF(canvas.screen->childItem(0)->x(), canvas.screen->childItem(0)->y()),
             QPointF(131, 49));
    QMimeData unknown;
    unknown.setData("widget-create", "?");
    unknown.setText("Kiv_Nothing_T");
    dropData(unknown, {10, 10});
    QCOMPARE(canvas.screen->rowCount(), 2);
}

void tst_CanvasGestures::screenAndViewFollowEachOther()
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

QTEST_MAIN(tst_CanvasGestures)
#include "tst_canvasgestures.moc"
