#include "BenchScreen.h"
#include "executor/CExecutor.h"
#include "host/lua/CLuaHost.h"
#include "raster/CSurface.h"

#include <benchmark/benchmark.h>

namespace {

/// A RAM_DL without end, so that the cost of many widgets shows.
constexpr kivemu::SChipLimits LargeChip{1 << 20, 64 << 20, 2048};

/// Walk, script with the watchdog on, and display list; what the worker does before it draws.
void drawFrames(benchmark::State &state, CTestModel &model, bool isChanging)
{
    kivemu::CLuaHost host(LargeChip);
    if (!host.loadText(BenchScript, "bench.lua")) {
        state.SkipWithError(host.loadError().c_str());
        return;
    }
    kivemu::CSnapshot snapshot;
    size_t words = 0;
    int32_t frame = 0;
    for (auto _ : state) {
        if (isChanging)
            model.item(0).set("x_coordinate", ++frame % 100);
        CTestIterator iterator(model);
        snapshot.take(&iterator);
        const kivemu::SDrawing drawing = host.draw(snapshot, 480, 272);
        if (!drawing.errors.isEmpty())
            state.SkipWithError(drawing.errors.text().c_str());
        words = drawing.words.size();
        benchmark::DoNotOptimize(drawing.words.data());
    }
    state.counters["words"] = static_cast<double>(words);
    state.counters["items"] = static_cast<double>(model.itemCount());
    state.counters["ns_per_word"] = benchmark::Counter(
        static_cast<double>(words) * 1e-9,
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void operatorScreen(benchmark::State &state)
{
    CTestModel model;
    fillBenchScreen(model);
    drawFrames(state, model, false);
}

/// As in a drag: one item is another one in each frame.
void operatorScreenDragged(benchmark::State &state)
{
    CTestModel model;
    fillBenchScreen(model);
    drawFrames(state, model, true);
}

void widgets(benchmark::State &state)
{
    CTestModel model;
    fillBenchWidgets(model, static_cast<int>(state.range(0)));
    drawFrames(state, model, false);
}

void walkAlone(benchmark::State &state)
{
    CTestModel model;
    fillBenchWidgets(model, static_cast<int>(state.range(0)));
    kivemu::CSnapshot snapshot;
    for (auto _ : state) {
        CTestIterator iterator(model);
        snapshot.take(&iterator);
        benchmark::DoNotOptimize(snapshot.itemCount());
    }
}

/// Whole frames, drawn too, in which a text has been moved: its own font or one in ROM.
void texts(benchmark::State &state)
{
    CTestModel model;
    fillBenchTexts(model, state.range(0) != 0);
    kivemu::CLuaHost host(LargeChip);
    host.loadText(BenchScript, "bench.lua");
    kivemu::CExecutor executor;
    kivemu::CSurface surface(1024, 768);
    kivemu::CSnapshot snapshot;
    int32_t frame = 0;
    for (auto _ : state) {
        model.item(0).set("x_coordinate", ++frame % 100);
        CTestIterator iterator(model);
        snapshot.take(&iterator);
        const kivemu::SDrawing drawing = host.draw(snapshot, 1024, 768);
        const auto errors =
            executor.execute(drawing.words.data(), drawing.words.size(), host.memory(), surface);
        if (!drawing.errors.isEmpty() || !errors.empty())
            state.SkipWithError(drawing.errors.text().c_str());
        state.counters["words"] = static_cast<double>(drawing.words.size());
    }
}

BENCHMARK(texts)->ArgName("own")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(operatorScreen)->Unit(benchmark::kMicrosecond);
BENCHMARK(operatorScreenDragged)->Unit(benchmark::kMicrosecond);
BENCHMARK(widgets)->Arg(10)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(walkAlone)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
