// What is seen on a canvas: grid, outlines, handles, guide lines, and where the items' frames lie.
#include "CanvasFixture.h"

#include <QPixmap>
#include <QScrollBar>

#include <cmath>

namespace {
const QColor GuideColour(255, 232, 32);
const QColor CrossColour(255, 32, 0);
const QColor HandleColour(33, 255, 200);

QImage pictureOf(const Canvas &canvas)
{
    return canvas.view->viewport()->grab().toImage();
}

int countOf(const QImage &picture, const QColor &colour)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
}

} // namespace

class tst_CanvasPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init() { resetEditorState(); }

    void grid_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("spacing");
        QTest::addColumn<int>("expected"); // scene units from line to line
        QTest::newRow("as it is set") << 100 << 20 << 20;
        QTest::newRow("enlarged") << 200 << 20 << 20;
        QTest::newRow("never closer than about ten pixels") << 25 << 20 << 40;
        QTest::newRow("whole multiples of the spacing") << 50 << 7 << 14;
        QTest::newRow("narrow") << 100 << 1 << 10;
        QTest::newRow("from ten times on every unit") << 1000 << 20 << 1;
    }

    void grid()
    {
        QFETCH(int, percent);
        QFETCH(int, spacing);
        QFETCH(int, expected);
        Canvas canvas;
        canvas.show();
        CEditorState::instance()->setGrid(true, spacing, Qt::white, Qt::SolidLine);
        if (percent < 50) // only fitted
            canvas.view->resize(480 * percent / 100, 560);
        canvas.view->zoom(percent, percent < 50 ? 1 : 0);
        QCOMPARE(canvas.view->scale(), percent / 100.0);
        canvas.view->horizontalScrollBar()->setValue(static_cast<int>(203 * canvas.view->scale()));

        const QImage picture = pictureOf(canvas);
        const double middle = canvas.view->mapToScene(0, canvas.view->height() / 2).y();
        const int y = // between two lines of the other direction
            canvas.at({0, (std::floor(middle / expected) + 0.5) * expected}).y();
        QVERIFY(picture.rect().contains(QPoint(0, y)));
        int lines = 0;
        for (int x = std::max(0, canvas.at({0, 0}).x() + 2);
             x < std::min(picture.width(), canvas.at({480, 0}).x() - 1); ++x) {
            const double unit = canvas.view->mapToScene(x, y).x();
            const double nearest = std::round(unit / expected) * expected;
            const bool isOnLine = canvas.at({nearest, 0}).x() == x;
            // White at an alpha of 50 on black.
            QCOMPARE(picture.pixelColor(x, y).red(), isOnLine ? 50 : 0);
            lines += isOnLine ? 1 : 0;
        }
        QVERIFY(lines >= 3);
        CEditorState::instance()->setGridFaint(true);
        QCOMPARE(countOf(pictureOf(canvas), QColor(50, 50, 50)), 0);
        QVERIFY(countOf(pictureOf(canvas), QColor(20, 20, 20)) > 100);
        CEditorState::instance()->setGridFaint(false);
        CEditorState::instance()->setGrid(false, spacing, Qt::white, Qt::SolidLine);
        QCOMPARE(countOf(pictureOf(canvas), QColor(50, 50, 50)), 0);
    }

    void outlines()
    {
        CEditorState::instance()->setGrid(false, 20, Qt::white, Qt::SolidLine);
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, 60, 60);
        CItemModel *behind = appendBox(canvas.screen, 90, 90, 150, 150);
        canvas.show();
        item->setLocked(true); // without handles
        canvas.select({});
        const QImage none = pictureOf(canvas);
        canvas.select({behind});
        const QImage one = pictureOf(canvas);
        canvas.select({item}); // and the other one is framed
        QVERIFY(none != one && one != pictureOf(canvas));
        QCOMPARE(countOf(pictureOf(canvas), HandleColour), 0);
        canvas.view->lockItems();
        QVERIFY(countOf(pictureOf(canvas), HandleColour) > 8 * 4);
    }

    /// Their light line has a dark one beside it.
    void handlesAreSeenBesideThePage()
    {
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, -110, 60, 60, 40);
        CItemModel *other = appendBox(canvas.screen, -110, 160, 60, 40);
        canvas.show();
        canvas.view->setPalette(QPalette(QColor(0xf5, 0xf6, 0xf8)));
        canvas.view->centerOn(0, 0);
        for (const QVector<CItemModel *> &items : {QVector<CItemModel *>{item}, {item, other}}) {
            canvas.select(items);
            const QImage picture = pictureOf(canvas);
            int seen = 0;
            for (int y = 1; y < picture.height() - 1; ++y) {
                for (int x = 1; x < picture.width() - 1; ++x) {
                    if (picture.pixelColor(x, y) != HandleColour)
                        continue;
                    ++seen;
                    QVERIFY(picture.pixelColor(x - 1, y - 1).lightness() < 130 ||
                            picture.pixelColor(x + 1, y + 1).lightness() < 130);
                }
            }
            QVERIFY(seen > 8 * 20);
        }
    }

    void handlesAreTakenWhereTheyAreSeen_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("side");
        for (const int percent : {50, 200}) {
            for (const int side : {6, 20, 80})
                QTest::addRow("%d %%, %d wide", percent, side) << percent << side;
        }
    }

    void handlesAreTakenWhereTheyAreSeen()
    {
        QFETCH(int, percent);
        QFETCH(int, side);
        constexpr int Around = 3; // pixels that a finger may miss by
        CEditorState::instance()->setGrid(false, 20, Qt::white, Qt::SolidLine);
        Canvas canvas;
        CItemModel *item = appendBox(canvas.screen, 100, 100, side, side);
        canvas.show();
        canvas.view->zoom(percent, 0);
        canvas.view->centerOn(100, 100);
        canvas.select({item});
        const QImage picture = pictureOf(canvas);
        QVector<QPoint> seen;
        QVector<QPoint> taken;
        const QRect around = QRect(canvas.at({100, 100}), canvas.at({100.0 + side, 100.0 + side}))
                                 .adjusted(-40, -40, 40, 40) // enough for each handle
                                 .intersected(picture.rect());
        for (int y = around.top(); y <= around.bottom(); ++y) {
            for (int x = around.left(); x <= around.right(); ++x) {
                const QPoint at(x, y);
                const QColor colour = picture.pixelColor(at);
                if (colour.green() > 60 && colour.green() > colour.blue() + 10) // round ones fade
                    seen.append(at);
                if (canvas.view->screenScene()->handleAt(canvas.view->mapToScene(at),
                                                         canvas.view->viewportTransform()))
                    taken.append(at);
            }
        }
        QVERIFY(seen.size() > 100);
        for (const QPoint &each : qAsConst(seen))
            QVERIFY2(taken.contains(each), "a handle that cannot be taken");
        for (const QPoint &each : qAsConst(taken)) {
            const QRect finger(each - QPoint(Around, Around), each + QPoint(Around, Around));
            const bool isNear = std::any_of(seen.begin(), seen.end(), [&finger](const QPoint &at) {
                return finger.contains(at);
            });
            QVERIFY2(isNear, "a handle that is taken where it is not");
        }
    }

    void guidesDuringADrag()
    {
        Canvas canvas;
        appendBox(canvas.screen, 100, 100, 40, 30);
        CItemModel *line = appendWidget(canvas.screen, "Kiv_Line_T",
                                        {{PropertyKey::X, 13},
                                         {PropertyKey::Y, 7},
                                         {PropertyKey::X2, 53},
                                         {PropertyKey::Y2, 9}});
        appendBox(canvas.screen, 223, 47, 40, 30);
        canvas.show();
        canvas.select({canvas.screen->childItem(0), line});
        canvas.press({110, 110});
        canvas.move({200, 100});
        canvas.move({232, 112}); // to the left edge of the third: 223; to the grid: 100
        QCOMPARE(QPointF(line->x(), line->y()), QPointF(136, 7));
        QCOMPARE(QPointF(line->x2(), line->y2()),
                 QPointF(176, 9)); // it keeps its length all the way
        QImage picture = pictureOf(canvas);
        const int x = canvas.at({223, 0}).x();
        int above = 0;
        int below = 0;
        for (int y = 0; y < picture.height(); ++y) {
            if (picture.pixelColor(x, y) == GuideColour)
                (y < canvas.at({0, 47}).y() ? above : below) += 1;
        }
        QVERIFY(above > 20 && below > 20);
        QCOMPARE(countOf(picture, GuideColour), above + below); // no line where the grid decided
        QCOMPARE(picture.pixelColor(canvas.at({223, 100}) + QPoint(0, -8)), CrossColour);
        canvas.release({232, 112});
        picture = pictureOf(canvas);
        QCOMPARE(countOf(picture, GuideColour), 0);
        QCOMPARE(countOf(picture, CrossColour), 0);
    }

    /// Also where only a part of it is in sight and painted.
    void theFrameAtEveryZoom()
    {
        CEditorState::instance()->setGrid(false, 20, Qt::white, Qt::SolidLine);
        Canvas canvas;
        canvas.show();
        QImage frame(1024, 768, QImage::Format_RGB32);
        for (int y = 0; y < frame.height(); ++y) {
            for (int x = 0; x < frame.width(); ++x)
                frame.setPixel(x, y, qRgb(std::min(x, 255), std::min(y, 255), 90));
        }
        canvas.view->setFrame(QPixmap::fromImage(frame));
        for (const int percent : {100, 150, 400, 3000}) {
            canvas.view->zoom(percent, 0);
            const QImage picture = pictureOf(canvas);
            for (const QPoint at : {QPoint(200, 200), QPoint(350, 333)}) {
                const QPointF seen = canvas.view->viewportTransform().inverted().map(QPointF(at));
                const QColor colour = picture.pixelColor(at); // its place in the frame
                QCOMPARE(colour.blue(), 90);
                QVERIFY(std::abs(colour.red() - seen.x()) < 2 &&
                        std::abs(colour.green() - seen.y()) < 2);
            }
        }
    }

    void frames_data()
    {
        using Values = QHash<QString, QVariant>;
        QTest::addColumn<QString>("type");
        QTest::addColumn<Values>("values"); // at (100, 100)
        QTest::addColumn<QRectF>("expected");
        const auto row = [](const char *name, const QString &type, const Values &values,
                            const QRectF &expected) {
            QTest::newRow(name) << type << values << expected;
        };
        row("box", "Kiv_Rectangle_T", {{"width", 30}, {"height", 40}}, {100, 100, 30, 40});
        row("point size", "Kiv_Circle_T", {{"point_size", 320}}, {80, 80, 40, 40});
        row("radius", "Kiv_Ring_T", {{"radius", 30}}, {70, 70, 60, 60});
        row("two points", "Kiv_Line_T", {{"x2_coordinate", 70}, {"y2_coordinate", 130}},
            {70, 100, 30, 30});
        row("height 29 from its font", "Kiv_Toggle_T", {{"width", 64}, {"font", 24}},
            {100, 91, 64, 36});
        row("height of an unknown font", "Kiv_Toggle_T", {{"width", 64}, {"font", 40}},
            {100, 85, 64, 61});
        row("points", "Kiv_Polyline_T", {{"pointlist", "0,40;30,12;120,20"}}, {100, 112, 120, 28});
    }

    void frames()
    {
        QFETCH(QString, type);
        using Values = QHash<QString, QVariant>;
        QFETCH(Values, values);
        QFETCH(QRectF, expected);
        values.insert(PropertyKey::X, 100);
        values.insert(PropertyKey::Y, 100);
        Canvas canvas;
        CItemModel *item = appendWidget(canvas.screen, type, values);
        canvas.show();
        QCOMPARE(canvas.viewOf(item)->sceneRect(), expected);
        QCOMPARE(ItemGeometry::frameOf(*item), expected);
    }
};

QTEST_MAIN(tst_CanvasPainting)
#include "tst_canvaspainting.moc"
