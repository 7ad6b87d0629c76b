// Looking through 5,000 widgets on 50 screens for a text in everything that they have, and working
// out what a replacement makes of all hits, beside a bare comparison of the same texts.
#include "CItemReplacement.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetModel.h"
#include "ItemTree.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {
constexpr int Screens = 50;
constexpr int WidgetsOfScreen = 100;

CProjectModel &project()
{
    static CProjectModel *project = [] {
        if (!CWidgetLibraryManager::instance().initialise(QStringLiteral(KIV_WIDGET_LIBRARY),
                                                          {0x110}))
            std::abort();
        auto *made = new CProjectModel; // as long as the program
        made->newProject({{QStringLiteral("platform"), QStringLiteral("QX110")}});
        const QStringList kinds = {QStringLiteral("Kiv_Text_T"), QStringLiteral("Kiv_Button_T"),
                                   QStringLiteral("Kiv_Rectangle_T"), QStringLiteral("Kiv_Ring_T")};
        while (made->screenCount() < Screens)
            made->appendRow(new CScreenModel(made));
        for (int index = 0; index < Screens * WidgetsOfScreen; ++index) {
            auto *widget = new CWidgetModel(kinds.at(index % kinds.size()), made->library(), made);
            widget->setProperty(QStringLiteral("name"),
                                QStringLiteral("Widget %1 of many").arg(index));
            made->screen(index / WidgetsOfScreen)->appendRow(widget);
        }
        return made;
    }();
    return *project;
}

/// The texts alone, without knowing what they are.
void bareComparison(benchmark::State &state)
{
    const QString wanted = QStringLiteral("no such text");
    for (auto each : state) {
        int found = 0;
        forEachItem(project(), [&](CItemModel &item) {
            for (const CWidgetProperty &property : item.properties())
                found += property.text().contains(wanted, Qt::CaseInsensitive);
        });
        benchmark::DoNotOptimize(found);
    }
}

void search(benchmark::State &state, const char *text, bool isPattern)
{
    const SSearchQuery query{QString::fromLatin1(text), ESearchField::Everything, isPattern, false};
    int hits = 0;
    for (auto each : state) {
        CItemSearch search(project(), query, CItemSearch::EHits::OfItem);
        search.finish();
        hits = search.hits().size();
    }
    state.counters["hits"] = hits;
}

void replacement(benchmark::State &state)
{
    const SSearchQuery query{QStringLiteral("widget"), ESearchField::Name, false, false};
    CItemSearch search(project(), query, CItemSearch::EHits::All);
    search.finish();
    for (auto each : state) {
        CItemReplacement replacement(project(), query, QStringLiteral("Thing"));
        for (const SSearchHit &hit : search.hits())
            benchmark::DoNotOptimize(replacement.of(hit));
    }
}

BENCHMARK(bareComparison)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, found_nowhere, "no such text", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, found_everywhere, "widget", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, pattern, "no \\w+ text$", true)->Unit(benchmark::kMillisecond);
BENCHMARK(replacement)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
