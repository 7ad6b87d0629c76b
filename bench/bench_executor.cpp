// The standard screen as a display list through the emulated chip, beside QPainter.
#include "CPainterScreen.h"
#include "CRatioReporter.h"
#include "ScreenList.h"
#include "executor/CExecutor.h"
#include "raster/CRasterizer.h"
#include "raster/CSurface.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstring>
#include <memory>

namespace {

using namespace bench;
using kivemu::CExecutor;
using kivemu::CSurface;
using kivemu::EKernelSet;

struct SFrameSize
{
    int width;
    int height;
};
constexpr SFrameSize Sizes[] = {{480, 272}, {1024, 768}};

const struct
{
    EKernelSet set;
    const char *name;
} Kernels[] = {
    {EKernelSet::Plain, "plain"}, {EKernelSet::Sse2, "SSE2"}, {EKernelSet::Avx2, "AVX2"}};

std::string name(const char *who, const SStandardScreen &screen, const char *section)
{
    return std::string(who) + "/" + std::to_string(screen.width) + "x" +
           std::to_string(screen.height) + "/" + section;
}

template<typename Function>
void add(const std::string &name, Function function)
{
    benchmark::RegisterBenchmark(name.c_str(), function)
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.05)
        ->Repetitions(7)
        ->ReportAggregatesOnly();
}

void addExecutor(const SStandardScreen &screen, EKernelSet set, const char *who,
                 const char *section, SScreenList list)
{
    const auto shared = std::make_shared<const SScreenList>(std::move(list));
    const int width = screen.width;
    const int height = screen.height;
    add(name(who, screen, section), [=](benchmark::State &state) {
        CSurface surface(width, height);
        CExecutor executor(set);
        for (auto _ : state) {
            const auto errors = executor.execute(shared->words.data(), shared->words.size(),
                                                 shared->memory, surface);
            if (!errors.empty())
                state.SkipWithError(errors.front().message.c_str());
        }
    });
}

void addSections(const SStandardScreen &screen, CPainterScreen &painter)
{
    const auto addPainter = [&](const char *section, std::optional<ESection> one) {
        add(name(CRatioReporter::Painter, screen, section),
            [&painter, one](benchmark::State &state) {
                for (auto _ : state)
                    painter.draw(one);
            });
    };
    addPainter(CRatioReporter::Whole, std::nullopt);
    for (int i = 0; i < SectionCount; ++i)
        addPainter(sectionName(static_cast<ESection>(i)), static_cast<ESection>(i));

    for (const auto &kernels : Kernels) {
        if (!kivemu::CRasterizer::hasKernels(kernels.set))
            continue;
        addExecutor(screen, kernels.set, kernels.name, CRatioReporter::Whole,
                    screenList(screen, std::nullopt));
        addExecutor(screen, kernels.set, kernels.name, CRatioReporter::Empty, emptyList());
        for (int i = 0; i < SectionCount; ++i) {
            const auto section = static_cast<ESection>(i);
            addExecutor(screen, kernels.set, kernels.name, sectionName(section),
                        screenList(screen, section));
        }
    }
}

/// What is measured, to look at.
bool writePictures(const QString &folder)
{
    bool written = true;
    for (const SFrameSize &size : Sizes) {
        const SStandardScreen screen = standardScreen(size.width, size.height);
        CPainterScreen painter(screen, QStringLiteral(KIV_FONT_REGULAR));
        painter.draw(std::nullopt);
        const SScreenList list = screenList(screen, std::nullopt);
        CSurface surface(size.width, size.height);
        CExecutor().execute(list.words.data(), list.words.size(), list.memory, surface);
        const QImage frame(reinterpret_cast<const uchar *>(surface.row(0)), size.width, size.height,
                           surface.stride() * 4, QImage::Format_RGB32);
        const QString end = QStringLiteral("-%1.png").arg(size.width);
        written = painter.image().save(folder + QStringLiteral("/painter") + end) && written;
        written = frame.save(folder + QStringLiteral("/executor") + end) && written;
        std::printf("%d x %d: %zu bytes of display list, %zu of RAM_G\n", size.width, size.height,
                    list.words.size() * 4, list.memory.used());
    }
    return written;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], "--pictures") == 0)
        return writePictures(QString::fromLocal8Bit(argv[2])) ? 0 : 1;

    benchmark::Initialize(&argc, argv);
    std::vector<std::unique_ptr<SStandardScreen>> screens;
    std::vector<std::unique_ptr<CPainterScreen>> painters;
    for (const SFrameSize &size : Sizes) {
        screens.push_back(
            std::make_unique<SStandardScreen>(standardScreen(size.width, size.height)));
        painters.push_back(
            std::make_unique<CPainterScreen>(*screens.back(), QStringLiteral(KIV_FONT_REGULAR)));
        addSections(*screens.back(), *painters.back());
    }
    CRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
