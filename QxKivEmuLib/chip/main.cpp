#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "raster/CSurface.h"

#include <png.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;

enum EExit { Drawn = 0, ListErrors = 1, Usage = 2, FileError = 3 };
constexpr int LargestSide = 2048; // of the largest chip
constexpr size_t LargestMemory = size_t{1} << 20;

std::optional<Bytes> contents(const char *path)
{
    std::ifstream stream(path, std::ios::binary);
    Bytes bytes(LargestMemory + 1);
    if (!stream.is_open() || stream
                                 .read(reinterpret_cast<char *>(bytes.data()),
                                       static_cast<std::streamsize>(bytes.size()))
                                 .bad()) {
        std::fprintf(stderr, "panel-chip: %s cannot be read\n", path);
        return {};
    }
    bytes.resize(static_cast<size_t>(stream.gcount()));
    if (bytes.size() > LargestMemory) {
        std::fprintf(stderr, "panel-chip: %s is larger than any chip's memory\n", path);
        return {};
    }
    return bytes;
}

struct SSize
{
    int width;
    int height;
};

/// What "480x272" says; nothing when it is no size of a chip's screen.
std::optional<SSize> sizeOf(std::string_view text)
{
    const auto side = [](std::string_view digits) {
        int pixels = 0;
        const char *end = digits.data() + digits.size();
        const auto read = std::from_chars(digits.data(), end, pixels);
        return read.ec == std::errc{} && read.ptr == end && pixels <= LargestSide ? pixels : 0;
    };
    const size_t cross = std::min(text.find('x'), text.size());
    const SSize size = {side(text.substr(0, cross)),
                        side(text.substr(std::min(cross + 1, text.size())))};
    if (size.width < 1 || size.height < 1)
        return {};
    return size;
}

bool write(const kivemu::CSurface &surface, const char *path)
{
    std::vector<uint8_t> pixels;
    for (int y = 0; y < surface.height(); ++y) {
        for (int x = 0; x < surface.width(); ++x) {
            const uint32_t pixel = surface.row(y)[x];
            for (const int shift : {16, 8, 0})
                pixels.push_back(static_cast<uint8_t>(pixel >> shift));
        }
    }
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(surface.width());
    image.height = static_cast<png_uint_32>(surface.height());
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, path, 0, pixels.data(), 0, nullptr) != 0)
        return true;
    std::fprintf(stderr, "panel-chip: %s cannot be written: %s\n", path, image.message);
    return false;
}

} // namespace

int main(int argc, char *argv[])
{
    const auto size = argc == 5 ? sizeOf(argv[3]) : std::nullopt;
    if (!size) {
        std::fputs(
            "usage: panel-chip RAM_G RAM_DL WIDTHxHEIGHT PICTURE.png\n"
            "Draws what the chip draws with these contents of its memories (files).\n"
            "Ends with 0, 1 (the list has errors; the rest is drawn), 2 (usage) or 3 (files).\n",
            stderr);
        return Usage;
    }
    const auto assets = contents(argv[1]);
    const auto list = contents(argv[2]);
    if (!assets || !list)
        return FileError;

    kivemu::CRamG memory(assets->size());
    memory.append(assets->data(), assets->size());
    const std::vector<uint32_t> words = kivemu::fromBytes(list->data(), list->size());
    kivemu::CSurface surface(size->width, size->height);
    const auto errors = kivemu::CExecutor().execute(words.data(), words.size(), memory, surface);
    for (const auto &error : errors)
        std::fprintf(stderr, "panel-chip: word %zu, item %u: %s\n", error.wordIndex, error.item,
                     error.message.c_str());
    if (!write(surface, argv[4]))
        return FileError;
    return errors.empty() ? Drawn : ListErrors;
}
