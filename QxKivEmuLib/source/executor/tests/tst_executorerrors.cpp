#include "displaylist/CDisplayListWriter.h"
#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "executor/CRamG.h"
#include "raster/CSurface.h"

#include <gtest/gtest.h>

using namespace kivemu;

namespace {

std::vector<SExecutionError> errorsOf(const std::vector<uint32_t> &words)
{
    CSurface surface(32, 16);
    CRamG memory(1024);
    const std::vector<uint8_t> bytes(100);
    memory.append(bytes.data(), bytes.size());
    return CExecutor().execute(words.data(), words.size(), memory, surface);
}

std::vector<SExecutionError> errorsOfText(const std::string &text)
{
    std::string error;
    const auto words = assemble(text, &error);
    EXPECT_TRUE(words) << error;
    return words ? errorsOf(*words) : std::vector<SExecutionError>{};
}

std::string messages(const std::vector<SExecutionError> &errors)
{
    std::string all;
    for (const SExecutionError &error : errors)
        all += error.message + "\n";
    return all;
}

} // namespace

TEST(ExecutorErrors, eachKindIsReported)
{
    const std::pair<const char *, const char *> cases[] = {
        {"END();", ""},
        {"SAVE();SAVE();RESTORE();END();", ""},
        {"WORD(0x0a000000);END();", "WORD: there is no opcode 10\n"},
        {"WORD(0x07000001);END();", "SAVE: the header's operand 1 is above 0\n"},
        {"ALPHA(256);END();", "ALPHA: the header's operand 256 is above 255\n"},
        {"BLEND(2);END();", "BLEND: the header's operand 2 is above 1\n"},
        {"LINE_WIDTH(65536);END();", "LINE_WIDTH: the header's operand 65536 is above 65535\n"},
        {"BITMAP_MODE(8);END();", "BITMAP_MODE: the header's operand 8 is above 7\n"},
        {"RESTORE();END();", "RESTORE: no state was saved\n"},
        {"SAVE();RESTORE();RESTORE();END();", "RESTORE: no state was saved\n"},
        {"", "END: is missing at the end of the list\n"},
        {"SAVE();", "END: is missing at the end of the list\n"},
        {"WORD(0x00000001);", "END: the header's operand 1 is above 0\n"
                              "END: is missing at the end of the list\n"},
        {"WORD(0x11000000);WORD(0);", "LINE: the list ends within its operands\n"
                                      "END: is missing at the end of the list\n"},
        {"TEXT(0, 0, 15);CHARS(\"abc\");CHARS(\"d\");END();",
         "TEXT: no FONT has bound the handle 15\n"},
        {"TEXT(0, 0, 35);END();", "TEXT: there is no font 35\n"},
        {"TEXT(0, 0, 16);CHARS(\"abc\");TEXT(0, 0, 34);CHARS(\"abc\");END();", ""},
        {"CHARS(\"abc\");END();", "CHARS: there is no TEXT before\n"},
        {"GLYPH(0, 0);END();", "GLYPH: there is no TEXT before\n"},
        {"FONT(16, 0);END();", "FONT: the header's operand 16 is above 15\n"},
        {"FONT(0, 96);END();",
         "FONT: the font at 96 reaches beyond the 100 bytes of RAM_G that are in use\n"},
        {"VERTEX(0, 0);END();", "VERTEX: 1 vertices were never drawn\n"},
        {"VERTEX(0, 0);VERTEX(0, 0);ITEM(5);POLYGON();END();",
         "VERTEX: 2 vertices were never drawn\nPOLYGON: there are no vertices\n"},
        {"VERTEX(0, 0);POLYLINE(0);POLYLINE(0);END();", "POLYLINE: there are no vertices\n"},
        {"VERTEX(0, 0);", "VERTEX: 1 vertices were never drawn\n"
                          "END: is missing at the end of the list\n"},
        {"ARC(0, 0, 65536, 0, 64, 0);END();", "ARC: the radius 65536 is above 65535\n"},
        {"BITMAP(0, 0, 16, 16);END();", "BITMAP: the size 0 x 0 is not in 1 to 2048\n"},
        {"BITMAP_SOURCE(3, 0);BITMAP_LAYOUT(1, 2049, 1);BITMAP(0, 0, 16, 16);END();",
         "BITMAP: the size 2049 x 1 is not in 1 to 2048\n"},
        {"BITMAP_SOURCE(10, 0);BITMAP_LAYOUT(1, 1, 1);BITMAP(0, 0, 16, 16);END();",
         "BITMAP: there is no bitmap format 10\n"},
        {"BITMAP_SOURCE(3, 0);BITMAP_LAYOUT(10, 10, 10);BITMAP(0, 0, 16, 16);END();", ""},
        {"BITMAP_SOURCE(3, 1);BITMAP_LAYOUT(10, 10, 10);BITMAP(0, 0, 16, 16);END();",
         "BITMAP: the bitmap at 1 or its palette reaches beyond the 100 bytes of RAM_G that are in "
         "use\n"},
        {"BITMAP_SOURCE(12, 0);BITMAP_LAYOUT(1, 1, 1);BITMAP(0, 0, 16, 16);END();",
         "BITMAP: the bitmap at 0 or its palette reaches beyond the 100 bytes of RAM_G that are in "
         "use\n"},
    };
    for (const auto &[list, message] : cases)
        EXPECT_EQ(messages(errorsOfText(list)), message) << list;
}

TEST(ExecutorErrors, itemAndPlaceAreNamed)
{
    const auto errors = errorsOfText("RESTORE();ITEM(7);DISC(0, 0, 1);RESTORE();ITEM(9);"
                                     "VERTEX(0, 0);ITEM(4);END();RESTORE();");
    ASSERT_EQ(errors.size(), 3U) << "nothing behind END counts";
    EXPECT_EQ(errors[0].item, 0U);
    EXPECT_EQ(errors[0].wordIndex, 0U);
    EXPECT_EQ(errors[1].item, 7U);
    EXPECT_EQ(errors[1].wordIndex, 5U);
    EXPECT_EQ(errors[2].item, 9U) << "the path belongs to the item before";
    EXPECT_EQ(errors[2].wordIndex, 10U);
}

TEST(ExecutorErrors, limitsOfSavesAndVertices)
{
    const auto list = [](EOpcode opcode, size_t times) {
        std::vector<uint32_t> words;
        for (size_t i = 0; i < times; ++i) {
            words.push_back(headerWord(opcode, 0));
            words.resize(words.size() + findCommand(static_cast<uint8_t>(opcode))->operandWords());
        }
        if (opcode == EOpcode::Vertex)
            words.push_back(headerWord(EOpcode::Polygon, 0));
        words.push_back(0);
        return words;
    };
    EXPECT_EQ(messages(errorsOf(list(EOpcode::Save, 64))), "");
    EXPECT_EQ(messages(errorsOf(list(EOpcode::Save, 65))), "SAVE: more than 64 states\n");
    EXPECT_EQ(messages(errorsOf(list(EOpcode::Vertex, 8192))), "");
    EXPECT_EQ(messages(errorsOf(list(EOpcode::Vertex, 8200))), "VERTEX: more than 8192 vertices\n");
    EXPECT_EQ(errorsOf(list(EOpcode::Restore, 1000)).size(), CExecutor::MaxErrors);
}

// The commands around a malformed one still draw.
TEST(ExecutorErrors, drawingGoesOn)
{
    const auto words = *assemble("CLEAR(0x000000);WORD(0xee000000);SCISSOR(0, 0, 1, 1);"
                                 "WORD(0x07000009);CLEAR(0x123456);END();",
                                 nullptr);
    CSurface surface(4, 4);
    const auto errors = CExecutor().execute(words.data(), words.size(), CRamG(0), surface);
    EXPECT_EQ(errors.size(), 2U);
    EXPECT_EQ(surface.row(0)[0], 0xFF123456);
    EXPECT_EQ(surface.row(0)[1], 0xFF000000);
}
