#include "displaylist/DisplayListText.h"

#include <gtest/gtest.h>

using namespace kivemu;

namespace {

std::string text(const std::vector<uint32_t> &words)
{
    return disassemble(words.data(), words.size());
}

} // namespace

TEST(DisplayListText, knownForms)
{
    const std::pair<std::vector<uint32_t>, const char *> cases[] = {
        {{0x00000000}, "END();"},
        {{0x01102030}, "CLEAR(0x102030);"},
        {{0x02FF8000}, "COLOR(0xff8000);"},
        {{0x03000080}, "ALPHA(128);"},
        {{0x09000000, 0xFFFFFFFF}, "ITEM(4294967295);"},
        {{0x10000050, 0xFFF00010}, "DISC(16, -16, 80);"},
        {{0x06000000, 0x00020001, 0xFFFF8000}, "SCISSOR(1, 2, 32768, 65535);"},
        {{0x17000001, 0x00080008, 0x00000100, 0xA6001680}, "ARC(8, 8, 256, 5760, -23040, 1);"},
        {{0x18000000, 0, 0x00100020, 0x16800004, 0xFF000001, 0x80FFFFFF},
         "GRADIENT(0, 0, 32, 16, 4, 5760, 0xff000001, 0x80ffffff);"},
        {{0x1A434241}, "CHARS(\"ABC\");"},
        {{0x1A3B225C}, "CHARS(\"\\x5c\\x22\\x3b\");"},
        {{0x1AE90041}, "CHARS(\"A\\x00\\xe9\");"},
        {{0x1A000000}, "CHARS(\"\");"},
        {{0x1B00000F, 0x00010000}, "FONT(15, 65536);"},
        {{0x1C7FFFFF}, "GLYPH(65535, 127);"},
        {{0x1C800001}, "GLYPH(1, -128);"},
        {{0x20000007, 0x00010000}, "BITMAP_SOURCE(7, 65536);"},
        {{0x23000000, 0x00010000, 0, 0x80000000, 0, 0xFFFF0000, 5},
         "BITMAP_TRANSFORM(65536, 0, -2147483648, 0, -65536, 5);"},
        {{0xFF000001}, "WORD(0xff000001);"},
        {{0x07000001}, "WORD(0x07000001);"}, // SAVE has no operand
        {{0x09000001, 5}, "WORD(0x09000001);WORD(0x00000005);"},
        {{0x11000000, 0x07000000}, "WORD(0x11000000);WORD(0x07000000);"}, // an operand is missing
    };
    for (const auto &[words, form] : cases) {
        EXPECT_EQ(text(words), form);
        EXPECT_EQ(assemble(form, nullptr), words) << form;
    }
}

TEST(DisplayListText, blanksAndHexadecimalAreAccepted)
{
    EXPECT_EQ(assemble(" DISC ( 0x10 ,\t-0x10 ,\n80 ) ;\r\n", nullptr),
              (std::vector<uint32_t>{0x10000050, 0xFFF00010}));
    EXPECT_EQ(assemble("CLEAR(0xAF09af);", nullptr), std::vector<uint32_t>{0x01AF09AF});
    EXPECT_EQ(assemble(" \n", nullptr), std::vector<uint32_t>{});
    EXPECT_EQ(toBytes({0x01020304}), (std::vector<uint8_t>{4, 3, 2, 1})) << "little-endian";
    const uint8_t bytes[] = {4, 3, 2, 1, 9, 9, 9};
    EXPECT_EQ(fromBytes(bytes, sizeof bytes), (std::vector<uint32_t>{0x01020304}));
}

TEST(DisplayListText, malformedTextIsRefusedWithItsLine)
{
    const std::pair<const char *, const char *> cases[] = {
        {"NOTHING();", "line 1: unknown command NOTHING"},
        {"END();\n\n;", "line 3: a command's name is expected"},
        {"END()", "line 1: \";\" is expected"},
        {"END(1);", "line 1: \")\" is expected"},
        {"END;", "line 1: \"(\" is expected"},
        {"DISC(1, 2);", "line 1: \",\" is expected"},
        {"DISC(1, 2, -1);", "line 1: a number from 0 to 16777215 is expected"},
        {"DISC(32768, 0, 1);", "line 1: a number from -32768 to 32767 is expected"},
        {"SCISSOR(0, 0, 65536, 1);", "line 1: a number from 0 to 65535 is expected"},
        {"BITMAP_TRANSFORM(2147483648",
         "line 1: a number from -2147483648 to 2147483647 is expected"},
        {"GLYPH(65536, 0);", "line 1: a number from 0 to 65535 is expected"},
        {"GLYPH(0, 128);", "line 1: a number from -128 to 127 is expected"},
        {"WORD(99999999999999999999);", "line 1: the number is too large"},
        {"ITEM();", "line 1: a number is expected"},
        {"ITEM(0x);", "line 1: a number is expected"},
        {"CHARS(\"abcd\");", "line 1: at most three characters are expected"},
        {"CHARS(abc);", "line 1: \"\"\" is expected"},
        {"CHARS(\"a",
         "line 1: the text is not closed or has a character that must be written \\xNN"},
        {"CHARS(\"a\n\");",
         "line 1: the text is not closed or has a character that must be written \\xNN"},
        {"CHARS(\"\\x5\");", "line 1: \\ must be followed by x and two hexadecimal digits"},
        {"CHARS(\"\\x", "line 1: \\ must be followed by x and two hexadecimal digits"},
    };
    for (const auto &[form, expected] : cases) {
        std::string error;
        EXPECT_FALSE(assemble(form, &error)) << form;
        EXPECT_EQ(error, expected) << form;
    }
}
