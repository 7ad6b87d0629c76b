#include "executor/BitmapFormats.h"
#include "raster/BitmapImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

using namespace kivemu;

namespace {

using Bytes = std::vector<uint8_t>;
using Texels = std::vector<uint32_t>;

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

const EBitmapFormat AllFormats[] = {
    EBitmapFormat::Argb1555,     EBitmapFormat::L1,        EBitmapFormat::L2,
    EBitmapFormat::L4,           EBitmapFormat::L8,        EBitmapFormat::Rgb332,
    EBitmapFormat::Argb2,        EBitmapFormat::Argb4,     EBitmapFormat::Rgb565,
    EBitmapFormat::Paletted,     EBitmapFormat::Paletted8, EBitmapFormat::Paletted565,
    EBitmapFormat::Paletted4444, EBitmapFormat::Dxt1};

} // namespace

// Expected values are worked out by hand: bits repeated up to 8, then multiplied by alpha.
TEST(BitmapDecoders, texelsOfFormatsWithoutPalette)
{
    const struct
    {
        EBitmapFormat format;
        int width;
        int height;
        Bytes bytes;
        Texels expected;
    } cases[] = {
        // Opaque red; blue without its alpha bit; green 10000 grows to 10000100.
        {EBitmapFormat::Argb1555,
         3,
         1,
         {0x00, 0xFC, 0x1F, 0x00, 0x00, 0x82},
         {0xFFFF0000, 0, 0xFF008400}},
        {EBitmapFormat::L1,
         9,
         2,
         {0xA0, 0x80, 0x01, 0x00},
         {~0U, 0, ~0U, 0, 0, 0, 0, 0, ~0U, 0, 0, 0, 0, 0, 0, 0, ~0U, 0}},
        {EBitmapFormat::L2, 5, 1, {0x1B, 0x40}, {0, 0x55555555, 0xAAAAAAAA, ~0U, 0x55555555}},
        {EBitmapFormat::L4, 3, 1, {0xF1, 0x80}, {~0U, 0x11111111, 0x88888888}},
        {EBitmapFormat::L8, 2, 2, {0, 1, 128, 255}, {0, 0x01010101, 0x80808080, ~0U}},
        // 101 -> 10110110, 010 -> 01001001, 10 -> 10101010.
        {EBitmapFormat::Rgb332, 2, 1, {0xAA, 0x1C}, {0xFFB649AA, 0xFF00FF00}},
        // Alpha 01 is 85: 255 becomes 85, 170 becomes 56.67.
        {EBitmapFormat::Argb2, 3, 1, {0xE4, 0x7B, 0x3F}, {0xFFAA5500, 0x55553955, 0}},
        // Alpha 8 is 136: 255 becomes 136, 17 becomes 9.07.
        {EBitmapFormat::Argb4, 2, 1, {0x1F, 0x8F, 0x23, 0xF1}, {0x88880988, 0xFF112233}},
        {EBitmapFormat::Rgb565,
         2,
         2,
         {0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00, 0x10, 0x84},
         {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF848284}},
        // Thirds of 255 between red and blue.
        {EBitmapFormat::Dxt1,
         4,
         4,
         {0x00, 0xF8, 0x1F, 0x00, 0xE4, 0x00, 0x55, 0xFF},
         {0xFFFF0000, 0xFF0000FF, 0xFFAA0055, 0xFF5500AA, // row 0: 0 1 2 3
          0xFFFF0000, 0xFFFF0000, 0xFFFF0000, 0xFFFF0000, //
          0xFF0000FF, 0xFF0000FF, 0xFF0000FF, 0xFF0000FF, //
          0xFF5500AA, 0xFF5500AA, 0xFF5500AA, 0xFF5500AA}},
        // The ends the other way round: a half and transparent.
        {EBitmapFormat::Dxt1,
         4,
         1,
         {0x1F, 0x00, 0x00, 0xF8, 0xE4, 0, 0, 0},
         {0xFF0000FF, 0xFFFF0000, 0xFF7F007F, 0}},
        // Equal ends count as the second kind.
        {EBitmapFormat::Dxt1, 2, 1, {0xFF, 0xFF, 0xFF, 0xFF, 0x0E, 0, 0, 0}, {0xFFFFFFFF, 0}},
    };
    for (const auto &one : cases) {
        const auto image = decode(one.bytes, one.format, one.width, one.height);
        ASSERT_TRUE(image) << code(one.format);
        EXPECT_EQ(texels(*image), one.expected) << code(one.format);
        const bool opaque = std::all_of(one.expected.begin(), one.expected.end(),
                                        [](uint32_t texel) { return texel >> 24 == 255; });
        EXPECT_EQ(image->opaque, opaque) << code(one.format);
    }
}

TEST(BitmapDecoders, texelsOfPalettes)
{
    // The texels stand before the palette, of which entries 1 and 255 are set.
    const struct
    {
        EBitmapFormat format;
        size_t entryBytes;
        Bytes first;
        Bytes last;
        Texels expected;
    } cases[] = {
        {EBitmapFormat::Paletted,
         4,
         {0x30, 0x20, 0x10, 0xFF},
         {0, 0xFF, 0, 0x80},
         {0xFF102030, 0x80008000, 0}},
        {EBitmapFormat::Paletted8,
         4,
         {0x30, 0x20, 0x10, 0xFF},
         {0, 0xFF, 0, 0x80},
         {0xFF102030, 0x80008000, 0}},
        {EBitmapFormat::Paletted565,
         2,
         {0x00, 0xF8},
         {0x1F, 0x00},
         {0xFFFF0000, 0xFF0000FF, 0xFF000000}},
        {EBitmapFormat::Paletted4444, 2, {0x23, 0xF1}, {0xFF, 0x8F}, {0xFF112233, 0x88888888, 0}},
    };
    for (const auto &one : cases) {
        Bytes memory = {1, 255, 0, 0};
        memory.resize(4 + 256 * one.entryBytes);
        std::copy(one.first.begin(), one.first.end(), memory.begin() + 4 + one.entryBytes);
        std::copy(one.last.begin(), one.last.end(), memory.end() - one.entryBytes);
        const auto image = decode(memory, one.format, 3, 1, 0, 4);
        ASSERT_TRUE(image) << code(one.format);
        EXPECT_EQ(texels(*image), one.expected) << code(one.format);
        EXPECT_EQ(paletteSize(code(one.format)), 256 * one.entryBytes);
        EXPECT_FALSE(decode(memory, one.format, 3, 1, 0, 5)) << "the palette ends too late";
        EXPECT_FALSE(decode(memory, one.format, 3, 1, 0, 0xFFFFFFFF));
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

TEST(BitmapDecoders, sizesOfPackedBitmaps)
{
    const struct
    {
        EBitmapFormat format;
        uint32_t stride; ///< of 9 texels
        uint64_t size;   ///< of 9 x 5
    } cases[] = {
        {EBitmapFormat::Argb1555, 18, 90},    {EBitmapFormat::L1, 2, 10},
        {EBitmapFormat::L2, 3, 15},           {EBitmapFormat::L4, 5, 25},
        {EBitmapFormat::L8, 9, 45},           {EBitmapFormat::Rgb332, 9, 45},
        {EBitmapFormat::Argb2, 9, 45},        {EBitmapFormat::Argb4, 18, 90},
        {EBitmapFormat::Rgb565, 18, 90},      {EBitmapFormat::Paletted, 9, 45},
        {EBitmapFormat::Paletted8, 9, 45},    {EBitmapFormat::Paletted565, 9, 45},
        {EBitmapFormat::Paletted4444, 9, 45}, {EBitmapFormat::Dxt1, 24, 48},
    };
    for (const auto &one : cases) {
        EXPECT_EQ(bitmapStride(code(one.format), 9), one.stride) << code(one.format);
        EXPECT_EQ(bitmapSize(code(one.format), 9, 5), one.size) << code(one.format);
    }
    for (const uint32_t format : {10U, 11U, 15U, 254U, 256U, 0xFFFFFFFFU}) {
        EXPECT_EQ(bitmapStride(format, 9), 0U);
        EXPECT_EQ(bitmapSize(format, 9, 5), 0U);
        EXPECT_EQ(paletteSize(format), 0U);
    }
    EXPECT_EQ(bitmapStride(code(EBitmapFormat::Rgb565), -1), 0U);
    EXPECT_EQ(bitmapSize(code(EBitmapFormat::Rgb565), 4, 0), 0U);
}

TEST(BitmapDecoders, namesOfFormats)
{
    const struct
    {
        const char *name;
        int code;
    } cases[] = {{"ARGB1555", 0},     {"L1", 1},     {"L4", 2},         {"L8", 3},
                 {"RGB332", 4},       {"ARGB2", 5},  {"ARGB4", 6},      {"RGB565", 7},
                 {"PALETTED", 8},     {"L2", 9},     {"PALETTED8", 12}, {"PALETTED4444", 13},
                 {"PALETTED565", 14}, {"DXT1", 255}, {"argb4", -1},     {"", -1},
                 {"L3", -1}};
    for (const auto &one : cases)
        EXPECT_EQ(bitmapFormatCode(one.name), one.code) << one.name;
}

TEST(BitmapDecoders, memoryIsReadToItsLastByteAndNoFurther)
{
    for (const EBitmapFormat format : AllFormats) {
        const uint32_t palette = paletteSize(code(format));
        for (const int side : {1, 3, 4, 5, 17}) {
            const uint64_t size = bitmapSize(code(format), side, side);
            Bytes memory(palette + size);
            EXPECT_TRUE(decode(memory, format, side, side, palette)) << code(format);
            EXPECT_FALSE(decode(memory, format, side, side, palette + 1)) << code(format);
            EXPECT_FALSE(decode(memory, format, side, side, 0xFFFFFFFF)) << code(format);
            memory.pop_back();
            EXPECT_FALSE(decode(memory, format, side, side, palette)) << code(format);
        }
    }
    const Bytes memory(64);
    EXPECT_FALSE(decodeBitmap(memory.data(), 64, 3, 0, 0xFFFFFFFF, 0, 1, 2048));
    EXPECT_TRUE(decodeBitmap(memory.data(), 64, 3, 0, 0xFFFFFFFF, 0, 64, 1)) << "one row only";
}

TEST(BitmapDecoders, unknownFormatsAndSizesAreRefused)
{
    const Bytes memory(64);
    for (const uint32_t format : {10U, 11U, 15U, 254U, 256U, 0xFFFFFFFFU})
        EXPECT_FALSE(decodeBitmap(memory.data(), memory.size(), format, 0, 4, 0, 1, 1)) << format;
    for (const int side : {0, -1, 2049, INT32_MAX, INT32_MIN}) {
        EXPECT_FALSE(decodeBitmap(memory.data(), memory.size(), 1, 0, 0, 0, side, 1)) << side;
        EXPECT_FALSE(decodeBitmap(memory.data(), memory.size(), 1, 0, 0, 0, 1, side)) << side;
    }
    EXPECT_FALSE(decodeBitmap(nullptr, 0, 3, 0, 1, 0, 1, 1));
}

TEST(BitmapDecoders, theBorderStaysTransparent)
{
    for (const EBitmapFormat format : AllFormats) {
        const int side = 6;
        Bytes memory(paletteSize(code(format)) + bitmapSize(code(format), side, side), 0xFF);
        const auto image = decode(memory, format, side, side, paletteSize(code(format)));
        ASSERT_TRUE(image);
        constexpr int Border = SBitmapImage::Border;
        for (int y = -Border; y < side + Border; ++y) {
            for (int x = -Border; x < side + Border; ++x) {
                if (x < 0 || y < 0 || x >= side || y >= side) {
                    ASSERT_EQ(*image->at(x, y), 0U) << code(format) << " " << x << " " << y;
                }
            }
        }
    }
}

// What the kernels rely on: no channel above its alpha.
TEST(BitmapDecoders, anyBytesGiveMultipliedColours)
{
    std::mt19937 random(2);
    Bytes memory(1024 + 64 * 64 * 2);
    for (uint8_t &byte : memory)
        byte = static_cast<uint8_t>(random());
    for (const EBitmapFormat format : AllFormats) {
        const auto image = decode(memory, format, 61, 63, 1024);
        ASSERT_TRUE(image);
        for (const uint32_t texel : texels(*image)) {
            const uint32_t alpha = texel >> 24;
            ASSERT_LE(texel >> 16 & 0xFF, alpha) << code(format);
            ASSERT_LE(texel >> 8 & 0xFF, alpha) << code(format);
            ASSERT_LE(texel & 0xFF, alpha) << code(format);
        }
    }
}
