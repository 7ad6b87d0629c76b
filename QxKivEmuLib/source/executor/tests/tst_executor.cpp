#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"
#include "executor/BitmapFormats.h"
#include "executor/CBitmapCache.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "raster/BitmapImage.h"
#include "raster/CSurface.h"
#include "support/ExampleLists.h"
#include "support/Replay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>
#include <set>

using namespace kivemu;

namespace {

constexpr int Width = 64;
constexpr int Height = 48;

const CRamG NoMemory(0);

std::vector<uint32_t> frameOf(const std::string &text, const CRamG &memory = NoMemory)
{
    std::string error;
    const auto words = assemble(text, &error);
    EXPECT_TRUE(words) << error;
    const SReplay result =
        replay(toBytes(words.value_or(std::vector<uint32_t>{})), memory, Width, Height);
    EXPECT_EQ(result.errors, std::vector<std::string>{}) << text;
    EXPECT_EQ(result.difference, "") << text;
    return result.frame;
}

uint32_t pixel(const std::vector<uint32_t> &frame, int x, int y)
{
    return frame[static_cast<size_t>(y * Width + x)];
}

/// Each channel within `distance`.
bool isNear(uint32_t a, uint32_t b, int distance)
{
    for (int shift = 0; shift < 32; shift += 8) {
        const int difference =
            static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
        if (std::abs(difference) > distance)
            return false;
    }
    return true;
}

/// The list of one L8 bitmap, two texels wide and one high, drawn over 16 x 16 pixels.
std::string twoTexels(const char *setup)
{
    return std::string("CLEAR(0x000000);BITMAP_SOURCE(3, 0);BITMAP_LAYOUT(2, 2, 1);"
                       "BITMAP_TRANSFORM(8192, 0, 0, 0, 4096, 0);") +
           setup + "BITMAP(0, 0, 256, 256);END();";
}

CRamG memoryOf(const std::vector<uint8_t> &bytes)
{
    CRamG memory(4096);
    memory.append(bytes.data(), bytes.size());
    return memory;
}

} // namespace

TEST(RamG, isFilledToTheLastByte)
{
    CRamG memory(12);
    const uint8_t bytes[5] = {};
    EXPECT_EQ(memory.append(bytes, 5), 0U);
    EXPECT_EQ(memory.append(bytes, 5), std::nullopt);
    EXPECT_EQ(memory.append(bytes, 4), 8U);
    EXPECT_EQ(memory.append(bytes, 0), 12U);
}

TEST(BitmapCache, keepsWhatIsDecodedWithinItsBounds)
{
    const CRamG memory = [] {
        CRamG full(1U << 20);
        const std::vector<uint8_t> bytes(1U << 20, 0xAA);
        full.append(bytes.data(), bytes.size());
        return full;
    }();
    CBitmapCache cache;
    cache.follow(memory);
    size_t most = 0;
    for (uint32_t i = 0; i < 12; ++i) {
        const auto image = cache.find(memory, {1, i, 256, 0, 2048, 2048});
        ASSERT_TRUE(image);
        cache.follow(memory);
        EXPECT_EQ(cache.find(memory, {1, i, 256, 0, 2048, 2048}), image);
        EXPECT_NE(*image->at(i % 2 ? 0 : 1, 0), *image->at(i % 2 ? 1 : 2, 0));
        EXPECT_LE(cache.bytes(), CBitmapCache::MaxBytes);
        most = std::max(most, cache.bytes());
    }
    EXPECT_GT(most, CBitmapCache::MaxBytes / 2) << "it does keep what fits";
}

TEST(Executor, everyShapeDrawsWhereItsOperandsSay)
{
    // Commands, then a point that they cover and one that they leave.
    const std::tuple<const char *, int, int, int, int> cases[] = {
        {"DISC(320, 320, 80);", 23, 20, 26, 20},
        {"LINE_WIDTH(64);LINE(160, 160, 480, 160);", 29, 11, 29, 13},
        {"FILL_RECT(160, 320, 128, 64, 0);", 17, 23, 18, 23},
        {"FILL_RECT(160, 160, 320, 320, 160);", 20, 20, 11, 11},
        {"LINE_WIDTH(64);STROKE_RECT(160, 160, 320, 320, 0);", 10, 20, 20, 20},
        {"VERTEX(0, 0);VERTEX(640, 0);VERTEX(0, 640);POLYGON();", 5, 30, 30, 30},
        {"LINE_WIDTH(64);VERTEX(160, 160);VERTEX(480, 160);VERTEX(480, 480);POLYLINE(0);", 30, 20,
         20, 20},
        {"LINE_WIDTH(64);VERTEX(160, 160);VERTEX(480, 160);VERTEX(480, 480);POLYLINE(1);", 20, 20,
         25, 15},
        // The lower right quarter of a circle, then the lower left.
        {"LINE_WIDTH(64);ARC(320, 320, 160, 0, 5760, 1);", 27, 27, 12, 27},
        {"LINE_WIDTH(64);ARC(320, 320, 160, 5760, 5760, 1);", 12, 27, 27, 27},
        {"LINE_WIDTH(64);ARC(320, 320, 160, 0, -5760, 1);", 27, 12, 27, 27},
        // The caps reach two pixels past the end.
        {"LINE_WIDTH(64);ARC(320, 320, 160, 0, 5760, 0);", 29, 19, 29, 16},
        {"GRADIENT(160, 160, 320, 160, 0, 0, 0xffffffff, 0xffffffff);", 29, 19, 30, 19},
    };
    for (const auto &[list, insideX, insideY, outsideX, outsideY] : cases) {
        const auto frame = frameOf(std::string("CLEAR(0x102030);") + list + "END();");
        EXPECT_EQ(pixel(frame, insideX, insideY), 0xFFFFFFFF) << list;
        EXPECT_EQ(pixel(frame, outsideX, outsideY), 0xFF102030) << list;
    }
}

TEST(Executor, saveAndRestoreCoverTheWholeState)
{
    const std::string change = "COLOR(0x00ff00);ALPHA(9);BLEND(0);LINE_WIDTH(99);"
                               "SCISSOR(0, 0, 3, 3);";
    const std::string set = "CLEAR(0x000000);COLOR(0x3060c0);ALPHA(128);LINE_WIDTH(40);"
                            "SCISSOR(5, 5, 40, 40);";
    const std::string draw = "LINE(0, 0, 800, 600);FILL_RECT(200, 200, 300, 300, 0);END();";
    EXPECT_EQ(frameOf(set + "SAVE();" + change + "RESTORE();" + draw), frameOf(set + draw));
    EXPECT_NE(frameOf(set + change + draw), frameOf(set + draw));
    EXPECT_EQ(frameOf(set + "SAVE();SAVE();" + change + "RESTORE();SAVE();" + change +
                      "RESTORE();RESTORE();" + draw),
              frameOf(set + draw));
}

TEST(Executor, eachBitmapRegisterChangesTheNextBitmap)
{
    std::vector<uint8_t> bytes = {255, 128, 64, 1, 0, 0, 0, 0};
    bytes.resize(8 + 2 * 512); // two palettes, all black but for their second entries
    bytes[8 + 2] = 0xF8;
    bytes[8 + 3] = 0xFF;
    bytes[8 + 512 + 2] = 0x1F;
    const CRamG memory = memoryOf(bytes);
    const std::string setup = "BITMAP_SOURCE(3, 0);BITMAP_LAYOUT(1, 1, 1);BITMAP_PALETTE(8);"
                              "BITMAP_MODE(6);";
    const std::string draw = "BITMAP(0, 0, 256, 256);";
    const std::pair<const char *, const char *> cases[] = {
        {"", "BITMAP_SOURCE(3, 1);"},
        {"BITMAP_SOURCE(3, 1);", "BITMAP_SOURCE(4, 1);"},
        {"", "BITMAP_LAYOUT(1, 2, 1);"},
        {"", "BITMAP_LAYOUT(1, 1, 3);"},
        {"BITMAP_LAYOUT(1, 1, 3);", "BITMAP_LAYOUT(2, 1, 3);"},
        {"BITMAP_SOURCE(14, 3);", "BITMAP_PALETTE(520);"},
    };
    for (const auto &[first, after] : cases) {
        const std::string before = setup + first;
        const auto changed =
            frameOf(before + draw + "CLEAR(0x000000);" + after + draw + "END();", memory);
        EXPECT_EQ(changed, frameOf(before + after + draw + "END();", memory)) << after;
        EXPECT_NE(changed, frameOf(before + draw + "END();", memory)) << after;
    }
}

TEST(Executor, bitmapModesReachTheRasterizer)
{
    const CRamG memory = memoryOf({255, 0});
    const auto wide = [&](const char *mode) {
        return frameOf(std::string("BITMAP_SOURCE(3, 0);BITMAP_LAYOUT(2, 2, 1);") + mode +
                           "BITMAP_TRANSFORM(8192, 0, 0, 0, 2048, 0);BITMAP(0, 0, 1024, 768);"
                           "END();",
                       memory);
    };
    // Two texels, 8 x 32 pixels each: what a pixel in the fourth column and at a seam shows.
    EXPECT_EQ(pixel(wide(""), 20, 8), 0xFF000000);
    EXPECT_EQ(pixel(wide("BITMAP_MODE(2);"), 20, 8), 0xFFFFFFFF);
    EXPECT_EQ(pixel(wide("BITMAP_MODE(2);"), 20, 40), 0xFF000000);
    EXPECT_EQ(pixel(wide("BITMAP_MODE(4);"), 4, 40), 0xFFFFFFFF);
    EXPECT_EQ(pixel(wide("BITMAP_MODE(0);"), 7, 8), 0xFFFFFFFF);
    EXPECT_TRUE(isNear(pixel(wide("BITMAP_MODE(5);"), 7, 16), 0xFF888888, 0x10)) << "half and half";
}

TEST(Executor, aChangedMemoryShows)
{
    const auto words = *assemble(twoTexels(""), nullptr);
    CExecutor executor;
    const auto leftPixel = [&](const CRamG &memory) {
        CSurface surface(Width, Height);
        EXPECT_TRUE(executor.execute(words.data(), words.size(), memory, surface).empty());
        return surface.row(8)[2];
    };
    CRamG memory = memoryOf({255, 0});
    EXPECT_EQ(leftPixel(memory), 0xFFFFFFFF);
    memory.clear();
    const uint8_t darker[] = {0, 255};
    memory.append(darker, sizeof darker);
    EXPECT_EQ(leftPixel(memory), 0xFF000000);
    EXPECT_EQ(leftPixel(memoryOf({255, 0})), 0xFFFFFFFF) << "another memory, written as often";
}

// What was looked at once stays the same to the byte, with any compiler. Where a change is meant,
// look at the frames again and write down their new sums.
TEST(Executor, examplesDrawTheFramesThatTheyDrewBefore)
{
    const std::map<std::string, uint32_t> sums = {{"bitmaps", 3908815316}, {"glyphs", 4215558862},
                                                  {"paths", 3241648973},   {"shapes", 2173024013},
                                                  {"states", 397279291},   {"texts", 2431840326}};
    std::set<uint32_t> used;
    for (const SExample &example : exampleLists()) {
        const SReplay result =
            replay(toBytes(example.words), example.memory, ExampleWidth, ExampleHeight);
        EXPECT_EQ(result.errors, std::vector<std::string>{}) << example.name;
        EXPECT_EQ(result.difference, "") << example.name;
        uint32_t sum = 2166136261;
        for (const uint32_t pixel : result.frame)
            sum = (sum ^ pixel) * 16777619;
        EXPECT_EQ(sum, sums.at(example.name)) << example.name;
        for (size_t i = 0; i < example.words.size();) {
            used.insert(example.words[i] >> 24);
            i += 1 + findCommand(static_cast<uint8_t>(example.words[i] >> 24))->operandWords();
        }
    }
    EXPECT_EQ(used.size(), commandTable().size()) << "every command is in an example";
}

TEST(Executor, theScissorOnlyCuts)
{
    std::mt19937 random(4);
    CExecutor executor;
    for (const SExample &example : exampleLists()) {
        std::vector<uint32_t> words = example.words;
        words.insert(words.begin(), {headerWord(EOpcode::Scissor, 0), 0, 0});
        const auto drawn = [&] {
            return execute(executor, words, example.memory, ExampleWidth, ExampleHeight, 0).pixels;
        };
        words[2] = ExampleHeight << 16 | ExampleWidth;
        const auto whole = drawn();
        for (int round = 0; round < 60; ++round) {
            const auto left = static_cast<int>(random() % 100),
                       top = static_cast<int>(random() % 80);
            const int right = left + static_cast<int>(random() % 60);
            const int bottom = top + static_cast<int>(random() % 40);
            words[1] = static_cast<uint32_t>(top << 16 | left);
            words[2] = static_cast<uint32_t>((bottom - top) << 16 | (right - left));
            const auto part = drawn();
            const bool isSet = std::string(example.name) == "states"; // sets scissors of its own
            for (int y = 0; y < ExampleHeight && !isSet; ++y)
                for (int x = 0; x < ExampleWidth; ++x) {
                    const auto at = static_cast<size_t>(y * ExampleWidth + x);
                    const bool isIn = x >= left && x < right && y >= top && y < bottom;
                    // Far shapes are cut near the clip before they are drawn, and round otherwise.
                    ASSERT_TRUE(isNear(part[at], isIn ? whole[at] : 0xFF000000, isIn ? 1 : 0))
                        << example.name << " at " << x << ", " << y;
                }
        }
    }
}

// The limits stand for what no chip could draw in time; a hundred layers of the largest screen.
TEST(Executor, whatDrawsTooMuchIsLeftOutAndItsNeighbourDrawn)
{
    const size_t layers = 210'000'000 / (Width * Height);
    std::vector<uint32_t> words = assemble("CLEAR(0x000000);ITEM(1);", nullptr).value();
    words.insert(words.end(), layers, uint32_t{static_cast<uint8_t>(EOpcode::Clear)} << 24 | 0xFF);
    const auto rest = assemble("COLOR(0xff0000);FILL_RECT(0, 0, 160, 160, 0);ITEM(2);"
                               "COLOR(0x00ff00);FILL_RECT(160, 0, 160, 160, 0);END();",
                               nullptr);
    words.insert(words.end(), rest->begin(), rest->end());
    CSurface surface(Width, Height);
    const auto errors = CExecutor().execute(words.data(), words.size(), NoMemory, surface);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].item, 1U);
    EXPECT_NE(errors[0].message.find("200 million pixels"), std::string::npos);
    EXPECT_EQ(surface.row(5)[5], 0xFF0000FFU) << "left out";
    EXPECT_EQ(surface.row(5)[15], 0xFF00FF00U) << "the neighbour";
}
