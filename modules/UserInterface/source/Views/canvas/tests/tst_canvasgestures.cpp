// Drags on the canvas, with real mouse and key events on a shown view.
#include "CResizeRule.h"
#include "CSelectionFrame.h"
#include "CanvasFixture.h"
#include "CanvasRoles.h"
#include "ItemOperations.h"

#include <QSet>
#include <QSignalSpy>

#include <cmath>

class tst_CanvasGestures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init() { resetEditorState(); }

    void everyHandleIsOneStep_data()
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

    void everyHandleIsOneStep()
    {
        QFETCH(QString, type);
        QFETCH(int, handle);
        Canvas canvas;
        CItemModel *item =
            appendWidget(canvas.screen, type,
                         {{PropertyKey::X, 200}, {PropertyKey::Y, 150}, {PropertyKey::Id, 1}});
        if (item->geometryMode() == GeometryMode::TwoCorners) {
            item->setProperty(PropertyKey::X2, 260);
            item->setProperty(PropertyKey::Y2, 190);
        }
        if (item->hasAngle())
            item->setProperty(PropertyKey::Angle, 0);
        canvas.show();
        canvas.select({item});
        const QByteArray before = savedBytes(*canvas.project);
        QGraphicsItem *dragged = canvas.viewOf(item)->handles().value(handle);
        QVERIFY(dragged);
        if (!dragged->isVisible()) { // the height is not the item's own
            QCOMPARE(type, QString("Kiv_Toggle_T"));
            QVERIFY(handle == 0 || handle == 4);
            return;
        }
        const QPointF at = dragged->scenePos();
        canvas.drag(at, at + QPointF(12, 8));
        // The handle has followed the pointer along the sides that it stands for; at the corners of
        // round items one of both decides.
        const int across = CResizeRule::horizontalSide(handle);
        const int down = CResizeRule::verticalSide(handle);
        const bool isRoundCorner = type.startsWith("Kiv_Circle") || type.startsWith("Kiv_Ring")
                                       ? across != 0 && down != 0
                                       : false;
        if (across != 0 && !isRoundCorner)
            QCOMPARE(dragged->scenePos().x(), at.x() + 12);
        if (down != 0 && !isRoundCorner && type != "Kiv_Toggle_T")
            QCOMPARE(dragged->scenePos().y(), at.y() + 8);
        canvas.checkOneStep(before);
        QCOMPARE(canvas.stack.text(0), QString("Resize Item"));
        for (const double number : {item->x(), item->y(), item->width(), item->height()})
            QCOMPARE(number, std::round(number));
        QCOMPARE(canvas.viewOf(item)->pos(), QPointF(item->x(), item->y()));
    }

    /// Of what is pressed, selected or not, locked or not; what it is a copy of stays.
    void altDragsCopies()
    {
        CEditorState::instance()->setSnapToGrid(false);
        Canvas canvas;
        CItemModel *box = appendBox(canvas.screen, 100, 100, 40, 40);
        CItemModel *other = appendBox(canvas.screen, 200, 100, 40, 40);
        canvas.show();
        const auto drag = [&](QPointF from, QPointF by, bool isEscaped, bool isBack = false) {
            canvas.press(from, Qt::AltModifier);
            for (const double part : {0.5, 1.0}) {
                canvas.move(from + by * part, Qt::AltModifier);
                QCOMPARE(rectOf(box), QRectF(100, 100, 40, 40));
            }
            if (isEscaped)
                QTest::keyClick(canvas.view.get(), Qt::Key_Escape);
            if (isBack)
                canvas.move(from, Qt::AltModifier);
            canvas.release(isBack ? from : from + by, Qt::AltModifier);
        };
        const QByteArray before = savedBytes(*canvas.project);
        drag({120, 120}, {31, -20}, false);
        QCOMPARE(rectOf(canvas.screen->childItem(0)), QRectF(131, 80, 40, 40));
        QCOMPARE(canvas.view->selectedItems(),
                 QVector<CItemModel *>({canvas.screen->childItem(0)}));
        canvas.checkOneStep(before);

        canvas.stack.undo();
        drag({120, 120}, {31, -20}, false);
        canvas.view->commands()->duplicate(); // goes on as the drag began
        QCOMPARE(rectOf(canvas.screen->childItem(0)), QRectF(162, 60, 40, 40));
        canvas.stack.undo();
        canvas.stack.undo();
        canvas.select({box, other});
        for (const bool isEscaped : {true, false}) { // given up, or brought back
            drag({120, 120}, {50, 50}, isEscaped, !isEscaped);
            QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({box, other}));
            QCOMPARE(savedBytes(*canvas.project), before);
            QVERIFY(canvas.stack.canRedo());
        }
        canvas.select({box, other});
        other->setLocked(true);
        drag({120, 120}, {0, 60}, false);
        QCOMPARE(canvas.screen->rowCount(), 4);
        QCOMPARE(rectOf(canvas.screen->childItem(1)), QRectF(200, 160, 40, 40));
        QVERIFY(!canvas.screen->childItem(1)->isLocked() && other->isLocked());
        QCOMPARE(canvas.stack.count(), 1);
    }

    void aDragSnaps_data()
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

    void aDragSnaps()
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

    void aLockIsOneStepAndIsKept()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
        CItemModel *other = appendBox(canvas.screen, 200, 100, 40, 30);
        canvas.show();
        canvas.select({item, other});
        canvas.view->group();
        canvas.stack.clear();
        CItemModel *group = canvas.screen->childItem(0);
        const QByteArray before = savedBytes(*canvas.project);
        canvas.view->lockItems();
        QVERIFY(group->isLocked() && item->isUnderLock());
        canvas.checkOneStep(before);
        QVERIFY(savedBytes(*canvas.project).contains("locked=\"1\""));
        QSignalSpy told(canvas.view.get(), &CScreenView::message);
        canvas.view->ungroup(); // its members would be free
        QTest::keyClick(canvas.view.get(), Qt::Key_Left);
        QCOMPARE(canvas.stack.count(), 1);
        QCOMPARE(told.count(), 1);
        canvas.view->lockItems();
        QCOMPARE(savedBytes(*canvas.project), before);
        canvas.view->copy();
        canvas.view->lockItems();
        canvas.view->paste(); // a copy is there to be put somewhere
        QVERIFY(!canvas.screen->childItem(0)->isLocked());
    }

    void severalAreScaledTogether_data()
    {
        QTest::addColumn<int>("handle");
        QTest::addColumn<QPointF>("by");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QRectF>("frame"); // that (100, 100) to (200, 200) becomes
        QTest::newRow("corner") << 3 << QPointF(100, 50) << 0 << QRectF(100, 100, 200, 150);
        QTest::newRow("opposite corner") << 7 << QPointF(50, 25) << 0 << QRectF(150, 125, 50, 75);
        QTest::newRow("edge") << 2 << QPointF(100, 9) << 0 << QRectF(100, 100, 200, 100);
        QTest::newRow("aspect") << 3 << QPointF(50, 10) << int(Qt::ShiftModifier)
                                << QRectF(100, 100, 150, 150);
        QTest::newRow("centre") << 3 << QPointF(50, 0) << int(Qt::AltModifier)
                                << QRectF(50, 100, 200, 100);
        QTest::newRow("it does not turn over")
            << 0 << QPointF(0, 400) << 0 << QRectF(100, 199, 100, 1);
    }

    /// From nothing selected: a band around them, a drag, Esc or not. Where edges go is worked out
    /// here; members, what is locked and what is round have their own rules.
    void severalAreScaledTogether()
    {
        QFETCH(int, handle);
        QFETCH(QPointF, by);
        QFETCH(int, modifiers);
        QFETCH(QRectF, frame);
        Canvas canvas;
        CItemModel *box = appendBox(canvas.screen, 100, 100, 40, 20);
        CItemModel *disc = appendWidget(
            canvas.screen, "Kiv_Circle_T",
            {{PropertyKey::X, 190}, {PropertyKey::Y, 110}, {PropertyKey::PointSize, 160}});
        CItemModel *line = appendWidget(canvas.screen, "Kiv_Line_T",
                                        {{PropertyKey::X, 140},
                                         {PropertyKey::Y, 180},
                                         {PropertyKey::X2, 100},
                                         {PropertyKey::Y2, 200}});
        CItemModel *area = appendWidget(canvas.screen, "Kiv_Polygon_T",
                                        {{PropertyKey::X, 180},
                                         {PropertyKey::Y, 180},
                                         {PropertyKey::PointList, "0,0;20,0;20,20"}});
        CItemModel *turned = appendBox(canvas.screen, 150, 120, 40, 20);
        turned->setProperty(PropertyKey::Angle, 90);
        CItemModel *locked = appendBox(canvas.screen, 110, 150, 20, 20);
        CItemModel *member = appendBox(canvas.screen, 120, 140, 10, 10);
        CItemModel *fixed = appendBox(canvas.screen, 140, 160, 10, 10);
        ItemOperations::group(*canvas.screen, {member, fixed}, {120, 140});
        locked->setLocked(true);
        fixed->setLocked(true);
        canvas.stack.clear();
        canvas.show();
        const QByteArray before = savedBytes(*canvas.project);
        canvas.drag({90, 90}, {215, 215});
        QCOMPARE(canvas.view->selectedItems().size(), 7);
        const QGraphicsItem *dragged = canvas.view->screenScene()->selectionFrame()->handle(handle);
        const QPointF from = dragged->scenePos();
        for (const bool isEscaped : {true, false}) {
            canvas.press(from, Qt::KeyboardModifiers(modifiers));
            canvas.move(from + 2 * by,
                        Qt::KeyboardModifiers(modifiers)); // rounding must not add up
            canvas.move(from + by / 3, Qt::KeyboardModifiers(modifiers));
            canvas.move(from + by, Qt::KeyboardModifiers(modifiers));
            QVERIFY(savedBytes(*canvas.project) != before);
            if (isEscaped)
                QTest::keyClick(canvas.view.get(), Qt::Key_Escape);
            canvas.release(from + by, Qt::KeyboardModifiers(modifiers));
            QVERIFY(!isEscaped || savedBytes(*canvas.project) == before);
        }
        const double across = frame.width() / 100;
        const double down = frame.height() / 100;
        const auto at = [&](double x, double y) {
            return QPointF(std::round(frame.x() + (x - 100) * across),
                           std::round(frame.y() + (y - 100) * down));
        };
        QCOMPARE(rectOf(box),
                 QRectF(at(100, 100), at(140, 120)) | QRectF(at(100, 100), QSizeF(1, 1)));
        QCOMPARE(QPointF(disc->x(), disc->y()), at(190, 110));
        QCOMPARE(disc->radius(), std::max(1.0, std::round(10 * std::min(across, down))));
        QCOMPARE(QPointF(line->x(), line->y()), at(140, 180));
        QCOMPARE(QPointF(line->x2(), line->y2()), at(100, 200));
        QCOMPARE(QPointF(area->x(), area->y()), at(180, 180));
        const QPointF tip = at(200, 200) - at(180, 180);
        QVERIFY(area->propertyText(PropertyKey::PointList)
                    .endsWith(QString(";%1,%2").arg(tip.x()).arg(tip.y())));
        const QSizeF own(std::max(1.0, std::round(40 * down)), std::round(20 * across));
        QCOMPARE(QSizeF(turned->width(), turned->height()), own); // its sides lie across
        const QPointF off = QRectF(turned->x(), turned->y(), own.width(), own.height()).center() -
                            (frame.topLeft() + QPointF(70 * across, 30 * down));
        QVERIFY(std::abs(off.x()) <= 0.5 && std::abs(off.y()) <= 0.5 && turned->angle() == 90);
        QCOMPARE(QPointF(member->x(), member->y()), at(120, 140));
        QCOMPARE(QPointF(member->parentItem()->x(), member->parentItem()->y()), at(120, 140));
        QCOMPARE(rectOf(locked), QRectF(110, 150, 20, 20));
        QCOMPARE(rectOf(fixed), QRectF(140, 160, 10, 10));
        canvas.checkOneStep(before);
        const QRectF now = canvas.view->screenScene()->selectionFrame()->boundingRect();
        QVERIFY(handle != 3 || modifiers || (now.bottomRight() - frame.bottomRight()).isNull());
    }

    /// What is framed under the resting pointer is what the click selects, then and there.
    void theHoverFrameIsKept()
    {
        Canvas canvas;
        CItemModel *small = appendBox(canvas.screen, 100, 100, 3, 3);
        CItemModel *turned = appendBox(canvas.screen, 90, 96, 60, 10);
        turned->setProperty(PropertyKey::Angle, 45);
        CItemModel *hidden = appendBox(canvas.screen, 80, 80, 90, 90);
        hidden->setHidden(true);
        CItemModel *members[] = {appendBox(canvas.screen, 140, 140, 30, 30),
                                 appendBox(canvas.screen, 60, 60, 20, 20)};
        ItemOperations::group(*canvas.screen, {members[0], members[1]}, {60, 60});
        appendBox(canvas.screen, 50, 50, 200, 150)->setLocked(true);
        canvas.show();
        const CScreenScene *scene = canvas.view->screenScene();
        QSet<const CItemModel *> seen;
        for (int y = 45; y < 210; y += 3) {
            for (int x = 45; x < 260; x += 7) {
                canvas.select({});
                canvas.mouse(QEvent::MouseMove, {double(x), double(y)}, Qt::NoButton, Qt::NoButton);
                const CItemModel *target = scene->target() ? scene->target()->item() : nullptr;
                canvas.click({double(x), double(y)});
                QCOMPARE(canvas.view->selectedItems().value(0), target);
                seen.insert(target);
            }
        }
        QVERIFY(seen.contains(small) && seen.contains(turned) && seen.size() == 5);
        QVERIFY(seen.contains(nullptr) && !seen.contains(hidden));
        canvas.mouse(QEvent::MouseMove, {200, 180}, Qt::NoButton, Qt::NoButton);
        canvas.press({200, 180});
        QVERIFY(!scene->target()); // a press has decided
    }

    void membersAreEditedInTheirGroup()
    {
        CEditorState::instance()->setSnapToGrid(false);
        Canvas canvas;
        CItemModel *outside = appendBox(canvas.screen, 300, 100, 40, 40);
        CItemModel *first = appendBox(canvas.screen, 100, 100, 40, 40);
        CItemModel *second = appendBox(canvas.screen, 160, 100, 40, 40);
        CItemModel *third = appendBox(canvas.screen, 100, 160, 40, 40);
        CItemModel *inner = ItemOperations::group(*canvas.screen, {first, second}, {100, 100});
        CItemModel *group = ItemOperations::group(*canvas.screen, {inner, third}, {100, 100});
        canvas.stack.clear();
        canvas.show();
        const QByteArray before = savedBytes(*canvas.project);
        using Items = QVector<CItemModel *>;
        const auto selected = [&canvas] { return canvas.view->selectedItems(); };
        CScreenView *view = canvas.view.get();
        canvas.click({120, 120});
        QTest::keyClick(view, Qt::Key_Return);
        QCOMPARE(selected(), Items({inner}));
        QTest::keyClick(view, Qt::Key_Return);
        QCOMPARE(selected(), Items({first}));
        QTest::keyClick(view, Qt::Key_Return); // no group
        QTest::keyClick(view, Qt::Key_Tab);
        QCOMPARE(selected(), Items({second}));
        canvas.drag({110, 110}, {117, 113}); // the one that is not selected, at once
        QCOMPARE(selected(), Items({first}));
        QCOMPARE(rectOf(first), QRectF(107, 103, 40, 40));
        QCOMPARE(rectOf(second), QRectF(160, 100, 40, 40));
        canvas.checkOneStep(before);
        canvas.view->commands()->selectAll();
        QCOMPARE(selected(), Items({first, second}));
        canvas.view->orderingToBack();
        canvas.view->group(); // neither is for members
        canvas.view->ungroup();
        QCOMPARE(canvas.stack.count(), 1);
        canvas.select({first});
        canvas.view->orderingToBack();
        QCOMPARE(inner->childItem(1), first);
        QCOMPARE(selected(), Items({first}));
        QVERIFY(canvas.view->commands()->leaveGroup());
        QCOMPARE(selected(), Items({inner}));
        QVERIFY(canvas.view->commands()->leaveGroup());
        QCOMPARE(selected(), Items({group}));
        QVERIFY(!canvas.view->commands()->leaveGroup());
        canvas.mouse(QEvent::MouseButtonDblClick, {120, 180}, Qt::LeftButton, Qt::LeftButton);
        canvas.release({120, 180});
        QCOMPARE(selected(), Items({third}));
        canvas.click({320, 120}); // beside it
        QCOMPARE(selected(), Items({outside}));
        canvas.click({120, 180});
        QCOMPARE(selected(), Items({group}));
        QTest::keyClick(view, Qt::Key_Return);
        group->setLocked(true);
        QVERIFY(selected().isEmpty() && !canvas.view->screenScene()->entered());
        canvas.click({120, 180});
        QTest::keyClick(view, Qt::Key_Return); // what is locked stays closed
        QCOMPARE(selected(), Items({group}));
    }

    void aSecondClickMakesTheKeyItem()
    {
        Canvas canvas;
        CItemModel *left = appendBox(canvas.screen, 100, 100, 40, 40);
        CItemModel *right = appendBox(canvas.screen, 200, 120, 40, 40);
        canvas.show();
        const CScreenScene *scene = canvas.view->screenScene();
        using Items = QVector<CItemModel *>;
        canvas.click({110, 110});
        canvas.click({110, 110});
        QVERIFY(!scene->keyItem()); // one alone
        canvas.click({220, 140}, Qt::ShiftModifier);
        QVERIFY(!scene->keyItem());
        canvas.click({220, 140});
        QCOMPARE(scene->keyItem(), right);
        canvas.click({120, 120});
        QCOMPARE(scene->keyItem(), left);
        QCOMPARE(canvas.view->selectedItems(), Items({left, right}));
        canvas.drag({220, 140}, {260, 140}); // no click
        QCOMPARE(scene->keyItem(), left);
        canvas.stack.undo();
        canvas.click({120, 120}); // it alone
        QCOMPARE(canvas.view->selectedItems(), Items({left}));
        QVERIFY(!scene->keyItem());
        canvas.drag({90, 90}, {290, 190});
        canvas.click({120, 120});
        canvas.click({400, 200});
        QVERIFY(!scene->keyItem() && canvas.view->selectedItems().isEmpty());
    }

    /// The canvas neither shows nor takes it, what is selected stays so, and documents keep it.
    void whatIsHiddenIsNotHit()
    {
        Canvas canvas;
        CItemModel *cover = appendBox(canvas.screen, 90, 90, 200, 100);
        CItemModel *box = appendBox(canvas.screen, 100, 100, 40, 30);
        CItemModel *other = appendBox(canvas.screen, 160, 100, 40, 30);
        ItemOperations::group(*canvas.screen, {box, other}, {100, 100});
        canvas.stack.clear();
        canvas.show();
        QSignalSpy counted(canvas.view.get(), &CScreenView::hiddenCounted);
        canvas.select({cover});
        const QByteArray before = savedBytes(*canvas.project);
        const auto hasHandle = [&canvas] {
            return canvas.view->screenScene()->handleAt({290, 190}, {}) != nullptr;
        };
        QVERIFY(hasHandle());
        ItemOperations::toggleHidden(canvas.view->selectedItems());
        QTRY_COMPARE(counted.value(0).value(0).toInt(), 1);
        QVERIFY(!hasHandle());
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({cover}));
        canvas.checkOneStep(before);
        canvas.click({250, 170}); // where it alone is
        QVERIFY(canvas.view->selectedItems().isEmpty());
        canvas.click({120, 115});
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({box->parentItem()}));
        ItemOperations::setHidden({box}, true); // a member alone
        canvas.click({20, 20});
        canvas.click({120, 115});
        QVERIFY(canvas.view->selectedItems().isEmpty());
        canvas.drag({20, 20}, {300, 250});
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({box->parentItem()}));
        canvas.view->commands()->selectAll();
        QCOMPARE(canvas.view->selectedItems().size(), 1);
    }

    void aLockedGroundIsNoObstacle()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 60, 60, 40, 30);
        CItemModel *ground = appendBox(canvas.screen, 0, 0, 400, 250);
        ground->setLocked(true);
        canvas.show();
        for (const int count : {1, 2}) { // also when the ground is selected
            canvas.click({20, 20});
            QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({ground}));
            canvas.press({20, 20});
            canvas.move({110, 100});
            if (count == 1)
                canvas.release({110, 100});
            QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({item}));
        }
        QTest::keyClick(canvas.view.get(), Qt::Key_Escape);
        canvas.release({110, 100});
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({ground}));
        canvas.select({item, ground});
        canvas.press({20, 20}); // several that are selected stay so, and the locked one where it is
        canvas.move({110, 100});
        canvas.release({110, 100});
        QCOMPARE(canvas.view->selectedItems().size(), 2);
        QCOMPARE(canvas.stack.count(), 0);
    }

    void escapeRestoresTheStart()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 103, 107, 40, 30);
        CItemModel *behind = appendBox(canvas.screen, 160, 160, 40, 30);
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
            QCOMPARE(canvas.viewOf(behind)->isHighlighted(), grip != QPointF(103, 107));
            QTest::keyClick(canvas.view.get(), Qt::Key_Escape);
            QVERIFY(!canvas.viewOf(behind)->isHighlighted());
            QCOMPARE(savedBytes(*canvas.project), before);
            QCOMPARE(canvas.viewOf(item)->pos(), QPointF(103, 107));
            canvas.move(grip + QPointF(70, 70)); // the button is still held
            canvas.release(grip + QPointF(70, 70));
            QCOMPARE(savedBytes(*canvas.project), before);
            QCOMPARE(canvas.stack.count(), 0);
            QVERIFY(!canvas.view->isGestureActive());
        }
        canvas.press({20, 20}); // a rubber band
        canvas.move({190, 180});
        QCOMPARE(canvas.view->selectedItems().size(), 2);
        QTest::keyClick(canvas.view.get(), Qt::Key_Escape);
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({item}));
        canvas.move({195, 185});
        canvas.release({195, 185});
        QCOMPARE(canvas.view->selectedItems(), QVector<CItemModel *>({item}));
    }

    void nothingSticks()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
        CItemModel *behind = appendBox(canvas.screen, 130, 120, 60, 40);
        CItemModel *line = appendWidget(
            canvas.screen, "Kiv_Polyline_T",
            {{PropertyKey::X, 20}, {PropertyKey::Y, 20}, {PropertyKey::PointList, "0,0;80,0"}});
        canvas.show();
        canvas.select({item});
        const auto isFramed = [&] { return canvas.viewOf(behind)->isHighlighted(); };
        QVERIFY(isFramed());
        for (const auto key : {Qt::Key_Up, Qt::Key_Down}) { // off it and onto it again
            QTest::keyClick(canvas.view.get(), key);
            QTRY_COMPARE(isFramed(), key == Qt::Key_Down);
        }
        item->setProperty(PropertyKey::X, 300); // in the panel
        QTRY_VERIFY(!isFramed());

        canvas.click({60, 20});
        QTest::keyPress(canvas.view.get(), Qt::Key_Control);
        QCOMPARE(canvas.viewOf(line)->cursor().shape(), Qt::OpenHandCursor);
        const QByteArray before = savedBytes(*canvas.project);
        canvas.press({60, 20});
        canvas.move({90, 60});
        QVERIFY(savedBytes(*canvas.project) != before);
        QFocusEvent lost(QEvent::FocusOut, Qt::PopupFocusReason);
        QCoreApplication::sendEvent(canvas.view.get(), &lost); // the keys go elsewhere from now on
        QCOMPARE(canvas.viewOf(line)->cursor().shape(), Qt::ArrowCursor);
        QVERIFY(!canvas.view->isGestureActive());
        QCOMPARE(savedBytes(*canvas.project), before);
    }

    void lostReleases()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 40, 30);
        canvas.show();
        const QByteArray before = savedBytes(*canvas.project);
        // A window that comes up in between takes the release; the drag is over all the same.
        const QVector<QPointF> grips = {{120, 115}, {140, 130}}; // body and handle
        for (const QPointF &grip : grips) {
            canvas.press(grip);
            canvas.move(grip + QPointF(40, 40));
            QVERIFY(savedBytes(*canvas.project) != before);
            if (grip == grips.first())
                canvas.mouse(QEvent::MouseMove, {300, 200}, Qt::NoButton, Qt::NoButton);
            else
                canvas.press({300, 200});
            QVERIFY(!canvas.view->isGestureActive());
            QCOMPARE(savedBytes(*canvas.project), before);
            canvas.click({400, 20});
            QVERIFY(canvas.view->selectedItems().isEmpty());
            canvas.select({item});
        }
    }

    void rotation()
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

    void pointsOfALine()
    {
        Canvas canvas;
        CItemModel *line = appendWidget(canvas.screen, "Kiv_Polyline_T",
                                        {{PropertyKey::X, 100},
                                         {PropertyKey::Y, 100},
                                         {PropertyKey::PointList, "0,0;80,0;80,60"}});
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

        CItemModel *area = appendWidget(canvas.screen, "Kiv_Polygon_T",
                                        {{PropertyKey::X, 300},
                                         {PropertyKey::Y, 100},
                                         {PropertyKey::PointList, "0,0;80,0;0,60"}});
        canvas.select({area});
        canvas.click({300, 160}, Qt::ControlModifier); // three of an area
        QCOMPARE(area->propertyText(PropertyKey::PointList), QString("0,0;80,0;0,60"));
        canvas.click({303, 130}, Qt::ShiftModifier); // on the side that closes it
        QCOMPARE(area->propertyText(PropertyKey::PointList), QString("0,0;80,0;0,60;3,30"));
    }
};

QTEST_MAIN(tst_CanvasGestures)
#include "tst_canvasgestures.moc"
