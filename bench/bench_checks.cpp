// What looking at a project costs, beside the plain export of the same project in the same run: the
// commands of panel-export as programs, from start to end, and then the engines behind them,
// without the rendering that they start from.
//   bench_checks [--keep FOLDER] [options of Google Benchmark]
#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CProgramData.h"
#include "CProjectExporter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CStateReader.h"
#include "PanelProject.h"
#include "PictureDifference.h"
#include "ProgramCost.h"
#include "ProjectBudget.h"
#include "ProjectChanges.h"
#include "ProjectChecks.h"

#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

using namespace bench;

namespace {

/// Prints medians of what the runs took, each beside the first of its kind: programs beside the
/// export of lists, engines too.
class CCostTable : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred)
                std::printf("%s: %s\n", run.run_name.function_name.c_str(),
                            run.error_message.c_str());
            if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median")
                continue;
            const auto counter = [&run](const char *name) {
                const auto found = run.counters.find(name);
                return found == run.counters.end() ? 0.0 : found->second.value;
            };
            const double processor =
                counter("processor") > 0 ? counter("processor") : run.GetAdjustedCPUTime();
            if (m_first == 0) {
                m_first = processor;
                std::printf("%-34s %12s %9s %10s %9s\n", "100 screens, 10,000 widgets",
                            "processor ms", "ratio", "elapsed ms", "most MB");
            }
            std::printf("%-34s %12.1f %9.2f", run.run_name.function_name.c_str(), processor,
                        processor / m_first);
            if (counter("MB") > 0)
                std::printf(" %10.1f %9.0f", counter("elapsed"), counter("MB"));
            std::printf("\n");
            std::fflush(stdout);
        }
    }

private:
    double m_first = 0;
};

void addProgram(const char *name, const QByteArray &folder, std::vector<const char *> words,
                int exitCode = 0)
{
    words.insert(words.begin(), "panel-export");
    benchmark::RegisterBenchmark(name,
                                 [=](benchmark::State &state) {
                                     for (auto each : state) {
                                         (void)each;
                                         const SProgramCost cost =
                                             programCost(folder.constData(), words);
                                         if (cost.exitCode != exitCode)
                                             state.SkipWithError("the program failed");
                                         state.SetIterationTime(cost.seconds);
                                         state.counters["processor"] = cost.processorSeconds * 1000;
                                         state.counters["elapsed"] = cost.seconds * 1000;
                                         state.counters["MB"] = cost.megabytes;
                                     }
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1);
}

template<typename Work>
void addEngine(const char *name, Work work)
{
    benchmark::RegisterBenchmark(name, [work](benchmark::State &state) {
        for (auto each : state) {
            (void)each;
            benchmark::DoNotOptimize(work());
        }
    })->Unit(benchmark::kMillisecond);
}

void addPrograms(const QByteArray &folder)
{
    addProgram("export of lists", folder, {PanelFile, "--dl", "o.dl", "--bin", "o.bin"});
    addProgram("export of pictures", folder, {PanelFile, "--png", "png"});
    addProgram("check", folder, {"check", PanelFile, "--json", "checks.json"});
    addProgram("budget", folder, {"budget", PanelFile, "--json", "budget.json"});
    addProgram("diff, nothing changed", folder, {"diff", PanelFile, PanelFile});
    addProgram("diff", folder, {"diff", PanelFile, ChangedPanelFile}, 1);
}

/// A project with what was drawn of all its screens.
struct SDrawn
{
    CProjectModel project;
    QList<SScreenExport> screens;

    bool read(const QString &file)
    {
        if (!project.loadFromFile(file, nullptr))
            return false;
        CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
        CEmulatorSession session(adapter);
        session.open(&project);
        auto drawn = CProjectExporter(adapter).collect(
            &project, CProjectExporter::EContent::DisplayListsAndFrames);
        session.close();
        screens = drawn.value_or(QList<SScreenExport>());
        return screens.size() == project.screenCount();
    }
};

void addEngines(const SDrawn &before, const SDrawn &after)
{
    addEngine("findings of the screens", [&before] {
        int count = 0;
        for (const SScreenExport &screen : before.screens)
            count += ProjectChecks::ofScreen(*screen.screen, screen, {}).size();
        return count;
    });
    addEngine("look at the pictures", [&before] {
        int count = 0;
        CPictureLook pictures;
        for (const SScreenExport &screen : before.screens)
            count += pictures.look(screen).ink.size();
        return count;
    });
    addEngine("findings of the project", [&before] {
        ProjectChecks::ImageContents images;
        for (const SScreenExport &screen : before.screens)
            images += ProjectChecks::imagesOf(screen);
        return ProjectChecks::ofProject(before.project, images).size();
    });
    addEngine("budget of the project", [&before] {
        QVector<SScreenBudget> budgets;
        for (const SScreenExport &screen : before.screens)
            budgets.append(ProjectBudget::ofScreen(*screen.screen, screen));
        return ProjectBudget::ofProject(budgets).screens.size();
    });
    addEngine("changes of the items", [&] {
        const ProjectState earlier = CStateReader::read(before.project);
        const ProjectState later = CStateReader::read(after.project);
        return projectChanges(*earlier, *later).screens.size();
    });
    addEngine("changes of the pictures", [&] {
        qint64 pixels = 0;
        for (int i = 0; i < before.screens.size(); ++i)
            pixels += pictureDifference(before.screens[i].frame, after.screens[i].frame).pixels;
        return pixels;
    });
}

} // namespace

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0); // as the programs
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QTemporaryDir temporary;
    QString folder = temporary.path();
    if (argc > 2 && std::strcmp(argv[1], "--keep") == 0) {
        folder = QDir(QFile::decodeName(argv[2])).absolutePath();
        std::rotate(argv + 1, argv + 3, argv + argc);
        argc -= 2;
    }
    const QDir inFolder(folder);
    if (!writePanelProject(folder) || !writeChangedPanelProject(folder)) {
        std::fprintf(stderr, "The projects were not written.\n");
        return 1;
    }
    std::vector<char *> arguments(argv, argv + argc);
    char repetitions[] = "--benchmark_repetitions=9";
    arguments.insert(arguments.begin() + 1, repetitions); // one that is given counts
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    CCostTable table;
    addPrograms(QFile::encodeName(folder)); // first: the most memory of one counts that of this one
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::ClearRegisteredBenchmarks();

    const CProgramData data(QStringLiteral(KIV_BIN_DIR));
    SDrawn before;
    SDrawn after;
    if (!data.loadWidgetLibrary().isEmpty() || !data.registerEmulator().isEmpty() ||
        !before.read(inFolder.filePath(PanelFile)) ||
        !after.read(inFolder.filePath(ChangedPanelFile))) {
        std::fprintf(stderr, "The projects were not drawn.\n");
        return 1;
    }
    addEngines(before, after);
    benchmark::RunSpecifiedBenchmarks(&table);
    return 0;
}
