// The rules of the canvas, without a window: geometries, angles, snapping, zoom, points.
#include "CResizeRule.h"
#include "CRotateRule.h"
#include "PointList.h"

#include <QTest>
#include <QTransform>

#include <cmath>

Q_DECLARE_METATYPE(ResizeKind)

class tst_CanvasRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resize_data()
    {
        // All start at (100, 50) with 40 x 30, or with the radius 20 about (100, 50).
        QTest::addColumn<ResizeKind>("kind");
        QTest::addColumn<int>("handle");
        QTest::addColumn<QPointF>("offset");
        QTest::addColumn<QString>("modifiers"); // "s" keeps the aspect, "a" works from the centre
        QTest::addColumn<QRectF>("expected");   // position and size
        const auto box = ResizeKind::Box;
        const auto circle = ResizeKind::Circular;
        const auto width = ResizeKind::WidthOnly;
        const auto row = [](const char *name, ResizeKind kind, int handle, QPointF offset,
                            const char *modifiers, QRectF expected) {
            QTest::newRow(name) << kind << handle << offset << modifiers << expected;
        };
        row("top down by 10", box, 0, {3, 10}, "", {100, 60, 40, 20});
        row("right", box, 2, {7, 99}, "", {100, 50, 47, 30});
        row("bottom right", box, 3, {7, 9}, "", {100, 50, 47, 39});
        row("left", box, 6, {6, 99}, "", {106, 50, 34, 30});
        row("no fractions", box, 7, {0.4, 0.6}, "", {100, 51, 40, 29});
        row("top past the minimum of 8", box, 0, {0, 99}, "", {100, 72, 40, 8});
        row("right past the maximum of 200", box, 2, {999, 0}, "", {100, 50, 200, 30});
        row("corner with the aspect", box, 3, {40, 0}, "s", {100, 50, 80, 60});
        row("edge with the aspect", box, 2, {40, 0}, "s", {100, 35, 80, 60});
        row("a line in its direction", ResizeKind::Line, 3, {-30, 30}, "s", {100, 50, 35, 26});
        row("a line at the pointer", ResizeKind::Line, 3, {3, 30}, "s", {100, 50, 56, 42});
        row("right from the centre", box, 2, {10, 0}, "a", {90, 50, 60, 30});
        row("height from font: sideways", width, 3, {10, 10}, "", {100, 50, 50, 30});
        row("height from font: up and down", width, 0, {10, 10}, "", {100, 50, 40, 30});
        row("circle top", circle, 0, {99, -10}, "", {100, 45, 50, 50});
        row("circle right", circle, 2, {10, 99}, "", {105, 50, 50, 50});
        row("circle top right takes the larger", circle, 1, {10, -4}, "", {105, 45, 50, 50});
        row("circle top left", circle, 7, {-10, 20}, "", {95, 45, 50, 50});
        row("circle by whole radii", circle, 6, {5, 0}, "", {103, 50, 34, 34});
        row("circle from the centre", circle, 2, {10, 0}, "a", {100, 50, 60, 60});
        row("circle to nothing", circle, 2, {-999, 0}, "", {84, 50, 8, 8});
    }

    void resize()
    {
        QFETCH(ResizeKind, kind);
        QFETCH(int, handle);
        QFETCH(QPointF, offset);
        QFETCH(QString, modifiers);
        QFETCH(QRectF, expected);
        const QSizeF size = kind == ResizeKind::Circular ? QSizeF(40, 40) : QSizeF(40, 30);
        const CResizeRule gesture(kind, handle, {{100, 50}, size}, {{8, 8}, {200, 200}});
        CResizeRule::Modifiers held;
        held.keepAspect = modifiers.contains('s');
        held.fromCentre = modifiers.contains('a');
        const auto result = gesture.geometryFor(offset, held);
        QCOMPARE(QRectF(result.position, result.size), expected);
    }

    /// The property that most mistakes break: the opposite edge does not move, for every handle.
    void whatIsNotDraggedStays()
    {
        const QRectF start(100, 50, 40, 30);
        // Where a turned item is seen, but for the rounding of its position.
        for (const double degrees : {0.0, 33.0, 90.0, 160.0, 270.0, 355.0}) {
            const double allowed = degrees == 0.0 ? 0.0 : 0.5 + 1e-9;
            for (int handle = 0; handle < 8; ++handle) {
                const CResizeRule gesture(ResizeKind::Box, handle, {start.topLeft(), start.size()},
                                          {{8, 8}, {200, 200}}, degrees);
                const auto opposite = [handle, degrees](const QRectF &rect) {
                    const QPointF own(-CResizeRule::horizontalSide(handle) * rect.width() / 2,
                                      -CResizeRule::verticalSide(handle) * rect.height() / 2);
                    return rect.center() + QTransform().rotate(degrees).map(own);
                };
                for (int step = -60; step <= 60; step += 7) {
                    const auto sized = gesture.geometryFor(QPointF(step * 0.9, step * 1.3), {});
                    const QPointF drift = opposite({sized.position, sized.size}) - opposite(start);
                    QVERIFY(std::abs(drift.x()) <= allowed && std::abs(drift.y()) <= allowed);
                }
            }
        }
        // The axes of an item that is turned by 90 degrees: its right edge faces down.
        const CResizeRule turned(ResizeKind::Box, 2, {start.topLeft(), start.size()}, {}, 90);
        QCOMPARE(turned.geometryFor({0, 10}, {}).size, QSizeF(50, 30));
        QCOMPARE(turned.geometryFor({10, 0}, {}).size, QSizeF(40, 30));
    }

    void rotation()
    {
        const QPointF centre(100, 100);
        const CRotateRule fromTop(centre, {100, 50}, 0);
        QCOMPARE(fromTop.angleFor({150, 100}), 90.0);
        QCOMPARE(fromTop.angleFor({100, 150}), 180.0);
        QCOMPARE(fromTop.angleFor({100, 50}), 0.0);
        // Where the handle is taken does not matter: nothing turns until the pointer does.
        const CRotateRule askew(centre, {130, 60}, 300);
        QCOMPARE(askew.angleFor({130, 60}), 300.0);
        QVERIFY(askew.angleFor({60, 70}) < 360 && askew.angleFor({60, 70}) >= 0);
        QCOMPARE(CRotateRule::stepped(52), 45.0);
        QCOMPARE(CRotateRule::stepped(53), 60.0);
        QCOMPARE(CRotateRule::stepped(359), 0.0);
    }

    void points()
    {
        using PointList::Points;
        QCOMPARE(PointList::parse("0,40;30,12;-5,7"), Points({{0, 40}, {30, 12}, {-5, 7}}));
        QCOMPARE(PointList::parse(" ;1;1,2,3;a,b;4,5"), Points({{4, 5}}));
        QCOMPARE(PointList::format({{0.4, 39.5}, {-2.5, 1}}), QString("0,40;-3,1"));
        const Points square = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
        QCOMPARE(PointList::insertionIndex(square, {50, 3}, false), 1);
        QCOMPARE(PointList::insertionIndex(square, {103, 40}, false), 2);
        QCOMPARE(PointList::insertionIndex(square, {2, 50}, true), 4);
        QVERIFY(PointList::insertionIndex(square, {2, 50}, false) != 4);
    }
};

QTEST_MAIN(tst_CanvasRules)
#include "tst_canvasrules.moc"
