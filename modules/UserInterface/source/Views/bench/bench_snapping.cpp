// What snapping adds to each move of a drag among so many items, beside a peer that has to look at
// the same ones: QGraphicsScene tells what lies in the row and in the column of what is dragged.
//   build/bench/bench_snapping [--benchmark_filter=…]
#include "CSnapRule.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QGraphicsRectItem>
#include <QGraphicsScene>

#include <cmath>
#include <random>

namespace {
const QRectF Page(0, 0, 1024, 768);
constexpr int Steps = 256; // of a drag right through the page

/// Scattered, or in rows and columns, where every move meets many that are in line.
QVector<QRectF> items(int count, bool areInRows)
{
    std::mt19937 chance(1);
    const auto upTo = [&chance](int most) { return static_cast<int>(chance() % unsigned(most)); };
    QVector<QRectF> rects;
    for (int index = 0; index < count; ++index) {
        if (areInRows)
            rects.append(QRectF(index % 25 * 40, index / 25 * 36, 30, 20));
        else
            rects.append(QRectF(upTo(960), upTo(720), 8 + upTo(60), 8 + upTo(40)));
    }
    return rects;
}

QRectF frameAt(int step)
{
    return {std::round(step * 3.5), std::round(step * 2.7), 64, 40};
}

void snap(benchmark::State &state)
{
    const SnapKinds all = ESnapKind::Items | ESnapKind::Page | ESnapKind::Guides | ESnapKind::Gaps;
    const CSnapRule rule({items(int(state.range(0)), state.range(1) != 0), Page, {100}, {100}},
                         all);
    int step = 0;
    for (auto _ : state) {
        const QRectF frame = frameAt(++step % Steps);
        const auto outlineAt = [&frame](const QPointF &by) {
            return frame.translated(std::round(by.x()), std::round(by.y()));
        };
        benchmark::DoNotOptimize(rule.snap(outlineAt, {}, 6));
    }
}

void peer(benchmark::State &state)
{
    QGraphicsScene scene(Page);
    scene.setItemIndexMethod(QGraphicsScene::NoIndex); // as the canvas
    for (const QRectF &each : items(int(state.range(0)), state.range(1) != 0))
        scene.addRect(each);
    int step = 0;
    for (auto _ : state) {
        const QRectF frame = frameAt(++step % Steps);
        const QRectF row(0, frame.top(), Page.width(), frame.height());
        const QRectF column(frame.left(), 0, frame.width(), Page.height());
        benchmark::DoNotOptimize(scene.items(row));
        benchmark::DoNotOptimize(scene.items(column));
    }
}

/// What it takes to begin: once for a drag.
void begin(benchmark::State &state)
{
    const QVector<QRectF> rects = items(int(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        const CSnapRule rule({rects, Page, {}, {}}, ESnapKind::Items);
        benchmark::DoNotOptimize(&rule);
    }
}

BENCHMARK(snap)->ArgsProduct({{60, 500, 5000}, {0, 1}})->ArgNames({"items", "rows"});
BENCHMARK(peer)->ArgsProduct({{60, 500, 5000}, {0, 1}})->ArgNames({"items", "rows"});
BENCHMARK(begin)->Args({500, 0})->ArgNames({"items", "rows"});
} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
