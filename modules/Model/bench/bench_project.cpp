// Loading and saving a project of 10,000 widgets with 20 attributes each, about 3 MB, beside what
// a bare QDomDocument takes for the same file.
#include "CProjectModel.h"
#include "CWidgetLibraryManager.h"
#include "CXmlGuard.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace {
constexpr int Screens = 100;
constexpr int WidgetsOfScreen = 100;

/// A kind with 20 properties of the usual mix.
QByteArray libraryXml()
{
    QByteArray xml = "<widgetlibrary><toolboxgroup name=\"All\">"
                     "<widget type=\"Bench_Gauge_T\" name=\"Gauge\"><properties>";
    const struct
    {
        const char *name;
        const char *type;
        const char *value;
    } properties[] = {{"name", "string", "Gauge"},
                      {"id", "int", "0"},
                      {"x_coordinate", "int", "0"},
                      {"y_coordinate", "int", "0"},
                      {"width", "int", "100"},
                      {"height", "int", "40"},
                      {"fill", "rgb", "#102030"},
                      {"outline", "rgb", "#ffffff"},
                      {"alpha", "int", "255"},
                      {"font", "int", "26"},
                      {"text", "string", ""},
                      {"visible", "bool", "1"},
                      {"minimum", "int", "0"},
                      {"maximum", "int", "100"},
                      {"value", "int", "50"},
                      {"scale", "float", "1"},
                      {"align", "enum:Left|Right", "Left"},
                      {"start", "time", "00:00:00"},
                      {"options", "string", ""},
                      {"comment", "string", ""}};
    for (const auto &each : properties)
        xml += QByteArray("<property name=\"") + each.name + "\" type=\"" + each.type +
               "\" value=\"" + each.value + "\"/>";
    return xml + "</properties><rendercmds/><tooltip/></widget></toolboxgroup></widgetlibrary>";
}

QByteArray projectXml()
{
    QByteArray xml = "<Kiv_Project_T platform=\"QX110\" width=\"480\" height=\"272\">\n";
    for (int page = 0; page < Screens; ++page) {
        xml += " <Kiv_Screen_T name=\"Page " + QByteArray::number(page + 1) +
               "\" color=\"#000000\" screen_bm_ts=\"\">\n";
        for (int i = 0; i < WidgetsOfScreen; ++i) {
            const auto number = [&](int salt) {
                return QByteArray::number((i * 31 + salt * 17 + page) % 1024);
            };
            xml +=
                "  <Bench_Gauge_T name=\"gauge_" + number(0) + "\" id=\"" +
                QByteArray::number(page * WidgetsOfScreen + i) + "\" x_coordinate=\"" + number(1) +
                "\" y_coordinate=\"" + number(2) + "\" width=\"" + number(3) + "\" height=\"" +
                number(4) + "\" fill=\"#" + QByteArray::number(0x100000 + i * 7919 + page, 16) +
                "\" outline=\"#ffffff\" alpha=\"" + number(5) + "\" font=\"26\" text=\"Value &lt;" +
                number(6) + "&gt; bar\" visible=\"1\" minimum=\"" + number(7) + "\" maximum=\"" +
                number(8) + "\" value=\"" + number(9) +
                "\" scale=\"0.75\" align=\"Right\" start=\"12:30:05\" options=\"flat\" "
                "comment=\"set by user " +
                QByteArray::number(i % 7) + "\"/>\n";
        }
        xml += " </Kiv_Screen_T>\n";
    }
    return xml + "</Kiv_Project_T>\n";
}

void loadLibrary()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("library.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write(libraryXml()) < 0)
        std::abort();
    file.close();
    if (!CWidgetLibraryManager::instance().initialise(file.fileName(), {0x110}))
        std::abort();
}

const QByteArray &project()
{
    static const QByteArray xml = projectXml();
    return xml;
}

/// As many as `count`, none with a name.
const QByteArray &unnamedScreens(int count)
{
    static QHash<int, QByteArray> made;
    QByteArray &xml = made[count];
    if (xml.isEmpty())
        xml = "<Kiv_Project_T>" + QByteArray("<Kiv_Screen_T/>\n").repeated(count) +
              "</Kiv_Project_T>";
    return xml;
}

/// Some 30 MB of attributes that no kind has, so many an element.
QByteArray attributes(int ofElement)
{
    constexpr int all = 2500000;
    QByteArray element = "<Bench_Gauge_T";
    for (int i = 0; i < ofElement; ++i)
        element += " a" + QByteArray::number(i) + "=\"" + QByteArray::number(i * 7) + '"';
    return "<Kiv_Project_T><Kiv_Screen_T>" + (element + "/>\n").repeated(all / ofElement) +
           "</Kiv_Screen_T></Kiv_Project_T>";
}

const QByteArray &documentOf(const benchmark::State &state)
{
    static const QByteArray hundred = attributes(100);
    static const QByteArray many = attributes(400);
    switch (state.range(0)) {
    case 0:
        return project();
    case 100:
        return hundred;
    case 400:
        return many;
    default:
        return unnamedScreens(static_cast<int>(state.range(0)));
    }
}

void domParse(benchmark::State &state)
{
    for (auto _ : state) {
        QDomDocument document;
        benchmark::DoNotOptimize(document.setContent(documentOf(state)));
        state.PauseTiming(); // loading only; neither side's time holds the taking down
        document.clear();
        state.ResumeTiming();
    }
}

void guardAlone(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(CXmlGuard::check(project()));
}

void modelLoad(benchmark::State &state)
{
    for (auto _ : state) {
        CProjectModel model;
        if (!model.loadFromBytes(documentOf(state), nullptr))
            state.SkipWithError("not loaded");
        state.PauseTiming();
        model.clear();
        state.ResumeTiming();
    }
}

void domWrite(benchmark::State &state)
{
    QDomDocument document;
    document.setContent(project());
    for (auto _ : state)
        benchmark::DoNotOptimize(document.toByteArray(1));
}

void modelSave(benchmark::State &state)
{
    CProjectModel model;
    model.loadFromBytes(project(), nullptr);
    for (auto _ : state)
        benchmark::DoNotOptimize(model.saveToBytes(nullptr));
}

BENCHMARK(guardAlone)->Unit(benchmark::kMillisecond);
// 0: the project; 1000, 10000: so many screens without a name; 100, 400: attributes of an element.
// These come last: what they leave behind in the allocator would be counted with the others.
BENCHMARK(domParse)->Unit(benchmark::kMillisecond)->Arg(0)->Arg(1000)->Arg(10000);
BENCHMARK(modelLoad)->Unit(benchmark::kMillisecond)->Arg(0)->Arg(1000)->Arg(10000);
BENCHMARK(domWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(modelSave)->Unit(benchmark::kMillisecond);
BENCHMARK(domParse)->Unit(benchmark::kMillisecond)->Arg(100);
BENCHMARK(modelLoad)->Unit(benchmark::kMillisecond)->Arg(100);
BENCHMARK(domParse)->Unit(benchmark::kMillisecond)->Arg(400);
BENCHMARK(modelLoad)->Unit(benchmark::kMillisecond)->Arg(400);
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    loadLibrary();
    std::printf("project of %.2f MB\n", project().size() / 1e6);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
