#include "RomFonts.h"
#include "SHostRun.h"

#include <algorithm>
#include <clocale>
#include <gtest/gtest.h>

namespace {

SHostRun runOf(const std::string &commands)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), PatientLimits);
    EXPECT_TRUE(
        host.loadText("function render(screen, items) draw_item(items[1]) end", "render.lua"));
    CTestModel model;
    model.add(commands);
    return {host, model, 100, 80};
}

std::string errorOf(const std::string &commands)
{
    return runOf(commands).errors;
}

/// The display list of one item's commands, without its tag and the end.
std::string drawn(const std::string &commands)
{
    const SHostRun run = runOf(commands);
    EXPECT_EQ(run.errors, "") << commands;
    std::string list = run.list;
    for (const char *part : {"ITEM(1);", "END();"}) {
        if (const size_t at = list.find(part); at != std::string::npos)
            list.erase(at, std::string(part).size());
    }
    return list;
}

} // namespace

TEST(DrawApi, callsBecomeCommands)
{
    const std::pair<const char *, const char *> cases[] = {
        {"clear('#102030')", "CLEAR(0x102030);"},
        {"disc(10, 20, 5)", "DISC(160, 320, 80);"},
        {"disc('10', '20.5', 5)", "DISC(160, 328, 80);"},
        {"line(1, 2, 3, 4)", "LINE(16, 32, 48, 64);"},
        {"line_width(2.5) line(1, 2, 3, 4)", "LINE_WIDTH(40);LINE(16, 32, 48, 64);"},
        {"fill_rect(1, 2, 3, 4)", "FILL_RECT(16, 32, 48, 64, 0);"},
        {"fill_rect(1, 2, 3, 4, 1.5)", "FILL_RECT(16, 32, 48, 64, 24);"},
        {"stroke_rect(1, 2, 3, 4, 1)", "STROKE_RECT(16, 32, 48, 64, 16);"},
        {"polygon({0, 0, 10, 0, 5, 8})", "VERTEX(0, 0);VERTEX(160, 0);VERTEX(80, 128);POLYGON();"},
        {"polyline({0, 0, 10, 0}, true)", "VERTEX(0, 0);VERTEX(160, 0);POLYLINE(1);"},
        {"polyline({0, 0, 10, 0}, 0)", "VERTEX(0, 0);VERTEX(160, 0);POLYLINE(0);"},
        {"arc(50, 40, 10, -90, 270)", "ARC(800, 640, 160, 17280, 17280, 0);"},
        {"arc(50, 40, 10, 0, 999, 'butt')", "ARC(800, 640, 160, 0, 23040, 1);"},
        {"gradient(1, 2, 3, 4, '#ff0000', 0x00ff00)",
         "GRADIENT(16, 32, 48, 64, 0, 5760, 0xffff0000, 0xff00ff00);"},
        {"gradient(1, 2, 3, 4, '#80ff0000', 0, 0, 1)",
         "GRADIENT(16, 32, 48, 64, 16, 0, 0x80ff0000, 0xff000000);"},
        // State is written when something is drawn with it, and only where it differs.
        {"color('#ff0000') color('#00ff00') disc(1, 1, 1) disc(2, 2, 1)",
         "COLOR(0x00ff00);DISC(16, 16, 16);DISC(32, 32, 16);"},
        {"color('#1a2B3cFf') disc(1, 1, 1)", "COLOR(0x2b3cff);ALPHA(26);DISC(16, 16, 16);"},
        {"color('#80ff0000') disc(1, 1, 1)", "COLOR(0xff0000);ALPHA(128);DISC(16, 16, 16);"},
        {"color('#80ff0000', 128) disc(1, 1, 1)", "COLOR(0xff0000);ALPHA(64);DISC(16, 16, 16);"},
        {"color(0xffffff, 0) disc(1, 1, 1)", "ALPHA(0);DISC(16, 16, 16);"},
        {"blend(false) disc(1, 1, 1) blend(1) disc(1, 1, 1)",
         "BLEND(0);DISC(16, 16, 16);BLEND(1);DISC(16, 16, 16);"},
        {"save() color('#000000') restore() disc(1, 1, 1)", "DISC(16, 16, 16);"},
        {"line_width(9) disc(1, 1, 1)", "DISC(16, 16, 16);"},
        // Scissors lie within the one outside, and within the frame of 100 x 80.
        {"scissor(10, 10, 20, 20) disc(1, 1, 1)", "SCISSOR(10, 10, 20, 20);DISC(16, 16, 16);"},
        {"scissor(-5, 70, 20, 20) disc(1, 1, 1)", "SCISSOR(0, 70, 15, 10);DISC(16, 16, 16);"},
        {"scissor(10, 10, 20, 20) save() scissor(25, 0, 20, 100) disc(1, 1, 1) scissor() disc(1, "
         "1, "
         "1) restore() scissor() disc(1, 1, 1)",
         "SCISSOR(25, 10, 5, 20);DISC(16, 16, 16);SCISSOR(10, 10, 20, 20);DISC(16, 16, 16);"
         "SCISSOR(0, 0, 100, 80);DISC(16, 16, 16);"},
        {"scissor(50, 50, -10, 5) disc(1, 1, 1)", "SCISSOR(50, 50, 0, 5);DISC(16, 16, 16);"},
        // Nothing to see.
        {"disc(1, 1, 0) fill_rect(1, 1, 0, 5) stroke_rect(1, 1, 5, -1) polygon({1, 1, 2, 2}) "
         "text(1, 1, 20, '') gradient(0, 0, -1, 1, 0, 0) arc(1, 1, -1, 0, 90)",
         ""},
        // Halves round away from zero; edges that touch go on touching.
        {"disc(0.03125, -0.03125, 1)", "DISC(1, -1, 16);"},
        {"fill_rect(0.03, 0, 0.03, 1) fill_rect(0.06, 0, 0.03, 1)",
         "FILL_RECT(0, 0, 1, 16, 0);FILL_RECT(1, 0, 0, 16, 0);"},
        // Turns
        {"rotate(90, 10, 10) disc(20, 10, 1)", "DISC(160, 320, 16);"},
        {"rotate(90, 10, 10) fill_rect(10, 10, 20, 5, 1)", "FILL_RECT(80, 160, 80, 320, 16);"},
        {"rotate(45, 0, 0) rotate(45, 0, 0) line(10, 0, 20, 5)", "LINE(0, 160, -80, 320);"},
        {"rotate(45, 30, 30) rotate(-45, 30, 30) fill_rect(1, 2, 3, 4)",
         "FILL_RECT(16, 32, 48, 64, 0);"},
        {"rotate(180, 10, 10) arc(10, 20, 5, 30, 60)", "ARC(160, 0, 80, 13440, 3840, 0);"},
        {"rotate(90, 0, 0) gradient(0, -10, 20, 10, 0xff, 0xff00, 0)",
         "GRADIENT(0, 0, 160, 320, 0, 5760, 0xff0000ff, 0xff00ff00);"},
        {"save() rotate(90, 0, 0) restore() disc(5, 0, 1)", "DISC(80, 0, 16);"},
    };
    for (const auto &[commands, list] : cases)
        EXPECT_EQ(drawn(commands), list) << commands;
}

TEST(DrawApi, turnedRectangleIsAPolygonOfItsCorners)
{
    // 45 degrees about the centre of a square of 20: corners at 14.142 from it.
    EXPECT_EQ(drawn("rotate(45, 50, 40) fill_rect(40, 30, 20, 20)"),
              "VERTEX(800, 866);VERTEX(574, 640);VERTEX(800, 414);VERTEX(1026, 640);POLYGON();");
    const std::string outline = drawn("rotate(30, 50, 40) stroke_rect(40, 30, 20, 20, 5)");
    EXPECT_NE(outline.find("POLYLINE(1);"), std::string::npos);
    EXPECT_GE(std::count(outline.begin(), outline.end(), 'V'), 4 * 5);
    const std::string gradient = drawn("rotate(30, 50, 40) gradient(40, 30, 20, 20, 0, 0xffffff)");
    EXPECT_GE(std::count(gradient.begin(), gradient.end(), 'P'), 10) << gradient;
}

TEST(DrawApi, textIsPlacedByItsMetrics)
{
    const int width16 = romfonts::textWidth16(27, "Abc");
    const auto textAt = [](int x16, int y16) {
        return "TEXT(" + std::to_string(x16) + ", " + std::to_string(y16) + ", 27);CHARS(\"Abc\");";
    };
    EXPECT_EQ(drawn("text(10, 20, 27, 'Abc')"), textAt(160, 320));
    EXPECT_EQ(drawn("text(10, 20, 27, 'Abc', 'center')"), textAt(160 - width16 / 2, 320));
    // A letter is centred by its ink, a figure by the place that all figures take.
    const romfonts::SGlyph *letter = romfonts::glyph(34, 'L');
    EXPECT_EQ(drawn("text(10, 20, 34, 'L', 'center')"),
              "TEXT(" + std::to_string(160 - 16 * letter->left - 8 * letter->width) +
                  ", 320, 34);CHARS(\"L\");");
    EXPECT_EQ(drawn("text(10, 20, 34, '1', 'center')"),
              "TEXT(" + std::to_string(160 - romfonts::textWidth16(34, "1") / 2) +
                  ", 320, 34);CHARS(\"1\");");
    EXPECT_EQ(drawn("text(10, 20, 27, 'Abc', 'right')"), textAt(160 - width16, 320));
    EXPECT_EQ(drawn("text(10, 20, 27, 'Abc', 'left', 'middle')"),
              textAt(160, 320 + romfonts::capHeight(27) * 8));
    EXPECT_EQ(drawn("text(10, 20, 27, 'Abc', 'left', 'top')"),
              textAt(160, 320 + romfonts::ascent(27) * 16));
    EXPECT_EQ(drawn("text(10, 20, 27, 'Abc', 'left', 'bottom')"),
              textAt(160, 320 - (romfonts::height(27) - romfonts::ascent(27)) * 16));
    EXPECT_EQ(drawn("rotate(90, 0, 0) text(10, 0, 27, 'Abc')"), textAt(0, 160));
}

TEST(DrawApi, valueFunctions)
{
    const char *const checks[] = {
        "assert(text_width(18, 'abcd') == 4 * text_width(18, 'x') and text_width(18, 'x') > 0)",
        "assert(text_width(27, 'T\xC3\xA4\xE2\x80\xA6') == text_width(27, 'T') + text_width(27, "
        "'\xC3\xA4') + text_width(27, '\xE2\x80\xA6'))",
        "assert(text_fit(27, 'short', 200) == 'short' and text_fit(27, '', 0) == '')",
        "local s = text_fit(27, 'A longer text', 60) "
        "assert(s:sub(-3) == '\xE2\x80\xA6' and text_width(27, s) <= 60 and text_width(27, s) > "
        "40, s)",
        "assert(text_fit(27, 'anything', 2) == '')",
        "assert(text_fit(27, '\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xC3\xB6\xC3\xBC', "
        "40):find('^[\x80-\xFF]+$'))",
        "assert(font_height(31) == 49 and font_ascent(31) < 49 and font_cap_height(31) > 20)",
        "local p = split_points('10,20;-30.5,40') assert(#p == 4 and p[3] == -30.5 and p[4] == 40)",
        "assert(#split_points('') == 0 and #split_points('1,2;') == 2)",
        "local p = split_points('-7,1234567890;1e2, 4', 0.5, -1) "
        "assert(p[1] == -6.5 and p[2] == 1234567889 and p[3] == 100.5 and p[4] == 3)",
        "assert(mix('#000000', '#ffffff', 0.5) == '#ff808080')",
        "assert(mix('#00ff0000', 0x0000ff, 0.25) == '#40bf0040')",
        "assert(mix(0, 0xffffff, -1) == '#ff000000' and mix(0, 0xffffff, 7) == '#ffffffff')",
        "assert(screen == nil)",
    };
    for (const char *check : checks)
        EXPECT_EQ(errorOf(check), "") << check;
}

TEST(DrawApi, wrongArgumentsAreErrors)
{
    const std::string commands = R"(
        disc() | disc(1, 2, {}) | disc(1, 2, 0/0) | line(1, 2, 3) | fill_rect(1, 2, 3) |
        color() | color(nil) | color(-1) | color(0x1000000) | color('') | color('#12345') |
        color('112233') | color('#1122334') | color(true) | color(1.5) | color('#') |
        color('#123456789') | color('#12 456') | color('#12345g') | color('#-12345') |
        color('#0x1234') |
        color('#112233', 256) | blend() | blend('on') | line_width() | scissor(1, 2) |
        rotate(1) | polygon() | polygon('x') | polygon({1, 2, 3}) | arc(1, 2, 3, 4) |
        arc(1, 2, 3, 4, 5, 'pointed') | gradient(1, 2, 3, 4, 0) | text(1, 2) |
        text(1, 2, 15, 'x') | text(1, 2, 20.5, 'x') | text(1, 2, 20) |
        text(1, 2, 20, 'x', 'middle') | text(1, 2, 20, 'x', 'left', 'center') |
        text_width(20) | font_height(99) | mix('#000000') | mix('#000000', '#000000') |
        split_points('1') | split_points('1;2') | split_points('1,2,3') |
        split_points('a,b') | split_points('inf,0') | split_points('-,2') |
        split_points('1,2x') | bitmap() | bitmap({}, 1, 2) |
        bitmap(item, 1, 2) | load_bitmap('x', 'NOFORMAT', 1, 1) |
        load_bitmap('x', 99, 1, 1) | load_bitmap('x', 'L8', 0, 1) |
        load_bitmap('x', 'L8', 1, 4096) | load_bitmap('x') | draw_item() | draw_item({}) |
        draw_item('x'))";
    size_t count = 0;
    for (size_t from = 0; from < commands.size(); ++count) {
        const size_t end = std::min(commands.find('|', from), commands.size());
        const std::string command = commands.substr(from, end - from);
        EXPECT_NE(errorOf(command), "") << command;
        from = end + 1;
    }
    EXPECT_GT(count, 50U);
}

// A program may have set any locale: it must not reach the script.
TEST(DrawApi, localeOfTheProgramChangesNothing)
{
    const std::string commands = "text(1, 1, 20, string.format('%.2f', 1.5)) "
                                 "disc(tonumber('2.5'), split_points('1.5,2')[1], '3.25')";
    const std::string expected = drawn(commands);
    EXPECT_NE(expected.find("DISC(40, 24, 52)"), std::string::npos) << expected;
    for (const char *name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
        if (!std::setlocale(LC_ALL, name))
            continue;
        EXPECT_EQ(drawn(commands), expected) << name;
        std::setlocale(LC_ALL, "C");
    }
}
