#include "BitmapFormats.h"

#include <algorithm>
#include <iterator>

namespace kivemu {

namespace {

constexpr int BlockSide = 4;
constexpr uint32_t BlockBytes = 8;

struct SFormat
{
    EBitmapFormat code;
    const char *name;
    int bitsPerPixel;
    uint32_t paletteBytes;
};

constexpr SFormat Formats[] = {
    {EBitmapFormat::Argb1555, "ARGB1555", 16, 0},
    {EBitmapFormat::L1, "L1", 1, 0},
    {EBitmapFormat::L2, "L2", 2, 0},
    {EBitmapFormat::L4, "L4", 4, 0},
    {EBitmapFormat::L8, "L8", 8, 0},
    {EBitmapFormat::Rgb332, "RGB332", 8, 0},
    {EBitmapFormat::Argb2, "ARGB2", 8, 0},
    {EBitmapFormat::Argb4, "ARGB4", 16, 0},
    {EBitmapFormat::Rgb565, "RGB565", 16, 0},
    {EBitmapFormat::Paletted, "PALETTED", 8, 256 * 4},
    {EBitmapFormat::Paletted8, "PALETTED8", 8, 256 * 4},
    {EBitmapFormat::Paletted565, "PALETTED565", 8, 256 * 2},
    {EBitmapFormat::Paletted4444, "PALETTED4444", 8, 256 * 2},
    {EBitmapFormat::Dxt1, "DXT1", 4, 0},
};

const SFormat *findFormat(uint32_t code)
{
    const auto found =
        std::find_if(std::begin(Formats), std::end(Formats), [&](const SFormat &format) {
            return static_cast<uint32_t>(format.code) == code;
        });
    return found == std::end(Formats) ? nullptr : found;
}

uint32_t blocks(int texels)
{
    return static_cast<uint32_t>((texels + BlockSide - 1) / BlockSide);
}

} // namespace

uint32_t bitmapStride(uint32_t format, int width)
{
    const SFormat *row = findFormat(format);
    if (!row || width <= 0)
        return 0;
    if (row->code == EBitmapFormat::Dxt1)
        return blocks(width) * BlockBytes;
    return static_cast<uint32_t>((static_cast<int64_t>(width) * row->bitsPerPixel + 7) / 8);
}

uint64_t bitmapSize(uint32_t format, int width, int height)
{
    if (height <= 0)
        return 0;
    const bool inBlocks = format == static_cast<uint32_t>(EBitmapFormat::Dxt1);
    const uint32_t rows = inBlocks ? blocks(height) : static_cast<uint32_t>(height);
    return static_cast<uint64_t>(bitmapStride(format, width)) * rows;
}

uint32_t paletteSize(uint32_t format)
{
    const SFormat *row = findFormat(format);
    return row ? row->paletteBytes : 0;
}

int bitmapFormatCode(std::string_view name)
{
    for (const SFormat &format : Formats) {
        if (name == format.name)
            return static_cast<int>(format.code);
    }
    return -1;
}

const char *bitmapFormatName(uint32_t code)
{
    const SFormat *row = findFormat(code);
    return row ? row->name : nullptr;
}

} // namespace kivemu
