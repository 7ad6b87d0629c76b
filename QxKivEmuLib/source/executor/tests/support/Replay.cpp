#include "Replay.h"

#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "raster/CSurface.h"

#include <algorithm>
#include <memory>

namespace kivemu {

namespace {

struct SRun
{
    std::vector<uint32_t> frame;
    std::vector<std::string> errors;
};

SRun runOver(uint32_t oldPixels, CExecutor &executor, const std::vector<uint32_t> &words,
             const CRamG &memory, int width, int height)
{
    CSurface surface(width, height);
    for (int y = 0; y < surface.height(); ++y)
        std::fill_n(surface.row(y), surface.width(), oldPixels);
    SRun run;
    for (const auto &error : executor.execute(words.data(), words.size(), memory, surface))
        run.errors.push_back(error.message);
    for (int y = 0; y < surface.height(); ++y)
        run.frame.insert(run.frame.end(), surface.row(y), surface.row(y) + surface.width());
    return run;
}

} // namespace

SReplay replay(const std::vector<uint8_t> &bytes, const CRamG &memory, int width, int height,
               std::optional<EKernelSet> kernels)
{
    const std::vector<uint32_t> words = fromBytes(bytes.data(), bytes.size());
    const auto executor =
        kernels ? std::make_unique<CExecutor>(*kernels) : std::make_unique<CExecutor>();
    SRun first = runOver(0xFF000000, *executor, words, memory, width, height);
    const SRun second = runOver(0xFFC0FFEE, *executor, words, memory, width, height);

    SReplay result{std::move(first.frame), std::move(first.errors), {}};
    const auto differs =
        std::mismatch(result.frame.begin(), result.frame.end(), second.frame.begin()).first;
    if (differs != result.frame.end()) {
        const auto index = static_cast<int>(differs - result.frame.begin());
        result.difference = "pixel (" + std::to_string(index % width) + ", " +
                            std::to_string(index / width) + ") depends on what was there";
    } else if (result.errors != second.errors) {
        result.difference = "the errors are others the second time";
    }
    return result;
}

} // namespace kivemu
