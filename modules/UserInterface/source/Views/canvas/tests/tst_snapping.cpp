// What is in line with what: the rule, and whole drags on a shown view that begin with nothing
// selected.
#include "CSnapMarks.h"
#include "CSnapRule.h"
#include "CanvasFixture.h"

#include <QDropEvent>
#include <QMimeData>

#include <cmath>

namespace {
const SnapKinds All = ESnapKind::Items | ESnapKind::Page | ESnapKind::Guides | ESnapKind::Gaps;
constexpr double Tolerance = 6;

/// "x40:50..90" is an upright line, "|40:50..60" a distance on it, "-20" a gap beside another.
QString textOf(const SSnapped &snapped)
{
    const auto place = [](const QLineF &line, const char *upright, const char *level) {
        const bool isUpright = line.x1() == line.x2();
        return QStringLiteral("%1%2:%3..%4")
            .arg(isUpright ? upright : level)
            .arg(isUpright ? line.x1() : line.y1())
            .arg(isUpright ? line.y1() : line.x1())
            .arg(isUpright ? line.y2() : line.x2());
    };
    QStringList all;
    for (const QLineF &each : snapped.lines)
        all.append(place(each, "x", "y"));
    for (const QLineF &each : snapped.distances)
        all.append(place(each, "|", "-"));
    for (const SSnapGap &each : snapped.gaps)
        all.append((each.along == Qt::Horizontal ? "gap across " : "gap down ") +
                   QString::number(each.length()));
    all.sort();
    return all.join(", ");
}
} // namespace

class tst_Snapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init()
    {
        resetEditorState();
        CEditorState::instance()->setSnapToGrid(false);
        CEditorState::instance()->setSnapping(true, All);
    }
    void cleanup() { CEditorState::instance()->setSnapping(false, All); }

    void rule_data()
    {
        // A box of 40 x 30 at (100, 100) on a page of 480 x 272.
        QTest::addColumn<QVector<QRectF>>("items");
        QTest::addColumn<int>("kinds");
        QTest::addColumn<QPointF>("offset");
        QTest::addColumn<QPointF>("expected");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char *name, const QVector<QRectF> &items, SnapKinds kinds,
                            QPointF offset, QPointF expected, const char *shown) {
            QTest::newRow(name) << items << int(kinds) << offset << expected << shown;
        };
        const QRectF below(200, 200, 60, 20);
        row("left to left", {below}, ESnapKind::Items, {96, 3}, {100, 3},
            "x200:103..220, |200:133..200");
        row("right to left", {below}, ESnapKind::Items, {63, 3}, {60, 3},
            "x200:103..220, |200:133..200");
        row("middle to middle", {below}, ESnapKind::Items, {112, 3}, {110, 3},
            "x230:103..220, |230:133..200");
        row("out of reach", {below}, ESnapKind::Items, {47.4, 3}, {47.4, 3}, "");
        row("both ways, overlapping", {below}, ESnapKind::Items, {97, 94}, {100, 95},
            "x200:195..225, y210:200..260");
        row("the nearest of several", {below, {204, 40, 20, 20}}, ESnapKind::Items, {103, 3},
            {104, 3}, "x204:40..133, x224:40..133, |224:60..103");
        row("what is on a line tells its next ones", {below, {200, 40, 9, 20}, {200, 10, 9, 9}},
            ESnapKind::Items, {99, 3}, {100, 3}, "x200:10..220, |200:133..200, |200:60..103");
        row("edges in line, so no middle", {{300, 60, 40, 30}}, ESnapKind::Items, {3, -37},
            {3, -40}, "y60:103..340, y90:103..340, -60:143..300");
        row("a middle between pixels", {{201, 200, 59, 20}}, ESnapKind::Items, {112, 3}, {111, 3},
            "x230.5:103..220, |230.5:133..200");
        row("the page", {}, ESnapKind::Page, {3, 137}, {3, 142},
            "y272:0..480, -272:0..103, -272:143..480");
        row("the page's middle", {below}, ESnapKind::Page, {118, -40}, {120, -40},
            "x240:0..272, |240:0..60, |240:90..272");
        row("a guide", {}, ESnapKind::Guides, {203, 3}, {200, 3},
            "x300:0..272, |300:0..103, |300:133..272");
        row("each kind by itself", {below}, ESnapKind::Gaps, {97, 95}, {97, 95}, "");
        row("between two", {{60, 95, 20, 40}, {200, 90, 20, 30}}, ESnapKind::Gaps, {17, 0}, {20, 0},
            "gap across 40, gap across 40");
        row("on in a row", {{10, 95, 20, 40}, {45, 95, 20, 40}}, ESnapKind::Gaps, {-17, 0},
            {-20, 0}, "gap across 15, gap across 15");
        row("a gap is told once", {{10, 90, 20, 30}, {45, 90, 20, 30}}, All, {-17, -7}, {-20, -10},
            "y90:10..120, y120:10..120, gap across 15, gap across 15");
        row("on before a column", {{100, 160, 20, 20}, {100, 190, 20, 20}}, ESnapKind::Gaps,
            {3, 24}, {3, 20}, "gap down 10, gap down 10");
        row("a ground is no neighbour",
            {{0, 0, 480, 272}, {60, 95, 20, 40}, {200, 90, 20, 30}, {300, 0, 9, 20}},
            ESnapKind::Gaps, {17, 0}, {20, 0}, "gap across 40, gap across 40");
        row("no whole pixel is between", {{60, 95, 20, 40}, {201, 90, 20, 30}}, ESnapKind::Gaps,
            {17, 0}, {17, 0}, "");
    }

    void rule()
    {
        QFETCH(QVector<QRectF>, items);
        QFETCH(int, kinds);
        QFETCH(QPointF, offset);
        QFETCH(QPointF, expected);
        QFETCH(QString, shown);
        const CSnapRule rule({items, {0, 0, 480, 272}, {300}, {}}, SnapKinds(kinds));
        const auto outlineAt = [](const QPointF &by) {
            return QRectF(std::round(100 + by.x()), std::round(100 + by.y()), 40, 30);
        };
        const SSnapped snapped = rule.snap(outlineAt, offset, Tolerance);
        QCOMPARE(outlineAt(snapped.offset), outlineAt(expected));
        QStringList marks = shown.split(", ");
        marks.sort();
        QCOMPARE(textOf(snapped), marks.join(", "));
    }

    void drags_data()
    {
        // A page of 480 x 272 with a box from (300, 200) to (360, 240) and a guide at x 30. What is
        // dragged is at (100, 100).
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QPointF>("from");
        QTest::addColumn<QPointF>("by");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QRectF>("expected"); // what it takes up
        const auto row = [](const char *name, const char *kind, QPointF from, QPointF by,
                            const char *keys, QRectF expected) {
            QTest::newRow(name) << kind << from << by << keys << expected;
        };
        row("a box's right edge to a right edge", "box", {120, 115}, {217, 61}, "",
            {320, 161, 40, 30});
        row("a box, with Control from the way on", "box", {120, 115}, {217, 61}, "c",
            {317, 161, 40, 30});
        row("a box, Control let go", "box", {120, 115}, {217, 61}, "cr", {320, 161, 40, 30});
        row("to a guide", "box", {120, 115}, {-73, 61}, "", {30, 161, 40, 30});
        row("to the page's corner", "box", {120, 115}, {-95, -96}, "", {0, 0, 40, 30});
        row("a small one", "small", {103, 103}, {202, 61}, "", {300, 161, 6, 6});
        row("a turned one by its outline", "turned", {120, 115}, {192, 51}, "", {300, 146, 30, 40});
        row("a group by its frame", "group", {105, 105}, {223, 21}, "", {320, 121, 40, 30});
        row("a group a little way: its members do not hold it", "group", {105, 105}, {4, 4}, "",
            {104, 106, 40, 30});
        row("a round one", "circle", {100, 100}, {253, 70}, "", {330, 150, 40, 40});
        row("locked: nothing", "locked", {120, 115}, {217, 61}, "", {100, 100, 40, 30});
        row("on the grid, whatever else is on", "box", {120, 115}, {217, 61}, "g",
            {320, 160, 40, 30});
        row("one end of a line", "arrow resize 3", {140, 130}, {157, 30}, "", {100, 100, 200, 60});
        row("resized: right to left", "resize 3", {140, 130}, {157, 30}, "", {100, 100, 200, 60});
        row("resized: the middle to the page's", "resize 3", {140, 130}, {237, 30}, "",
            {100, 100, 280, 60});
        row("resized: bottom to the page", "resize 4", {120, 130}, {3, 139}, "",
            {100, 100, 40, 172});
        row("resized with Control", "resize 3", {140, 130}, {157, 30}, "c", {100, 100, 197, 60});
        row("resized in proportion", "resize 3", {140, 130}, {157, 30}, "s", {100, 100, 200, 150});
        row("a turned one resized, as near as whole positions come", "turned resize 4", {105, 115},
            {-72, 3}, "", {30.5, 95.5, 105, 40});
        row("a circle resized", "circle resize 2", {120, 100}, {177, 0}, "", {80, -10, 220, 220});
        row("a point", "line", {180, 160}, {117, 11}, "", {300, 171, 0, 0});
        row("a point, with another of its own", "line", {180, 160}, {40, -57}, "",
            {220, 100, 0, 0});
    }

    void drags()
    {
        QFETCH(QString, kind);
        QFETCH(QPointF, from);
        QFETCH(QPointF, by);
        QFETCH(QString, keys);
        QFETCH(QRectF, expected);
        Canvas canvas;
        canvas.screen->setGuides({{Qt::Vertical, 30}});
        CItemModel *other = appendBox(canvas.screen, 300, 200, 60, 40);
        other->setLocked(true);                                      // a reference all the same
        appendBox(canvas.screen, 301, 202, 60, 40)->setHidden(true); // none, though it is nearer
        CEditorState::instance()->setSnapToGrid(keys.contains('g'));
        CItemModel *item = nullptr;
        if (kind.startsWith("line")) {
            item = appendWidget(canvas.screen, "Kiv_Polyline_T",
                                {{PropertyKey::X, 100},
                                 {PropertyKey::Y, 100},
                                 {PropertyKey::PointList, "0,0;80,60"}});
        } else if (kind.startsWith("arrow")) {
            item = appendWidget(canvas.screen, "Kiv_Line_T",
                                {{PropertyKey::X, 100},
                                 {PropertyKey::Y, 100},
                                 {PropertyKey::X2, 140},
                                 {PropertyKey::Y2, 130}});
        } else if (kind.startsWith("circle")) {
            item = appendWidget(
                canvas.screen, "Kiv_Circle_T",
                {{PropertyKey::X, 100}, {PropertyKey::Y, 100}, {PropertyKey::Radius, 20}});
        } else {
            const QSize size = kind == "small" ? QSize(6, 6) : QSize(40, 30);
            item = appendBox(canvas.screen, 100, 100, size.width(), size.height());
        }
        if (kind.startsWith("turned"))
            item->setProperty(PropertyKey::Angle, 90);
        item->setLocked(kind == "locked");
        CItemModel *member = nullptr;
        canvas.show();
        if (kind == "group") {
            member = item;
            member->setProperty(PropertyKey::Width, 12);
            canvas.select({member, appendBox(canvas.screen, 130, 110, 10, 20)});
            canvas.view->group();
            item = member->parentItem();
        }
        canvas.select({});
        if (kind.contains("resize") || kind == "line") // handles come with the selection
            canvas.click(kind == "line" ? QPointF(120, 115) : QPointF(112, 110));
        canvas.stack.clear();
        const QByteArray before = savedBytes(*canvas.project);
        const auto held = [&](bool isEnd) {
            Qt::KeyboardModifiers modifiers;
            modifiers.setFlag(Qt::ShiftModifier, keys.contains('s'));
            modifiers.setFlag(Qt::ControlModifier,
                              keys.contains('c') && !(isEnd && keys.contains('r')));
            return modifiers;
        };
        canvas.press(from);
        for (const double part : {0.3, 0.7, 0.9})
            canvas.move(from + by * part, held(false));
        canvas.move(from + by, held(false));
        if (keys == "cr") // while the pointer rests
            QTest::keyRelease(canvas.view.get(), Qt::Key_Control, Qt::ControlModifier);
        const bool isMarked =
            !canvas.view->screenScene()->snapping().marks()->shown().lines.isEmpty();
        QCOMPARE(isMarked, !held(true).testFlag(Qt::ControlModifier) && kind != "locked" &&
                               !keys.contains('g'));
        const CItemView *view = canvas.viewOf(item);
        const auto taken = [&] {
            if (kind == "line")
                return QRectF(view->mapToScene(view->points().at(1)), QSizeF(0, 0));
            return view->turn().mapRect(view->frameRect().normalized()).translated(view->pos());
        };
        const QRectF seen = taken();
        canvas.release(from + by, held(true));
        QCOMPARE(seen, expected);
        QCOMPARE(taken(), expected);
        QVERIFY(canvas.view->screenScene()->snapping().marks()->shown().lines.isEmpty());
        if (kind == "locked") {
            QCOMPARE(savedBytes(*canvas.project), before);
            return;
        }
        QVERIFY(view->isSelected()); // Control has chosen nothing
        for (const double number : {item->x(), item->y(), item->width(), item->height()})
            QCOMPARE(number, std::round(number));
        if (member) // not held by its own group
            QCOMPARE(rectOf(member).topLeft(), expected.topLeft());
        canvas.checkOneStep(before);
    }

    void aCopyIsHeldByWhatItIsOf()
    {
        Canvas canvas;
        appendBox(canvas.screen, 100, 100, 40, 30);
        canvas.show();
        canvas.drag({120, 115}, {123, 175}, Qt::AltModifier);
        QCOMPARE(rectOf(canvas.screen->childItem(0)), QRectF(100, 160, 40, 30));
    }

    /// What is seen while it is dragged over the page is where it lands.
    void fromThePalette()
    {
        Canvas canvas;
        canvas.screen->setGuides({{Qt::Vertical, 300}});
        canvas.show();
        QMimeData dragged;
        dragged.setData("widget-create", "?");
        dragged.setText("Kiv_Circle_T");
        for (const bool isHeld : {false, true}) {
            const Qt::KeyboardModifiers held = isHeld ? Qt::ControlModifier : Qt::NoModifier;
            const QPoint at = canvas.at({297, 60});
            QDragEnterEvent enter(at, Qt::CopyAction, &dragged, Qt::LeftButton, held);
            QDragMoveEvent move(at, Qt::CopyAction, &dragged, Qt::LeftButton, held);
            QDropEvent drop(at, Qt::CopyAction, &dragged, Qt::LeftButton, held);
            QCoreApplication::sendEvent(canvas.view->viewport(), &enter);
            QCoreApplication::sendEvent(canvas.view->viewport(), &move);
            const CSnapMarks *marks = canvas.view->screenScene()->snapping().marks();
            QCOMPARE(textOf(marks->shown()).contains("x300:0..272"), !isHeld);
            QCoreApplication::sendEvent(canvas.view->viewport(), &drop);
            QVERIFY(marks->shown().lines.isEmpty());
            QCOMPARE(canvas.screen->childItem(0)->x(), isHeld ? 297.0 : 300.0);
        }
    }
};

QTEST_MAIN(tst_Snapping)
#include "tst_snapping.moc"
