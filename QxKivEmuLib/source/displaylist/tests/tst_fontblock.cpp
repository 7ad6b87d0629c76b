#include "displaylist/FontBlock.h"

#include <gtest/gtest.h>

using namespace kivemu;

namespace {

constexpr uint32_t Address = 12;
constexpr size_t BlockBytes = 8 + 3 * 16 + 2 * 3 + 1;

/// Three glyphs of 4 bits a texel behind `Address` other bytes: 3 x 3 texels, none, 1 x 1.
std::vector<uint8_t> memoryWithBlock()
{
    const std::vector<uint8_t> square = {0x12, 0x30, 0x45, 0x60, 0x78, 0x90};
    const std::vector<uint8_t> dot = {0xF0};
    std::vector<uint8_t> memory(Address, 0xAA);
    const auto block = writeFontBlock(4, {{3, 3, -1, 2, 56, square.data()},
                                          {0, 0, 0, 0, -32768, nullptr},
                                          {1, 1, 0, 1, 32767, dot.data()}});
    memory.insert(memory.end(), block.begin(), block.end());
    return memory;
}

} // namespace

TEST(FontBlock, bytesLieAsDocumented)
{
    const std::vector<uint8_t> memory = memoryWithBlock();
    const std::vector<uint8_t> expected = {
        4,    0,    0,    0,    3,    0,    0,   0,                                     // head
        56,   0,    0,    0,    3,    0,    3,   0, 0xFF, 0xFF, 2, 0, 56,   0,    0, 0, // glyphs
        0,    0,    0,    0,    0,    0,    0,   0, 0,    0,    0, 0, 0,    0x80, 0, 0, //
        62,   0,    0,    0,    1,    0,    1,   0, 0,    0,    1, 0, 0xFF, 0x7F, 0, 0, //
        0x12, 0x30, 0x45, 0x60, 0x78, 0x90, 0xF0};
    EXPECT_EQ(std::vector<uint8_t>(memory.begin() + Address, memory.end()), expected);
    std::string fault;
    const auto glyph =
        CFontBlock::find(memory.data(), memory.size(), Address, fault)->glyph(1, fault);
    ASSERT_TRUE(glyph);
    EXPECT_FALSE(glyph->hasInk());
    EXPECT_EQ(glyph->advance16, -32768);
}

TEST(FontBlock, whatIsMalformedIsRefusedWithItsReason)
{
    struct SCase
    {
        size_t at; ///< from the block's start
        std::vector<uint8_t> bytes;
        const char *fault; ///< of the block, or of its first faulty glyph
    };
    const SCase cases[] = {
        {0, {3}, "the font at 12 has texels of 3 bits"},
        {1, {1}, "the font at 12 has texels of 260 bits"},
        {4, {0}, "the font at 12 has 0 glyphs"},
        {6, {1}, "the font at 12 has 65539 glyphs"},
        {4, {4}, "the font at 12 reaches beyond the 75 bytes of RAM_G that are in use"},
        {8, {57}, ""}, // a mask may lie anywhere, as long as it ends in time
        {8, {0}, ""},
        {8, {58}, "glyph 0 reaches beyond the bytes of RAM_G that are in use"},
        {8, {255, 255, 255, 255}, "glyph 0 reaches beyond the bytes of RAM_G that are in use"},
        {14, {0, 2}, "glyph 0 reaches beyond the bytes of RAM_G that are in use"},
        {12, {1, 2}, "glyph 0 has 513 x 3 texels"},
        {14, {1, 2}, "glyph 0 has 3 x 513 texels"},
        {22, {1}, "glyph 0 ends with a number that is not 0"},
        {24, {255, 255, 255, 255, 0, 0, 9}, ""}, // nothing lies at the offset of an empty mask
        {40, {63}, "glyph 2 reaches beyond the bytes of RAM_G that are in use"},
    };
    for (const SCase &row : cases) {
        std::vector<uint8_t> memory = memoryWithBlock();
        ASSERT_EQ(memory.size(), Address + BlockBytes);
        std::copy(row.bytes.begin(), row.bytes.end(),
                  memory.begin() + Address + static_cast<long>(row.at));
        std::string fault;
        const auto font = CFontBlock::find(memory.data(), memory.size(), Address, fault);
        for (uint32_t i = 0; font && i < 3 && fault.empty(); ++i)
            font->glyph(i, fault);
        EXPECT_EQ(fault, row.fault) << row.at;
    }
    const std::vector<uint8_t> memory = memoryWithBlock();
    for (const uint32_t address : {13U, 76U, 72U, 0xFFFFFFFCU}) {
        std::string fault;
        EXPECT_FALSE(CFontBlock::find(memory.data(), memory.size(), address, fault)) << address;
        EXPECT_NE(fault, "");
    }
    std::string fault;
    const auto font = CFontBlock::find(memory.data(), memory.size(), Address, fault);
    EXPECT_FALSE(font->glyph(3, fault));
    EXPECT_EQ(fault, "glyph 3 is not among the 3 of the font");
}
