// Aligning, distributing, sizing and centring: the arithmetic, then items of every geometry.
#include "ArrangeRule.h"
#include "CItemArrange.h"
#include "CanvasTestSupport.h"
#include "ItemOperations.h"

#include <QUndoStack>

using W = CItemArrange;
using ArrangeRule::EEdge;
using ArrangeRule::Spans;
using ArrangeRule::SSpan;
Q_DECLARE_METATYPE(Spans)

class tst_Arrange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }

    void rule_data()
    {
        QTest::addColumn<QString>("what"); // and the edge, or the gap
        QTest::addColumn<Spans>("spans");
        QTest::addColumn<QVector<int>>("steps");
        const auto row = [](const char *name, const char *what, const Spans &spans,
                            const QVector<int> &steps) {
            QTest::newRow(name) << QString(what) << spans << steps;
        };
        const Spans three = {{10, 50}, {71, 91}, {60, 68}};
        row("first", "align 0", three, {0, -61, -50});
        row("last", "align 2", three, {41, 0, 23});
        row("middle, odd sizes to one side", "align 1", {{0, 10}, {85, 100}}, {45, -43});
        row("to what is locked", "align 0", {{10, 50}, {71, 91, true}, {60, 68}}, {61, 0, 11});
        row("less than a pixel", "align 0", {{0, 9}, {10.5, 20}, {0.5, 3}}, {0, -10, 0});
        row("rest pixels to the first gaps", "distribute 0",
            {{0, 5}, {90, 95}, {1, 6}, {2, 7}, {3, 8}}, {0, 0, 22, 44, 65});
        row("last edges", "distribute 2", {{0, 10}, {20, 60}, {80, 100}}, {0, -5, 0});
        row("by the locked one between", "distribute 0",
            {{0, 5}, {10, 15}, {40, 45, true}, {41, 46}, {100, 105}}, {0, 10, 0, 29, 0});
        row("gaps", "gaps", {{0, 10}, {12, 42}, {50, 55}, {90, 100}}, {0, 13, 20, 0});
        row("overlapping", "gaps", {{0, 40}, {1, 61}, {50, 90}}, {0, 14, 0});
        row("given gap", "gaps 8", {{30, 40}, {0, 20}, {41, 50, true}, {42, 60}}, {-2, 0, 0, 16});
    }

    /// Asked again, nothing moves any more.
    void rule()
    {
        QFETCH(QString, what);
        QFETCH(Spans, spans);
        QFETCH(QVector<int>, steps);
        const QString number = what.section(' ', 1);
        const auto edge = EEdge(number.toInt());
        const auto moved = [&] {
            if (what.startsWith("align"))
                return ArrangeRule::align(spans, ArrangeRule::reference(spans), edge);
            if (what.startsWith("distribute"))
                return ArrangeRule::distribute(spans, edge);
            return ArrangeRule::distributeGaps(
                spans, number.isEmpty() ? std::nullopt : std::optional<int>(number.toInt()));
        };
        QCOMPARE(moved(), steps);
        for (int index = 0; index < spans.size(); ++index) {
            spans[index].first += steps.at(index);
            spans[index].last += steps.at(index);
        }
        QCOMPARE(moved(), QVector<int>(spans.size(), 0));
    }

    void items_data()
    {
        QTest::addColumn<int>("what");
        QTest::addColumn<QString>("items"); // of the page below, a letter each
        QTest::addColumn<QString>("after"); // their frames, or nothing when nothing is to happen
        const auto row = [](const char *name, W::EWhat what, const char *items, const char *after) {
            QTest::newRow(name) << int(what) << QString(items) << QString(after);
        };
        row("every kind to the left", W::AlignLeft, "bcltpg",
            "10,20 40x30|10,85 30x30|10,40 60x50|10,100 40x40|10,150 40x30|10,200 40x30");
        row("to the bottom, turned by what is seen", W::AlignBottom, "bt",
            "10,110 40x30|180,100 40x40");
        row("a group goes to the page", W::AlignRight, "g", "440,200 40x30");
        row("to the key item", W::AlignLeft, "!tb", "180,100 40x40|180,20 40x30");
        row("about the key item", W::DistributeAcross, "!cblg",
            "135,85 30x30|10,20 40x30|228,40 60x50|350,200 40x30");
        row("locked: the others come", W::AlignTop, "bk", "10,230 40x30|100,230 30x20");
        row("locked alone", W::AlignTop, "k", "");
        row("gaps across", W::DistributeAcross, "bcg", "10,20 40x30|185,85 30x30|350,200 40x30");
        row("two have no gaps", W::DistributeAcross, "bc", "");
        row("given gap", W::GapDown, "bcl", "10,20 40x30|135,108 30x30|240,54 60x50");
        row("width of the first", W::SameWidth, "cblt",
            "135,85 30x30|10,20 30x30|270,40 30x50|175,105 40x30");
        row("height, of a circle both", W::SameHeight, "tck",
            "180,100 40x40|130,80 40x40|100,230 30x20");
        row("a group as one", W::SameSize, "lgb", "240,40 60x50|350,200 60x50|10,20 60x50");
        row("height of a group with a lock", W::SameHeight, "lh", "240,40 60x50|400,100 20x117");
        row("a group with a lock to the page", W::AlignTop, "h", "400,0 20x120");
        row("points have no size", W::SameSize, "bp", "");
        row("what is locked does not count", W::CentreBoth, "bk", "220,121 40x30|100,230 30x20");
        row("both ways, in their arrangement", W::CentreBoth, "bc", "162,88 40x30|287,153 30x30");
    }

    void items()
    {
        QFETCH(int, what);
        QFETCH(QString, items);
        QFETCH(QString, after);
        const auto project = newTestProject();
        CScreenModel *screen = project->screen(0);
        QHash<QChar, CItemModel *> all;
        all['b'] = appendBox(screen, 10, 20, 40, 30);
        all['c'] =
            appendWidget(screen, "Kiv_Circle_T",
                         {{PropertyKey::X, 150}, {PropertyKey::Y, 100}, {PropertyKey::Radius, 15}});
        all['l'] = appendWidget(screen, "Kiv_Line_T", // to the left
                                {{PropertyKey::X, 300},
                                 {PropertyKey::Y, 40},
                                 {PropertyKey::X2, 240},
                                 {PropertyKey::Y2, 90}});
        all['t'] = appendBox(screen, 180, 100, 40, 40);
        all['t']->setProperty(PropertyKey::Angle, 90);
        all['p'] = appendWidget(screen, "Kiv_Polygon_T",
                                {{PropertyKey::X, 200},
                                 {PropertyKey::Y, 150},
                                 {PropertyKey::PointList, "0,0;40,10;20,30"}});
        auto *group = new CWidgetGroupModel(screen->library(), screen->observer());
        screen->appendRow(group);
        group->setProperty(PropertyKey::X, 350);
        group->setProperty(PropertyKey::Y, 200);
        appendBox(group, 350, 200, 10, 10);
        appendBox(group, 370, 210, 20, 20);
        all['g'] = group;
        all['h'] = ItemOperations::group(
            *screen, {appendBox(screen, 400, 100, 20, 20), appendBox(screen, 400, 140, 20, 30)},
            {400, 100});
        all['h']->childItem(0)->setLocked(true); // 40 above the other
        project->undoStack()->clear();
        all['k'] = appendBox(screen, 100, 230, 30, 20);
        all['k']->setLocked(true);

        QVector<CItemModel *> chosen;
        const auto reference =
            items.startsWith('!') ? W::EReference::KeyItem : W::EReference::Selection;
        for (const QChar each : items.remove('!'))
            chosen.append(all.value(each));
        const QByteArray before = savedBytes(*project);
        const W arrange(chosen, reference);
        QCOMPARE(arrange.lack(W::EWhat(what)).isEmpty(), !after.isEmpty());
        arrange.run(W::EWhat(what), "Arrange", 4);
        QUndoStack *stack = project->undoStack();
        QCOMPARE(stack->count(), after.isEmpty() ? 0 : 1);
        if (after.isEmpty())
            return;
        QStringList frames;
        for (const CItemModel *each : qAsConst(chosen)) {
            const QRectF frame = W::frameOf(*each);
            frames << QStringLiteral("%1,%2 %3x%4")
                          .arg(frame.x())
                          .arg(frame.y())
                          .arg(frame.width())
                          .arg(frame.height());
        }
        QCOMPARE(frames.join('|'), after);
        W(chosen, reference).run(W::EWhat(what), "Arrange", 4); // nothing is left to do
        QCOMPARE(stack->count(), 1);
        stack->undo();
        QCOMPARE(savedBytes(*project), before);
    }
};

QTEST_MAIN(tst_Arrange)
#include "tst_arrange.moc"
