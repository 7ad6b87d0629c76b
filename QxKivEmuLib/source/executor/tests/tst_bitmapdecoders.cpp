#include "executor/BitmapFormats.h"
#include "raster/BitmapImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace kivemu;

namespace {

using Bytes = std::vector<uint8_t>;
using Texels = std::vector<uint32_t>;
using F = EBitmapFormat;

uint32_t code(EBitmapFormat format)
{
    return static_cast<uint32_t>(format);
}

std::shared_ptr<const SBitmapImage> decode(const Bytes &memory, EBitmapFormat format, int width,
                                           int height, uint32_t address = 0, uint32_t palette = 0)
{
    return decodeBitmap(memory.data(), memory.size(), code(format), address,
                        bitmapStride(code(format), width), palette, width, height);
}

Texels texels(const SBitmapImage &image)
{
    Texels all;
    for (int y = 0; y < image.height; ++y)
        all.insert(all.end(), image.at(0, y), image.at(0, y) + image.width);
    return all;
}

} // namespace

// Expected values are worked out by hand: bits repeated up to 8, then multiplied by alpha.
TEST(BitmapDecoders, texelsOfFormatsWithoutPalette)
{
    const std::tuple<EBitmapFormat, int, int, Bytes, Texels> cases[] = {
        // Opaque red; blue without its alpha bit; green 10000 grows to 10000100.
        {F::Argb1555, 3, 1, {0, 0xFC, 0x1F, 0, 0, 0x82}, {0xFFFF0000, 0, 0xFF008400}},
        {F::L1,
         9,
         2,
         {0xA0, 0x80, 1, 0},
         {~0U, 0, ~0U, 0, 0, 0, 0, 0, ~0U, 0, 0, 0, 0, 0, 0, 0, ~0U, 0}},
        {F::L2, 5, 1, {0x1B, 0x40}, {0, 0x55555555, 0xAAAAAAAA, ~0U, 0x55555555}},
        {F::L4, 3, 1, {0xF1, 0x80}, {~0U, 0x11111111, 0x88888888}},
        {F::L8, 2, 2, {0, 1, 128, 255}, {0, 0x01010101, 0x80808080, ~0U}},
        // 101 -> 10110110, 010 -> 01001001, 10 -> 10101010.
        {F::Rgb332, 2, 1, {0xAA, 0x1C}, {0xFFB649AA, 0xFF00FF00}},
        // Alpha 01 is 85: 255 becomes 85, 170 becomes 56.67.
        {F::Argb2, 3, 1, {0xE4, 0x7B, 0x3F}, {0xFFAA5500, 0x55553955, 0}},
        // Alpha 8 is 136: 255 becomes 136, 17 becomes 9.07.
        {F::Argb4, 2, 1, {0x1F, 0x8F, 0x23, 0xF1}, {0x88880988, 0xFF112233}},
        {F::Rgb565,
         2,
         2,
         {0, 0xF8, 0xE0, 7, 0x1F, 0, 0x10, 0x84},
         {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF848284}},
        // Thirds of 255 between red and blue: 0 1 2 3, then all 0, all 1, all 3.
        {F::Dxt1,
         4,
         4,
         {0, 0xF8, 0x1F, 0, 0xE4, 0, 0x55, 0xFF},
         {0xFFFF0000, 0xFF0000FF, 0xFFAA0055, 0xFF5500AA, 0xFFFF0000, 0xFFFF0000, 0xFFFF0000,
          0xFFFF0000, 0xFF0000FF, 0xFF0000FF, 0xFF0000FF, 0xFF0000FF, 0xFF5500AA, 0xFF5500AA,
          0xFF5500AA, 0xFF5500AA}},
        // The ends the other way round: a half and transparent. Equal ends count as that kind.
        {F::Dxt1, 4, 1, {0x1F, 0, 0, 0xF8, 0xE4, 0, 0, 0}, {0xFF0000FF, 0xFFFF0000, 0xFF7F007F, 0}},
        {F::Dxt1, 2, 1, {0xFF, 0xFF, 0xFF, 0xFF, 0x0E, 0, 0, 0}, {0xFFFFFFFF, 0}},
    };
    for (const auto &[format, width, height, bytes, expected] : cases) {
        const auto image = decode(bytes, format, width, height);
        ASSERT_TRUE(image) << code(format);
        EXPECT_EQ(texels(*image), expected) << code(format);
        const bool opaque = std::all_of(expected.begin(), expected.end(),
                                        [](uint32_t texel) { return texel >> 24 == 255; });
        EXPECT_EQ(image->opaque, opaque) << code(format);
    }
}

TEST(BitmapDecoders, texelsOfPalettes)
{
    // The texels stand before the palette, of which entries 1 and 255 are set.
    const Bytes blue = {0x30, 0x20, 0x10, 0xFF};
    const Bytes green = {0, 0xFF, 0, 0x80};
    const std::tuple<EBitmapFormat, Bytes, Bytes, Texels> cases[] = {
        {F::Paletted, blue, green, {0xFF102030, 0x80008000, 0}},
        {F::Paletted8, blue, green, {0xFF102030, 0x80008000, 0}},
        {F::Paletted565, {0x00, 0xF8}, {0x1F, 0x00}, {0xFFFF0000, 0xFF0000FF, 0xFF000000}},
        {F::Paletted4444, {0x23, 0xF1}, {0xFF, 0x8F}, {0xFF112233, 0x88888888, 0}},
    };
    for (const auto &[format, first, last, expected] : cases) {
        Bytes memory = {1, 255, 0, 0};
        memory.resize(4 + 256 * first.size());
        std::copy(first.begin(), first.end(), memory.begin() + 4 + first.size());
        std::copy(last.begin(), last.end(), memory.end() - last.size());
        const auto image = decode(memory, format, 3, 1, 0, 4);
        ASSERT_TRUE(image) << code(format);
        EXPECT_EQ(texels(*image), expected) << code(format);
        EXPECT_FALSE(decode(memory, format, 3, 1, 0, 5)) << "the palette ends too late";
        EXPECT_FALSE(decode(memory, format, 3, 1, 0, 0xFFFFFFFF));
    }
}

TEST(BitmapDecoders, addressAndStrideChooseTheRows)
{
    const Bytes memory = {9, 9, 9, 10, 20, 9, 9, 30, 40};
    const auto image =
        decodeBitmap(memory.data(), memory.size(), code(EBitmapFormat::L8), 3, 4, 0xFFFFFFFF, 2, 2);
    ASSERT_TRUE(image) << "a palette's address does not matter without one";
    EXPECT_EQ(texels(*image), (Texels{0x0A0A0A0A, 0x14141414, 0x1E1E1E1E, 0x28282828}));
}
