// Glyphs of fonts in RAM_G and in ROM, against frames that are put together pixel by pixel.
#include "displaylist/CDisplayListWriter.h"
#include "displaylist/DisplayListText.h"
#include "displaylist/FontBlock.h"
#include "executor/CExecutor.h"
#include "executor/CGlyphCache.h"
#include "executor/CRamG.h"
#include "raster/CRasterizer.h"
#include "support/Replay.h"

#include "RomFonts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace kivemu;

namespace {

constexpr int Width = 64;
constexpr int Height = 40;

/// A font with glyphs of random masks, and the coverage that they mean.
struct SFont
{
    int bits;
    std::vector<SFontGlyph> glyphs;
    std::vector<std::vector<uint8_t>> masks;
    std::vector<std::vector<uint8_t>> coverage;

    SFont(int depth, const std::vector<SFontGlyph> &metrics) : bits(depth), glyphs(metrics)
    {
        std::mt19937 random(static_cast<unsigned>(depth));
        const int full = (1 << depth) - 1;
        for (SFontGlyph &glyph : glyphs) {
            const auto width = static_cast<size_t>(glyph.width);
            std::vector<uint8_t> rows(width * static_cast<size_t>(glyph.height));
            for (uint8_t &value : rows)
                value = static_cast<uint8_t>(random());
            masks.push_back(packCoverage(depth, glyph.width, glyph.height, rows.data(), width));
            for (uint8_t &value : rows) // the nearest that a texel can say
                value = static_cast<uint8_t>(std::lround(value * full / 255.0) * 255 / full);
            coverage.push_back(std::move(rows));
        }
        for (size_t i = 0; i < glyphs.size(); ++i)
            glyphs[i].mask = masks[i].data();
    }

    /// The glyphs of a font in ROM.
    SFont(int romFont, const std::string &characters) : bits(8)
    {
        for (const char c : characters) {
            const romfonts::SGlyph &rom = *romfonts::glyph(romFont, static_cast<uint8_t>(c));
            glyphs.push_back({rom.width, rom.height, rom.left, rom.top, rom.advance16});
            coverage.emplace_back();
            for (int y = 0; y < rom.height; ++y)
                coverage.back().insert(coverage.back().end(), rom.coverage + y * rom.stride,
                                       rom.coverage + y * rom.stride + rom.width);
        }
    }

    CRamG inMemory() const
    {
        CRamG memory(1U << 20);
        const uint8_t before[] = {1, 2, 3, 4, 5};
        const auto block = writeFontBlock(bits, glyphs);
        memory.append(before, sizeof before);
        EXPECT_EQ(memory.append(block.data(), block.size()), 8U);
        return memory;
    }
};

/// The coverage of a glyph in the frame's pixel (x, y), its pen at sixteenths.
int cover(const SFont &font, size_t number, SPoint pen, int x, int y)
{
    const SFontGlyph &glyph = font.glyphs[number];
    const int column = x - static_cast<int>(std::floor(pen.x / 16.0 + 0.5)) - glyph.left;
    const int row = y - static_cast<int>(std::floor(pen.y / 16.0 + 0.5)) + glyph.top;
    if (column < 0 || row < 0 || column >= glyph.width || row >= glyph.height)
        return 0;
    return font.coverage[number][static_cast<size_t>(row * glyph.width + column)];
}

uint32_t grey(int level)
{
    return 0xFF000000U | static_cast<uint32_t>(level) * 0x10101U;
}

std::vector<uint32_t> wordsOf(const std::string &text)
{
    return assemble(text, nullptr).value();
}

} // namespace

TEST(ExecutorGlyphs, masksLieAtEveryPenAndAreCutByTheScissor)
{
    const std::vector<SFontGlyph> metrics = {
        {13, 9, -1, 7, 16 * 12 + 5}, {8, 17, 2, 14, 16 * 12}, {0, 0, 0, 0, 55}, {1, 1, -3, -2, 90}};
    const SClip clips[] = {{0, 0, Width, Height}, {12, 12, 33, 19}, {-5, 20, 18, 60}};
    for (const EKernelSet kernels : {EKernelSet::Plain, EKernelSet::Sse2, EKernelSet::Avx2}) {
        if (!CRasterizer::hasKernels(kernels))
            continue;
        CExecutor executor(kernels);
        for (const int bits : {0, 1, 2, 4, 8}) { // 0: a font in ROM
            const SFont font = bits == 0 ? SFont(26, "WjTA") : SFont(bits, metrics);
            const CRamG memory = bits == 0 ? CRamG(0) : font.inMemory();
            for (int step = 0; step < 48; ++step) {
                const SPoint pen{(step % 16) - (step < 16 ? 80 : -160), 20 * 16 + step % 17};
                const SClip &clip = clips[step % 3];
                const int alpha = step % 2 ? 255 : 77;
                std::vector<uint32_t> expected(Width * Height, grey(0));
                SPoint at = pen;
                std::string run;
                for (size_t i = 0; i < font.glyphs.size(); ++i) {
                    const int shift = bits == 0 ? 0 : step * 5 - 120;
                    run += "GLYPH(" + std::to_string(i) + ", " + std::to_string(shift) + ");";
                    for (int y = std::max(0, clip.top); y < std::min(Height, clip.bottom); ++y)
                        for (int x = std::max(0, clip.left); x < std::min(Width, clip.right); ++x) {
                            // White over grey, by the share that the mask and ALPHA leave it.
                            uint32_t &pixel = expected[static_cast<size_t>(y * Width + x)];
                            const int share = (cover(font, i, at, x, y) * alpha + 127) / 255;
                            const int below = static_cast<int>(pixel & 0xFF);
                            pixel = grey(below + ((255 - below) * share + 127) / 255);
                        }
                    at.x += font.glyphs[i].advance16 + shift;
                }
                const std::string place =
                    "TEXT(" + std::to_string(pen.x) + ", " + std::to_string(pen.y);
                const auto words =
                    wordsOf("ALPHA(" + std::to_string(alpha) + ");SCISSOR(" +
                            std::to_string(clip.left) + ", " + std::to_string(clip.top) + ", " +
                            std::to_string(clip.right - clip.left) + ", " +
                            std::to_string(clip.bottom - clip.top) + ");" +
                            (bits == 0 ? place + ", 26);CHARS(\"W\\x00j\");CHARS(\"TA\");"
                                       : "FONT(9, 8);" + place + ", 9);" + run) +
                            "END();");
                const SFrame frame = execute(executor, words, memory, Width, Height, 0);
                ASSERT_EQ(frame.errors, std::vector<std::string>{});
                ASSERT_EQ(frame.pixels, expected) << bits << " bits, step " << step;
            }
        }
    }
}

TEST(ExecutorGlyphs, faultsAreToldOnceATextAndTheRestIsDrawn)
{
    const SFont font(8, {{4, 4, 0, 4, 64}, {9, 9, 0, 9, 64}, {2, 2, 0, 2, 64}});
    std::vector<uint8_t> block = writeFontBlock(8, font.glyphs);
    block[8 + 16 + 2] = 0xFF; // the second glyph's mask lies far outside
    CRamG memory(1024);
    memory.append(block.data(), block.size());
    const std::string draw = "FONT(3, 0);TEXT(160, 160, 3);GLYPH(0, 0);GLYPH(2, 0);";
    const SFrame whole = [&] {
        CExecutor executor;
        return execute(executor, wordsOf(draw + "END();"), memory, Width, Height, 0);
    }();
    EXPECT_NE(std::count(whole.pixels.begin(), whole.pixels.end(), 0xFF000000U), Width * Height);
    const std::pair<const char *, const char *> cases[] = {
        {"FONT(3, 0);TEXT(160, 160, 3);GLYPH(1, 5);GLYPH(0, 0);GLYPH(1, 9);GLYPH(7, 9);GLYPH(2, "
         "0);",
         "GLYPH: glyph 1 reaches beyond the bytes of RAM_G that are in use"},
        {"FONT(3, 0);TEXT(160, 160, 3);GLYPH(65535, 0);CHARS(\"abc\");GLYPH(0, 0);GLYPH(2, 0);",
         "GLYPH: glyph 65535 is not among the 3 of the font"},
        {"FONT(3, 0);TEXT(160, 160, 3);CHARS(\"abc\");CHARS(\"d\");GLYPH(0, 0);GLYPH(2, 0);",
         "CHARS: font 3 is not in ROM"},
        {"FONT(3, 4);TEXT(160, 160, 3);GLYPH(0, 0);FONT(3, 0);GLYPH(1, 0);TEXT(160, 160, 3);"
         "GLYPH(0, 0);GLYPH(2, 0);",
         "FONT: the font at 4 has texels of 3 bits"},
        {"FONT(3, 0);TEXT(160, 160, 3);SAVE();FONT(3, 2);RESTORE();GLYPH(0, 0);GLYPH(2, 0);"
         "TEXT(0, 160, 3);GLYPH(0, 0);",
         "FONT: the font at 2 does not start at a multiple of 4"},
        {"FONT(3, 0);TEXT(0, 160, 4);GLYPH(0, 0);TEXT(160, 160, 3);GLYPH(0, 0);GLYPH(2, 0);",
         "TEXT: no FONT has bound the handle 4"},
        {"FONT(3, 0);TEXT(0, 160, 16);GLYPH(0, 0);GLYPH(0, 0);TEXT(160, 160, 3);GLYPH(0, 0);"
         "GLYPH(2, 0);",
         "GLYPH: font 16 is in ROM"},
    };
    for (const auto &[list, message] : cases) {
        CExecutor executor;
        const SFrame frame =
            execute(executor, wordsOf(std::string(list) + "END();"), memory, Width, Height, 0);
        EXPECT_EQ(frame.errors, std::vector<std::string>{message}) << list;
        EXPECT_EQ(frame.pixels, whole.pixels) << list;
    }
}

// Many masks may share the same bytes, so that a small memory holds more of them than any other.
TEST(ExecutorGlyphs, largeMasksAreBoundedInMemoryAndWork)
{
    const SFont font(1, std::vector<SFontGlyph>(70, {MaxGlyphSide, MaxGlyphSide, 0, 20, 0}));
    CRamG memory(1U << 22);
    const auto block = writeFontBlock(1, font.glyphs);
    memory.append(block.data(), block.size());
    CGlyphCache cache;
    cache.follow(memory);
    size_t most = 0;
    for (uint32_t i = 0; i < font.glyphs.size(); ++i) {
        const romfonts::SGlyph &glyph = cache.expand(0, i, 1, font.glyphs[i]);
        EXPECT_EQ(glyph.coverage[MaxGlyphSide + 7], font.coverage[i][MaxGlyphSide + 7]);
        most = std::max(most, cache.bytes());
        EXPECT_LE(most, CGlyphCache::MaxBytes);
    }
    EXPECT_GT(most, CGlyphCache::MaxBytes / 2) << "it does keep what fits";

    std::string list = "FONT(0, 0);ITEM(1);TEXT(0, 320, 0);";
    for (int i = 0; i < 400; ++i)
        list += "GLYPH(" + std::to_string(i % 70) + ", 0);";
    CExecutor executor;
    const auto errors =
        execute(executor, wordsOf(list + "ITEM(2);GLYPH(0, 0);END();"), memory, Width, Height, 0)
            .errors;
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_NE(errors[0].find("200 million pixels"), std::string::npos);
}
