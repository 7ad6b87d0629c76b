#include "displaylist/CDisplayListWriter.h"
#include "displaylist/DisplayListText.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace kivemu;

namespace {

constexpr size_t Plenty = 32768;

std::string text(const CDisplayListWriter &writer)
{
    return disassemble(writer.words().data(), writer.words().size());
}

} // namespace

TEST(DisplayListWriter, savesAreCounted)
{
    CDisplayListWriter writer(Plenty);
    EXPECT_FALSE(writer.restore());
    for (size_t i = 0; i < MaxSavedStates; ++i)
        EXPECT_TRUE(writer.save());
    EXPECT_FALSE(writer.save());
    EXPECT_EQ(writer.words().size(), MaxSavedStates);
    EXPECT_TRUE(writer.restore());
    EXPECT_TRUE(writer.save());
}

TEST(DisplayListWriter, nothingWrapsAround)
{
    CDisplayListWriter writer(Plenty);
    writer.setLineWidth(-5);
    writer.setLineWidth(70000);
    writer.disc({40000, -40000}, 70000);
    writer.disc({0, 0}, -1);
    writer.line({INT32_MIN, INT32_MAX}, {32768, -32769});
    // The right edge, 1000 sixteenths inside, stays; the size alone would end elsewhere.
    writer.fillRect({-40000, 0}, {41000, 70000}, 70000);
    writer.fillRect({INT32_MIN, INT32_MAX}, {INT32_MAX, INT32_MAX}, INT32_MAX);
    writer.fillRect({0, 0}, {-1, -1}, 0);
    writer.arc({0, 0}, 70000, 23040 + 5, 99999, EArcCaps::Round);
    writer.text(70000, {99999, 0}, "a");
    EXPECT_EQ(text(writer),
              "LINE_WIDTH(0);LINE_WIDTH(65535);DISC(32767, -32768, 65535);DISC(0, 0, 0);"
              "LINE(-32768, 32767, 32767, -32768);FILL_RECT(-32768, 0, 33768, 65535, 65535);"
              "FILL_RECT(-32768, 32767, 32767, 65535, 65535);FILL_RECT(0, 0, 0, 0, 0);"
              "ARC(0, 0, 65535, 5, 23040, 0);TEXT(32767, 0, 255);CHARS(\"a\");");
}

TEST(DisplayListWriter, zeroBytesOfATextAreLeftOut)
{
    CDisplayListWriter writer(Plenty);
    writer.text(16, {0, 0}, std::string_view("a\0bcd\0", 6));
    writer.text(16, {0, 0}, std::string_view("\0\0", 2));
    writer.text(16, {0, 0}, "");
    EXPECT_EQ(text(writer), "TEXT(0, 0, 16);CHARS(\"abc\");CHARS(\"d\");");
}

TEST(DisplayListWriter, glyphsAreOneWordWhereThePenReachesTheNext)
{
    using Glyph = CDisplayListWriter::SPlacedGlyph;
    const std::pair<std::vector<Glyph>, const char *> runs[] = {
        {{}, ""},
        {{{7, {100, 200}, 50}, {8, {150, 200}, 60}, {65535, {337, 207}, 9}, {1, {218, 215}, 9}},
         "TEXT(100, 200, 5);GLYPH(7, 0);GLYPH(8, 127);GLYPH(65535, -128);GLYPH(1, 0);"},
        {{{7, {0, 0}, 50}, {8, {178, 0}, 50}, {9, {99, 0}, 50}},
         "TEXT(0, 0, 5);GLYPH(7, 0);TEXT(178, 0, 5);GLYPH(8, 0);TEXT(99, 0, 5);GLYPH(9, 0);"},
        // Another row of pixels: a mark, and what follows it.
        {{{7, {0, 200}, 50}, {8, {50, 199}, 50}, {9, {100, 208}, 50}},
         "TEXT(0, 200, 5);GLYPH(7, 0);TEXT(50, 199, 5);GLYPH(8, 0);TEXT(100, 208, 5);GLYPH(9, 0);"},
        {{{7, {-32769, 0}, 1}, {7, {0, 32768}, 1}, {8, {-32768, 32767}, 0}, {7, {32768, 32767}, 0}},
         "TEXT(-32768, 32767, 5);GLYPH(8, 0);"},
    };
    for (const auto &[run, expected] : runs) {
        CDisplayListWriter writer(Plenty);
        writer.glyphs(5, run);
        EXPECT_EQ(text(writer), expected);
    }
}

TEST(DisplayListWriter, bitmapsRepeatOnlyWhatDiffers)
{
    CDisplayListWriter writer(Plenty);
    CDisplayListWriter::SBitmapSource source{4096, 7, 128, 64, 32, 0};
    SBitmapPlacement place;
    place.topLeft = {160, 320};
    place.size = {1024, 512};
    writer.bitmap(source, place);
    const std::string first = text(writer);
    EXPECT_EQ(first, "BITMAP_SOURCE(7, 4096);BITMAP_LAYOUT(128, 64, 32);"
                     "BITMAP(160, 320, 1024, 512);");
    source.format = 14;
    source.palette = 256;
    place.a = 32768;
    place.filter = EBitmapFilter::Bilinear;
    place.wrapY = EBitmapWrap::Repeat;
    writer.bitmap(source, place);
    writer.bitmap(source, place);
    const std::string second = first + "BITMAP_SOURCE(14, 4096);BITMAP_PALETTE(256);"
                                       "BITMAP_MODE(5);"
                                       "BITMAP_TRANSFORM(32768, 0, 0, 0, 65536, 0);"
                                       "BITMAP(160, 320, 1024, 512);BITMAP(160, 320, 1024, 512);";
    EXPECT_EQ(text(writer), second);
    writer.bitmap(source, {{0, 0}, {16, 32}});
    source.height = 31;
    writer.bitmap(source, {{0, 0}, {16, 32}});
    EXPECT_EQ(text(writer), second + "BITMAP_MODE(0);BITMAP_TRANSFORM(65536, 0, 0, 0, 65536, 0);"
                                     "BITMAP(0, 0, 16, 32);BITMAP_LAYOUT(128, 64, 31);"
                                     "BITMAP(0, 0, 16, 32);");
}

TEST(DisplayListWriter, aCutBitmapKeepsItsTexelsInPlace)
{
    CDisplayListWriter writer(Plenty);
    SBitmapPlacement place;
    place.topLeft = {-32768 - 160, 0}; // ten pixels too far left
    place.size = {40000, 16};
    place.wrapX = EBitmapWrap::Repeat;
    writer.bitmap({0, 7, 128, 64, 32, 0}, place);
    EXPECT_EQ(text(writer), "BITMAP_SOURCE(7, 0);BITMAP_LAYOUT(128, 64, 32);BITMAP_MODE(2);"
                            "BITMAP_TRANSFORM(65536, 0, 655360, 0, 65536, 0);"
                            "BITMAP(-32768, 0, 39840, 16);");
}

// Every size of memory: the list never exceeds it, ends with END, has whole commands, and is the
// longest beginning of the full list that fits.
TEST(DisplayListWriter, whateverTheLimitTheListIsWholeAndFits)
{
    const auto write = [](CDisplayListWriter &writer) {
        const SPoint points[] = {{0, 0}, {16, 16}, {32, 0}};
        writer.clear(0);
        writer.item(5);
        writer.polygon(points, 3);
        writer.item(9);
        writer.text(20, {0, 0}, "ABCDEFG");
        writer.bitmap({0, 7, 128, 64, 32, 0}, {});
        writer.font(3, 64);
        writer.font(4, 64);
        writer.font(3, 64); // adds nothing
        writer.glyphs(3, {{1, {0, 0}, 16}, {2, {16, 0}, 16}});
        writer.line({0, 0}, {1, 1});
        writer.finish();
    };
    CDisplayListWriter whole(Plenty);
    write(whole);
    ASSERT_EQ(whole.words().size(), 37U);
    const auto &all = whole.words();

    // The words before each unit, without END, and the item that the unit belongs to.
    const std::pair<size_t, uint32_t> units[] = {{0, 0},  {1, 5},  {3, 5},  {10, 9}, {12, 9},
                                                 {17, 9}, {25, 9}, {27, 9}, {29, 9}, {33, 9}};
    for (size_t limit = 1; limit <= 37; ++limit) {
        CDisplayListWriter writer(limit * 4);
        write(writer);
        const auto &words = writer.words();
        size_t expected = 36;
        std::optional<uint32_t> overflow;
        if (limit < 37) {
            const auto lost = std::find_if(std::rbegin(units), std::rend(units),
                                           [&](const auto &unit) { return unit.first < limit; });
            expected = lost->first;
            overflow = lost->second;
        }
        ASSERT_EQ(words.size(), expected + 1) << limit;
        EXPECT_EQ(words.back(), 0U);
        EXPECT_TRUE(std::equal(words.begin(), words.end() - 1, all.begin()));
        EXPECT_EQ(writer.bytesWanted(), 37U * 4);
        EXPECT_EQ(writer.overflowItem(), overflow) << limit;
    }
}
