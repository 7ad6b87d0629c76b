#include "BitmapFormats.h"

#include <algorithm>
#include <array>

namespace kivemu {

namespace {

constexpr int PaletteEntries = 256;
constexpr int BlockSide = 4;
constexpr size_t BlockBytes = 8;

using Palette = std::array<uint32_t, PaletteEntries>;

// Channels grow to 8 bits by repeating their bits, so that all ones become 255.

constexpr uint32_t expand2(uint32_t v)
{
    return v * 0x55;
}

constexpr uint32_t expand3(uint32_t v)
{
    return v << 5 | v << 2 | v >> 1;
}

constexpr uint32_t expand4(uint32_t v)
{
    return v * 0x11;
}

constexpr uint32_t expand5(uint32_t v)
{
    return v << 3 | v >> 2;
}

constexpr uint32_t expand6(uint32_t v)
{
    return v << 2 | v >> 4;
}

constexpr uint32_t argb(uint32_t a, uint32_t r, uint32_t g, uint32_t b)
{
    return a << 24 | r << 16 | g << 8 | b;
}

/// value * alpha / 255, rounded.
constexpr uint32_t scaled(uint32_t value, uint32_t alpha)
{
    const uint32_t product = value * alpha + 128;
    return (product + (product >> 8)) >> 8;
}

constexpr uint32_t premultiplied(uint32_t colour)
{
    const uint32_t a = colour >> 24;
    return argb(a, scaled(colour >> 16 & 0xFF, a), scaled(colour >> 8 & 0xFF, a),
                scaled(colour & 0xFF, a));
}

/// White, as opaque as the texel is bright: multiplied by alpha that is the value four times.
constexpr uint32_t fromLuminance(uint32_t value)
{
    return value * 0x01010101;
}

constexpr uint32_t from1555(uint32_t v)
{
    return argb((v >> 15) * 255, expand5(v >> 10 & 31), expand5(v >> 5 & 31), expand5(v & 31));
}

constexpr uint32_t from4444(uint32_t v)
{
    return argb(expand4(v >> 12), expand4(v >> 8 & 15), expand4(v >> 4 & 15), expand4(v & 15));
}

constexpr uint32_t from565(uint32_t v)
{
    return argb(255, expand5(v >> 11), expand6(v >> 5 & 63), expand5(v & 31));
}

constexpr uint32_t from332(uint32_t v)
{
    return argb(255, expand3(v >> 5), expand3(v >> 2 & 7), expand2(v & 3));
}

constexpr uint32_t from2222(uint32_t v)
{
    return argb(expand2(v >> 6), expand2(v >> 4 & 3), expand2(v >> 2 & 3), expand2(v & 3));
}

constexpr uint32_t word16(const uint8_t *bytes)
{
    return bytes[0] | static_cast<uint32_t>(bytes[1]) << 8;
}

constexpr uint32_t word32(const uint8_t *bytes)
{
    return word16(bytes) | word16(bytes + 2) << 16;
}

// One row of texels, as the kernels want them.

template<uint32_t (*Convert)(uint32_t)>
void decode16(const uint8_t *from, int width, const Palette &, uint32_t *to)
{
    for (int x = 0; x < width; ++x)
        to[x] = premultiplied(Convert(word16(from + ptrdiff_t{2} * x)));
}

template<uint32_t (*Convert)(uint32_t)>
void decode8(const uint8_t *from, int width, const Palette &, uint32_t *to)
{
    for (int x = 0; x < width; ++x)
        to[x] = premultiplied(Convert(from[x]));
}

/// The left texel lies in the most significant bits of a byte.
template<int Bits>
void decodeLuminance(const uint8_t *from, int width, const Palette &, uint32_t *to)
{
    constexpr int PerByte = 8 / Bits;
    constexpr uint32_t Max = (1U << Bits) - 1;
    for (int x = 0; x < width; ++x) {
        const int shift = 8 - Bits * (x % PerByte + 1);
        to[x] = fromLuminance((from[x / PerByte] >> shift & Max) * (255 / Max));
    }
}

void decodePaletted(const uint8_t *from, int width, const Palette &palette, uint32_t *to)
{
    for (int x = 0; x < width; ++x)
        to[x] = palette[from[x]];
}

using RowDecoder = void (*)(const uint8_t *from, int width, const Palette &palette, uint32_t *to);

RowDecoder rowDecoder(EBitmapFormat format)
{
    switch (format) {
    case EBitmapFormat::Argb1555:
        return decode16<from1555>;
    case EBitmapFormat::L1:
        return decodeLuminance<1>;
    case EBitmapFormat::L2:
        return decodeLuminance<2>;
    case EBitmapFormat::L4:
        return decodeLuminance<4>;
    case EBitmapFormat::L8:
        return decodeLuminance<8>;
    case EBitmapFormat::Rgb332:
        return decode8<from332>;
    case EBitmapFormat::Argb2:
        return decode8<from2222>;
    case EBitmapFormat::Argb4:
        return decode16<from4444>;
    case EBitmapFormat::Rgb565:
        return decode16<from565>;
    case EBitmapFormat::Paletted:
    case EBitmapFormat::Paletted8:
    case EBitmapFormat::Paletted565:
    case EBitmapFormat::Paletted4444:
        return decodePaletted;
    case EBitmapFormat::Dxt1:
        break;
    }
    return nullptr;
}

Palette readPalette(EBitmapFormat format, const uint8_t *bytes)
{
    Palette palette{};
    for (size_t i = 0; i < palette.size(); ++i) {
        if (format == EBitmapFormat::Paletted565)
            palette[i] = from565(word16(bytes + 2 * i));
        else if (format == EBitmapFormat::Paletted4444)
            palette[i] = premultiplied(from4444(word16(bytes + 2 * i)));
        else
            palette[i] = premultiplied(word32(bytes + 4 * i));
    }
    return palette;
}

/// (First * a + b * Second) / (First + Second) for each channel, both colours opaque.
template<uint32_t First, uint32_t Second>
uint32_t mixed(uint32_t a, uint32_t b)
{
    const auto channel = [a, b](int shift) {
        return ((a >> shift & 0xFF) * First + (b >> shift & 0xFF) * Second) / (First + Second)
               << shift;
    };
    return 0xFF000000 | channel(16) | channel(8) | channel(0);
}

/// The four colours of a block. When the first end is not above the second, the fourth colour is
/// transparent and the third lies halfway.
std::array<uint32_t, 4> blockColours(const uint8_t *block)
{
    const uint32_t end0 = word16(block);
    const uint32_t end1 = word16(block + 2);
    const uint32_t c0 = from565(end0);
    const uint32_t c1 = from565(end1);
    if (end0 > end1)
        return {c0, c1, mixed<2, 1>(c0, c1), mixed<1, 2>(c0, c1)};
    return {c0, c1, mixed<1, 1>(c0, c1), 0};
}

void decodeBlock(const uint8_t *block, SBitmapImage &image, int left, int top)
{
    const auto colours = blockColours(block);
    const uint32_t indices = word32(block + 4);
    const int width = std::min(BlockSide, image.width - left);
    const int height = std::min(BlockSide, image.height - top);
    if (width == BlockSide && height == BlockSide) { // nearly all
        uint32_t *row = image.at(left, top);
        for (uint32_t rest = indices, y = 0; y < BlockSide; ++y, row += image.stride, rest >>= 8) {
            row[0] = colours[rest & 3];
            row[1] = colours[rest >> 2 & 3];
            row[2] = colours[rest >> 4 & 3];
            row[3] = colours[rest >> 6 & 3];
        }
        return;
    }
    for (int y = 0; y < height; ++y) {
        uint32_t *row = image.at(left, top + y);
        for (int x = 0; x < width; ++x)
            row[x] = colours[indices >> 2 * (y * BlockSide + x) & 3];
    }
}

void decodeBlocks(const uint8_t *from, uint32_t stride, SBitmapImage &image)
{
    for (int top = 0; top < image.height; top += BlockSide) {
        const uint8_t *block = from + static_cast<size_t>(top / BlockSide) * stride;
        for (int left = 0; left < image.width; left += BlockSide, block += BlockBytes)
            decodeBlock(block, image, left, top);
    }
}

bool isOpaque(const SBitmapImage &image)
{
    constexpr int Lanes = 8; // of a vector
    std::array<uint32_t, Lanes> all;
    all.fill(0xFF000000);
    for (int y = 0; y < image.height; ++y) {
        const uint32_t *row = image.at(0, y);
        int x = 0;
        for (; x + Lanes <= image.width; x += Lanes)
            for (int lane = 0; lane < Lanes; ++lane)
                all[size_t(lane)] &= row[x + lane];
        for (; x < image.width; ++x)
            all[0] &= row[x];
    }
    return std::all_of(all.begin(), all.end(), [](uint32_t each) { return each == 0xFF000000; });
}

bool liesWithin(uint64_t address, uint64_t size, size_t memorySize)
{
    return address <= memorySize && size <= memorySize - address;
}

/// Bytes from the first texel to behind the last one.
uint64_t reach(uint32_t format, uint32_t stride, int width, int height)
{
    const uint64_t row = bitmapStride(format, width);
    const uint64_t rows = bitmapSize(format, width, height) / row;
    return (rows - 1) * stride + row;
}

} // namespace

std::shared_ptr<const SBitmapImage> decodeBitmap(const uint8_t *memory, size_t memorySize,
                                                 uint32_t format, uint32_t address, uint32_t stride,
                                                 uint32_t palette, int width, int height)
{
    const bool sidesFit =
        width >= 1 && width <= MaxBitmapSide && height >= 1 && height <= MaxBitmapSide;
    const uint32_t paletteBytes = paletteSize(format);
    if (!sidesFit || bitmapStride(format, width) == 0 ||
        !liesWithin(address, reach(format, stride, width, height), memorySize) ||
        (paletteBytes > 0 && !liesWithin(palette, paletteBytes, memorySize)))
        return nullptr;

    const auto image = std::make_shared<SBitmapImage>(width, height);
    const auto code = static_cast<EBitmapFormat>(format);
    if (const RowDecoder decode = rowDecoder(code)) {
        const Palette colours = paletteBytes > 0 ? readPalette(code, memory + palette) : Palette{};
        for (int y = 0; y < height; ++y)
            decode(memory + address + static_cast<size_t>(y) * stride, width, colours,
                   image->at(0, y));
    } else {
        decodeBlocks(memory + address, stride, *image);
    }
    image->opaque = isOpaque(*image);
    return image;
}

} // namespace kivemu
