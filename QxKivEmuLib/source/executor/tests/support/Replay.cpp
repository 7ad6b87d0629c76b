#include "Replay.h"

#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "raster/CSurface.h"

#include <algorithm>

namespace kivemu {

SFrame execute(CExecutor &executor, const std::vector<uint32_t> &words, const CRamG &memory,
               int width, int height, uint32_t oldPixels)
{
    CSurface surface(width, height);
    for (int y = 0; y < surface.height(); ++y)
        std::fill_n(surface.row(y), surface.width(), oldPixels);
    SFrame frame;
    for (const auto &error : executor.execute(words.data(), words.size(), memory, surface))
        frame.errors.push_back(error.message);
    for (int y = 0; y < surface.height(); ++y)
        frame.pixels.insert(frame.pixels.end(), surface.row(y), surface.row(y) + surface.width());
    return frame;
}

std::string difference(const SFrame &a, const SFrame &b, int width)
{
    const auto pixel =
        std::mismatch(a.pixels.begin(), a.pixels.end(), b.pixels.begin(), b.pixels.end()).first;
    if (pixel != a.pixels.end()) {
        const auto index = static_cast<int>(pixel - a.pixels.begin());
        return "pixel (" + std::to_string(index % width) + ", " + std::to_string(index / width) +
               ") differs";
    }
    return a.errors == b.errors ? "" : "the errors differ";
}

SReplay replay(const std::vector<uint8_t> &bytes, const CRamG &memory, int width, int height)
{
    const std::vector<uint32_t> words = fromBytes(bytes.data(), bytes.size());
    CExecutor executor;
    SFrame first = execute(executor, words, memory, width, height, 0xFF000000);
    const SFrame second = execute(executor, words, memory, width, height, 0xFFC0FFEE);
    const std::string differs = difference(first, second, width);
    return {std::move(first.pixels), std::move(first.errors), differs};
}

} // namespace kivemu
