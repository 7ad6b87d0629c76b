// Times of the standard screen, section by section and as a whole, for each set of kernels.
//   bench_raster --benchmark_filter=Sse2
#include "StandardScreenPainter.h"
#include "raster/CSurface.h"

#include <benchmark/benchmark.h>

#include <string>
#include <utility>

namespace {

using namespace kivemu;

const std::pair<EKernelSet, const char *> KernelSets[] = {
    {EKernelSet::Plain, "Plain"}, {EKernelSet::Sse2, "Sse2"}, {EKernelSet::Avx2, "Avx2"}};
const std::pair<int, int> Sizes[] = {{480, 272}, {1024, 768}};

/// Times `draw(painter, rasterizer)`; each frame is drawn over the one before.
template<class Draw>
void addBenchmark(const std::string &name, EKernelSet kernels, std::pair<int, int> size, Draw draw)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) {
        const auto screen = bench::standardScreen(size.first, size.second);
        const bench::CStandardScreenPainter painter(screen);
        CSurface surface(size.first, size.second);
        CRasterizer rasterizer(surface, kernels);
        painter.drawAll(rasterizer);
        for (auto _ : state) {
            draw(painter, rasterizer);
            benchmark::ClobberMemory();
        }
    })->Unit(benchmark::kMicrosecond);
}

void addBenchmarks(EKernelSet kernels, const std::string &setName, std::pair<int, int> size)
{
    const std::string prefix = setName + "/" + std::to_string(size.first) + "/";
    for (int i = 0; i < bench::SectionCount; ++i) {
        const auto section = static_cast<bench::ESection>(i);
        addBenchmark(prefix + bench::sectionName(section), kernels, size,
                     [section](const bench::CStandardScreenPainter &painter,
                               CRasterizer &rasterizer) { painter.draw(rasterizer, section); });
    }
    addBenchmark(prefix + "frame", kernels, size,
                 [](const bench::CStandardScreenPainter &painter, CRasterizer &rasterizer) {
                     painter.drawAll(rasterizer);
                 });
}

} // namespace

int main(int argc, char **argv)
{
    for (const auto &[kernels, name] : KernelSets)
        for (const auto &size : Sizes)
            if (CRasterizer::hasKernels(kernels))
                addBenchmarks(kernels, name, size);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
