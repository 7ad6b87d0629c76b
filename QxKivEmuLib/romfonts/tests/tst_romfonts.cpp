#include "RomFonts.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

namespace {

/// Sum of a glyph's coverage in pixels.
double ink(const romfonts::SGlyph &glyph)
{
    int sum = 0;
    for (int i = 0; i < glyph.height * glyph.stride; ++i)
        sum += glyph.coverage[i];
    return sum / 255.0;
}

class RomFonts : public testing::TestWithParam<int>
{
};

} // namespace

TEST_P(RomFonts, masksArePaddedAndOnlyBlanksHaveNone)
{
    const int font = GetParam();
    for (int c = 0; c < 256; ++c) {
        const romfonts::SGlyph *glyph = romfonts::glyph(font, static_cast<uint8_t>(c));
        ASSERT_NE(glyph, nullptr);
        EXPECT_GT(glyph->advance16, 0) << c;
        const bool blank = c == 0x20 || c == 0xA0;
        ASSERT_EQ(glyph->coverage == nullptr, blank) << c;
        if (blank)
            continue;
        EXPECT_EQ(glyph->stride % 8, 0);
        EXPECT_GE(glyph->stride, glyph->width);
        EXPECT_LE(glyph->top, romfonts::height(font)) << c;
        EXPECT_GE(glyph->top - glyph->height, -romfonts::height(font) / 2) << c;
        EXPECT_GT(ink(*glyph), 0.0) << c;
        for (int y = 0; y < glyph->height; ++y) {
            for (int x = glyph->width; x < glyph->stride; ++x)
                ASSERT_EQ(glyph->coverage[y * glyph->stride + x], 0);
        }
    }
}

TEST_P(RomFonts, charactersWithoutGlyphShowAQuestionMark)
{
    const romfonts::SGlyph *unknown = romfonts::glyph(GetParam(), '?');
    for (const int c : {0x00, 0x0A, 0x1F, 0x7F, 0x80, 0x84, 0x86, 0x9F})
        EXPECT_EQ(romfonts::glyph(GetParam(), static_cast<uint8_t>(c)), unknown) << c;
    EXPECT_NE(romfonts::glyph(GetParam(), 0x85), unknown);
    EXPECT_NE(romfonts::glyph(GetParam(), '>'), unknown);
}

TEST_P(RomFonts, glyphsAreThoseOfTheirCharacters)
{
    const auto inkOf = [](uint8_t c) { return ink(*romfonts::glyph(GetParam(), c)); };
    EXPECT_GT(inkOf('M'), inkOf('i'));
    EXPECT_GT(inkOf('i'), inkOf('.'));
    EXPECT_GT(inkOf('@'), inkOf('o'));
    EXPECT_GT(inkOf(0xC4), inkOf('A')); // with diaeresis
    EXPECT_NEAR(inkOf(0xFF) / inkOf('y'), 1.2, 0.3);
    EXPECT_GT(inkOf(0x85), inkOf('.'));
    EXPECT_LT(romfonts::glyph(GetParam(), 0x85)->top, romfonts::capHeight(GetParam()) / 2 + 1);
}

INSTANTIATE_TEST_SUITE_P(All, RomFonts, testing::Range(16, 35));

TEST(RomFontTable, metricsStandInTheDocumentation)
{
    std::ifstream page(std::string(std::getenv("KIV_SOURCE_DIR")) + "/docs/chips.md");
    const std::string text(std::istreambuf_iterator<char>(page), {});
    for (int font = 16; font <= 34; ++font) {
        int widest = 0;
        for (int c = 0; c < 256; ++c)
            widest = std::max(widest, romfonts::glyph(font, static_cast<uint8_t>(c))->advance16);
        for (int c = '0'; c <= '9'; ++c)
            EXPECT_EQ(romfonts::textWidth16(font, std::string(1, static_cast<char>(c))),
                      romfonts::textWidth16(font, "0"));
        std::string row = "\n| " + std::to_string(font) +
                          (font < 20   ? " | fixed"
                           : font < 26 ? " | bold"
                                       : " | regular");
        for (const int figure :
             {romfonts::height(font), romfonts::ascent(font), romfonts::capHeight(font),
              romfonts::emSize(font), romfonts::textWidth16(font, "0") / 16, widest / 16})
            row += " | " + std::to_string(figure);
        EXPECT_NE(text.find(row + " |\n"), std::string::npos) << row;
    }
}

TEST(RomFontTable, UnknownFontsHaveNothing)
{
    for (const int font : {-1, 15, 35, 1 << 30}) {
        EXPECT_EQ(romfonts::height(font), 0);
        EXPECT_EQ(romfonts::glyph(font, 'A'), nullptr);
        EXPECT_EQ(romfonts::textWidth16(font, "A"), 0);
    }
}

TEST(RomFontText, utf8BecomesLatin1)
{
    const std::tuple<const char *, std::string, std::string, std::u32string> cases[] = {
        // with what is drawn as "?" without being one
        {"ascii", "Speed 5 m/s?", "Speed 5 m/s?", U""},
        {"controls", "\n a\tb\t", "\n a\tb\t", U"\n\t"},
        {"accents", "\xC3\xA4\xC3\xBF\xC2\xA0\xC2\xB0", "\xE4\xFF\xA0\xB0", U""},
        {"ellipsis", "a\xE2\x80\xA6", "a\x85", U""},
        {"dashes", "\xE2\x80\x93\xE2\x80\x94", "--", U""},
        {"quotes", "\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9C\xE2\x80\x9D", "''\"\"", U""},
        {"outside Latin-1", "\xC4\x80 \xE2\x82\xAC \xF0\x9F\x98\x80", "? ? ?",
         U"\u0100\u20AC\U0001F600"},
        {"control characters of Latin-1", "\x7F\xC2\x85", "??", U"\x7F\x85"},
        {"zero byte", std::string("a\0b", 3), "a?b", std::u32string(1, 0)},
        {"stray continuation", "a\x80z", "a?z", U""},
        {"truncated", "a\xE2\x82", "a??", U""},
        {"overlong", "\xC0\xAF\xE0\x80\xAF", "?????", U""},
        {"surrogate", "\xED\xA0\x80", "???", U""},
        {"too large", "\xF4\x90\x80\x80\xFF", "?????", U""},
        {"broken, then good", "\xC3(\xC3\xA4", "?(\xE4", U""},
    };
    for (const auto &[name, utf8, latin1, missing] : cases) {
        std::u32string found;
        EXPECT_EQ(romfonts::toLatin1(utf8, &found), latin1) << name;
        EXPECT_EQ(found, missing) << name;
    }
}
