// Writes the seeds of all fuzz targets: kiv_fuzzseeds QxKivEmuLib/fuzz/corpus
#include "FuzzChecks.h"
#include "displaylist/DisplayListText.h"
#include "executor/BitmapFormats.h"
#include "support/ExampleLists.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

using namespace kivemu;

namespace {

template<typename Bytes>
bool write(const std::filesystem::path &path, const Bytes &bytes)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    for (const auto byte : bytes)
        file.put(static_cast<char>(byte));
    return static_cast<bool>(file.flush());
}

/// A bitmap of 9 x 5 with its palette, for the format that a first byte chooses.
std::vector<uint8_t> bitmapInput(uint8_t choice, uint32_t format)
{
    constexpr int Width = 9;
    constexpr int Height = 5;
    const auto pixels = static_cast<uint32_t>(bitmapSize(format, Width, Height));
    std::vector<uint8_t> input = {choice};
    const auto add = [&](uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            input.push_back(static_cast<uint8_t>(value >> (8 * i)));
    };
    add(0, 4);
    add(bitmapStride(format, Width), 4);
    add(pixels, 4);
    add(Width, 2);
    add(Height, 2);
    for (uint32_t i = 0; i < pixels + paletteSize(format); ++i)
        input.push_back(static_cast<uint8_t>(i * 91 + i * i));
    return input;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: kiv_fuzzseeds FOLDER\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    bool written = true;
    for (const SExample &example : exampleLists()) {
        written &= write(folder / "displaylist" / example.name, displayListInput(example));
        written &= write(folder / "assembler" / example.name,
                         disassemble(example.words.data(), example.words.size()));
    }
    uint8_t choice = 0;
    for (const uint32_t format : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 12U, 13U, 14U, 255U})
        written &= write(folder / "bitmap" / ("format" + std::to_string(format)),
                         bitmapInput(choice++, format));
    return written ? 0 : 1;
}
