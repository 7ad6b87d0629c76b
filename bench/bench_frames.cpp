// Frames of a model through the emulator library's C functions, with the real widget library and
// render script: what growing screens cost. And the part of it that is walk and script.
#include "BenchProjects.h"
#include "CFrameClient.h"
#include "CModelIterator.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "host/lua/CLuaHost.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace {

using namespace bench;

constexpr uint32_t Chip = 0x110;
constexpr int StandardProject = 0; ///< beside the numbers of small widgets

const CProgramData &programData()
{
    static const CProgramData data(QStringLiteral(KIV_BIN_DIR));
    return data;
}

/// Null when it cannot be loaded.
const CProjectModel *project(int64_t which)
{
    static std::map<int64_t, CProjectModel> projects;
    CProjectModel &model = projects[which];
    if (model.screenCount() == 0) {
        QString error;
        const QByteArray xml = which == StandardProject ? standardWidgets(standardScreen(480, 272))
                                                        : smallWidgets(static_cast<int>(which));
        if (!model.loadFromBytes(xml, &error))
            std::fprintf(stderr, "%s\n", qPrintable(error));
    }
    return model.screenCount() == 2 ? &model : nullptr;
}

void report(benchmark::State &state, const CProjectModel &model, size_t words)
{
    state.counters["words"] = static_cast<double>(words);
    state.counters["items"] = model.screen(0)->rowCount();
}

/// Walk, script, execution and both callbacks, each frame unlike the one before.
void wholeFrame(benchmark::State &state)
{
    const CProjectModel *model = project(state.range(0));
    CFrameClient &client = CFrameClient::instance();
    if (!model || !client.start(programData().renderScriptPath().toStdString(), Chip)) {
        state.SkipWithError("the project or the render script cannot be loaded");
        return;
    }
    const QSize size = model->resolution();
    Emu_ConfigScreen(static_cast<uint32_t>(size.width()), static_cast<uint32_t>(size.height()));
    int frame = 0;
    for (auto _ : state) {
        client.render(model->screen(frame ^= 1));
        if (!client.errors().empty())
            state.SkipWithError(client.errors().c_str());
    }
    report(state, *model, client.displayListBytes() / 4);
    state.SetComplexityN(state.range(0));
    client.stop();
}

/// Walk and script alone, with the watchdog on.
void walkAndScript(benchmark::State &state)
{
    const CProjectModel *model = project(state.range(0));
    kivemu::CLuaHost host(kivemu::chipLimits(Chip));
    if (!model || !host.loadFile(programData().renderScriptPath().toStdString())) {
        state.SkipWithError("the project or the render script cannot be loaded");
        return;
    }
    const QSize size = model->resolution();
    kivemu::CSnapshot snapshot;
    size_t words = 0;
    int frame = 0;
    for (auto _ : state) {
        CModelIterator iterator(model->screen(frame ^= 1));
        snapshot.take(&iterator);
        const auto drawing = host.draw(snapshot, size.width(), size.height());
        if (!drawing.errors.isEmpty())
            state.SkipWithError(drawing.errors.text().c_str());
        words = drawing.words.size();
    }
    report(state, *model, words);
}

BENCHMARK(wholeFrame)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond)
    ->MeasureProcessCPUTime() // the worker's time counts
    ->Complexity(benchmark::oN);
BENCHMARK(walkAndScript)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

void standardFrame(benchmark::State &state)
{
    wholeFrame(state);
}
void standardWalkAndScript(benchmark::State &state)
{
    walkAndScript(state);
}
BENCHMARK(standardFrame)
    ->Arg(StandardProject)
    ->Unit(benchmark::kMicrosecond)
    ->MeasureProcessCPUTime();
BENCHMARK(standardWalkAndScript)->Arg(StandardProject)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QString error = programData().loadWidgetLibrary();
    if (!error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
