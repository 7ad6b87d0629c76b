// How fast the panels follow in a project of 2,000 items:
//   build/bench/bench_panels [--benchmark_filter=…]     (with QT_QPA_PLATFORM=offscreen where there
//   is no display)
#include "CProjectExplorerView.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetModel.h"
#include "CWidgetPropertiesView.h"
#include "PropertyKey.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdio>

namespace {

constexpr int Items = 2000;

/// A project of buttons, with the panels shown as in the window.
struct SWindow
{
    SWindow()
    {
        project.newProject({{PropertyKey::Platform, QStringLiteral("QX110")},
                            {PropertyKey::Width, QStringLiteral("480")},
                            {PropertyKey::Height, QStringLiteral("272")}});
        for (int n = 0; n < Items; ++n) {
            auto *widget =
                new CWidgetModel(QStringLiteral("Kiv_Button_T"), project.library(), &project);
            project.screen(0)->appendRow(widget);
            items.append(widget);
        }
        explorer.setProject(&project);
        explorer.resize(300, 800);
        explorer.show();
        properties.setProject(&project);
        properties.resize(340, 800);
        properties.show();
        QCoreApplication::processEvents();
    }

    CProjectModel project;
    QList<CItemModel *> items;
    CProjectExplorerView explorer;
    CWidgetPropertiesView properties;
};

SWindow *openWindow = nullptr; ///< lives in main(), within the application's life

SWindow &window()
{
    return *openWindow;
}

/// Another item is selected, its properties are filled in and painted.
void fillPanel(benchmark::State &state)
{
    SWindow &shown = window();
    int n = 0;
    for (auto step : state) {
        shown.properties.showItems({shown.items.at(++n % Items)});
        shown.properties.repaint();
    }
}
BENCHMARK(fillPanel)->Unit(benchmark::kMillisecond);

/// The canvas changes a property of the item that is shown.
void mirrorChange(benchmark::State &state)
{
    SWindow &shown = window();
    shown.properties.showItems({shown.items.first()});
    int x = 0;
    for (auto step : state)
        shown.items.first()->setProperty(PropertyKey::X, ++x % 400);
}
BENCHMARK(mirrorChange)->Unit(benchmark::kMillisecond);

/// The canvas drags the item that is shown.
void mirrorGesture(benchmark::State &state)
{
    SWindow &shown = window();
    shown.properties.showItems({shown.items.first()});
    int x = 0;
    for (auto step : state) {
        shown.items.first()->setProperty(PropertyKey::X, ++x % 400, CItemModel::Notify::No);
        shown.items.first()->notifyGeometryChanged();
    }
}
BENCHMARK(mirrorGesture)->Unit(benchmark::kMillisecond);

/// All items, then every second one, selected on the canvas.
void selectInExplorer(benchmark::State &state)
{
    SWindow &shown = window();
    QList<CItemModel *> half;
    for (int n = 0; n < Items; n += 2)
        half.append(shown.items.at(n));
    for (auto step : state) {
        shown.explorer.selectItems(shown.items);
        shown.explorer.selectItems(half);
    }
}
BENCHMARK(selectInExplorer)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    auto &manager = CWidgetLibraryManager::instance();
    if (!manager.initialise(QStringLiteral(KIV_WIDGET_LIBRARY), {0x100, 0x110})) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(manager.errorText()));
        return 1;
    }
    SWindow shown;
    openWindow = &shown;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
