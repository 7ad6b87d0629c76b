#include "SHostRun.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr char Neighbour[] = "fill_rect(1, 2, 3, 4)";
constexpr char NeighbourList[] = "FILL_RECT(16, 32, 48, 64, 0);";

class ItemErrors : public testing::Test
{
protected:
    ItemErrors()
    {
        EXPECT_TRUE(m_host.loadText(PlainScript, "kiv_render.lua")) << m_host.loadError();
    }
    SHostRun run() { return {m_host, m_model}; }

    kivemu::CLuaHost m_host{kivemu::chipLimits(0x110), PatientLimits};
    CTestModel m_model;
};

} // namespace

TEST_F(ItemErrors, nameTypeIdLineAndCause)
{
    const std::pair<const char *, const char *> cases[] = {
        {"\n\ncolour('#ffffff')",
         "Kiv_Test_T 1: line 3: attempt to call a nil value (global 'colour')"},
        {"disc(1, 2", "Kiv_Test_T 1: line 1: ')' expected near <eof>"},
        {"error('my own words')", "Kiv_Test_T 1: line 1: my own words"},
        {"error('my own words', 0)", "Kiv_Test_T 1: my own words"},
        {"disc(1, 2)",
         "Kiv_Test_T 1: line 1: bad argument #3 to 'disc' (number expected, got no value)"},
        {"color('red')", "Kiv_Test_T 1: line 1: 'red' is no colour; colours are \"#rrggbb\", "
                         "\"#aarrggbb\" or 0xRRGGBB"},
        {"color('#12345g')", "Kiv_Test_T 1: line 1: '#12345g' is no colour; colours are "
                             "\"#rrggbb\", \"#aarrggbb\" or 0xRRGGBB"},
        {"text(0, 0, 35, 'x')", "Kiv_Test_T 1: line 1: font 35 is not one of 0 to 15 or 16 to 34"},
        {"restore()", "Kiv_Test_T 1: line 1: restore() without save()"},
        {"report('too dark') disc(7, 7, 7)", "Kiv_Test_T 1: too dark"},
        {"text(0, 0, 20, '5 \u20AC\t') text(0, 9, 20, '\u20AC')",
         "Kiv_Test_T 1: no font has U+20AC '\u20AC', U+0009; \"?\" is drawn instead"},
        {"text(0, 0, 20, '\u0411\U0001F600\u202E\u0301?\u00FF\u2026')",
         "Kiv_Test_T 1: no font has U+0411 '\u0411', U+1F600 '\U0001F600', U+202E, U+0301; "
         "\"?\" is drawn instead"},
        {"for i = 1040, 1100 do text(0, 0, 20, utf8.char(i)) end",
         "Kiv_Test_T 1: no font has U+0410 '\u0410', U+0411 '\u0411', U+0412 '\u0412', U+0413 "
         "'\u0413', U+0414 '\u0414', U+0415 '\u0415', U+0416 '\u0416', U+0417 '\u0417' and "
         "others; \"?\" is drawn instead"},
        {"text_width(20, '\u20AC') text_fit(20, '\u20AC', 9)", ""}, // nothing is drawn
        {"polygon({1, 2, 3})", "Kiv_Test_T 1: line 1: bad argument #1 to 'polygon' (points are "
                               "{x1, y1, x2, y2, ...}: a number is missing)"},
        {"polyline({1, 2, 3, 'x'})", "Kiv_Test_T 1: line 1: point 2 is not a pair of numbers"},
        {"split_points('1,2;3')",
         "Kiv_Test_T 1: line 1: point 2 of the list is not of the form x,y"},
        {"helper()", "Kiv_Test_T 1: kiv_render.lua:1: attempt to perform arithmetic on a nil value "
                     "(global 'x')"},
    };
    ASSERT_TRUE(m_host.loadText(std::string("function helper() return x + 1 end") + PlainScript,
                                "kiv_render.lua"));
    for (const auto &[commands, error] : cases) {
        m_model = CTestModel();
        m_model.add(commands);
        m_model.add(Neighbour);
        const SHostRun result = run();
        EXPECT_EQ(result.errors, error);
        EXPECT_TRUE(result.has(NeighbourList)) << commands;
    }
}

TEST_F(ItemErrors, stayOneShortLineWhateverTheItemHolds)
{
    m_model.add("error('x')", "Kiv_Test_T").id = "1\nKiv_Other_T 2: made up";
    m_model.add("load_image('a\\nb')");
    m_model.add("load_image(('x'):rep(200000))");
    m_model.add("error('x')").id = std::string(100'000, '9');
    const std::string errors = run().errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 3) << errors;
    EXPECT_LT(errors.size(), 10'000U);
    EXPECT_NE(errors.find("Kiv_Test_T 1 Kiv_Other_T 2: made up: line 1: x"), std::string::npos);
}

TEST_F(ItemErrors, brokenItemIsAHatchedBoxWhereItLies)
{
    STestItem &item = m_model.add("disc(7, 7, 7) error('x')");
    EXPECT_TRUE(run().has("STROKE_RECT(160, 320, 320, 160, 0)")) << run().list;
    EXPECT_TRUE(run().has("DISC(112, 112, 112)")) << "what it drew before its error stays";
    item.set("radius", 5);
    EXPECT_TRUE(run().has("STROKE_RECT(80, 240, 160, 160, 0)")) << run().list;
    item.properties.clear();
    item.set("x", 20).set("y", 30).set("point_size", 64);
    EXPECT_TRUE(run().has("STROKE_RECT(256, 416, 128, 128, 0)")) << run().list;
    item.properties.clear();
    item.set("x_coordinate", 20)
        .set("y_coordinate", 30)
        .set("x2_coordinate", 5)
        .set("y2_coordinate", 40);
    EXPECT_TRUE(run().has("STROKE_RECT(80, 480, 240, 160, 0)")) << run().list;
    item.set("width", 1000000).set("x2_coordinate", -2000000000);
    EXPECT_LT(run().words.size(), 300U) << "a box of any size has a bounded number of lines";
}

TEST_F(ItemErrors, groupsDrawNothingAndUnknownKindsAHatchedBox)
{
    m_model.add("", "Widget_Group_T");
    m_model.add("", "Kiv_Unknown_T");
    m_model.add("", "Kiv_Nameless_T").id.clear();
    const SHostRun result = run();
    EXPECT_EQ(result.errors,
              "Kiv_Unknown_T 2: the widget library has no such kind, or no render commands for it\n"
              "Kiv_Nameless_T: the widget library has no such kind, or no render commands for it");
    EXPECT_FALSE(result.has("ITEM(1)"));
    EXPECT_TRUE(result.has("ITEM(2)"));
    EXPECT_TRUE(result.has("STROKE_RECT"));
}

TEST_F(ItemErrors, manyErrorsAreCounted)
{
    for (int i = 0; i < 150; ++i)
        m_model.add("error('x', 0)");
    const std::string errors = run().errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 100);
    EXPECT_NE(errors.find("and 50 more"), std::string::npos);
}

TEST_F(ItemErrors, stateOfTheScriptHoldsForItemsAndComesBack)
{
    ASSERT_TRUE(m_host.loadText("function render(screen, items)\n"
                                "  color('#0000ff') scissor(10, 10, 50, 50) draw_item(items[1])\n"
                                "  disc(2, 2, 2)\nend",
                                "kiv_render.lua"));
    m_model.add("disc(1, 1, 1) color('#ff0000') scissor(0, 0, 30, 30) disc(3, 3, 3) save()");
    EXPECT_EQ(run().list,
              "ITEM(1);SCISSOR(10, 10, 50, 50);COLOR(0x0000ff);DISC(16, 16, 16);"
              "SCISSOR(10, 10, 20, 20);COLOR(0xff0000);DISC(48, 48, 48);"
              "ITEM(0);SCISSOR(10, 10, 50, 50);COLOR(0x0000ff);DISC(32, 32, 32);END();");
}

TEST_F(ItemErrors, fullDisplayListNamesTheItemAndBothNumbers)
{
    kivemu::CLuaHost small(kivemu::chipLimits(0x100), PatientLimits);
    ASSERT_TRUE(small.loadText(PlainScript, "kiv_render.lua"));
    m_model.add(Neighbour);
    m_model.add("for i = 1, 3000 do disc(i, i, 5) end");
    const SHostRun result(small, m_model);
    EXPECT_LE(result.words.size() * 4, 8192U);
    EXPECT_GT(result.words.size() * 4, 8192U - 12);
    // clear, tag and rectangle; tag and 3,000 discs of two words; end.
    const int words = 1 + 2 + 3 + 2 + 6000 + 1;
    EXPECT_EQ(result.errors, "Kiv_Test_T 2: RAM_DL is full from here on: the screen needs " +
                                 std::to_string(words * 4) + " bytes, the chip has 8192");
    EXPECT_TRUE(result.has(NeighbourList));
    EXPECT_EQ(result.list.substr(result.list.size() - 6), "END();");
    EXPECT_EQ(result.ramDlNeeded, words * 4U);
    EXPECT_EQ(run().ramDlNeeded, words * 4U) << "what the large chip uses is what the small needs";
    EXPECT_EQ(run().words.size(), words * 1U);
}

TEST_F(ItemErrors, propertiesAreVariables)
{
    m_model
        .add("assert(math.type(number) == 'integer' and number == -7 and flag == 1)\n"
             "assert(label == 'T\xC3\xA4xt' and empty == '' and missing == nil)\n"
             "assert(item.type == 'Kiv_Test_T' and item.id == 1 and item.kind == 'widget')\n"
             "assert(item.properties.number == -7 and item.properties.disc == nil)\n"
             "assert(item.properties.item == nil and item.other == nil)\n"
             "local keys = {} for k, v in pairs(item.properties) do keys[#keys + 1] = k end\n"
             "assert(table.concat(keys, ' ') == 'disc2 empty flag height label number width "
             "x_coordinate y_coordinate', table.concat(keys, ' '))")
        .set("number", -7)
        .set("flag", 1)
        .set("label", "T\xC3\xA4xt")
        .set("empty", "")
        .set("disc2", "");
    EXPECT_EQ(run().errors, "");
    EXPECT_EQ(run().errors, "") << "the same from kept tables";
    m_model.item(0).set("number", 8);
    EXPECT_NE(run().errors, "") << "a changed property is seen";
}

TEST_F(ItemErrors, propertyTooLongForLuaIsTheItemsOwnError)
{
    m_model.screen().set("name", std::string(300000, 'x'));
    m_model.add("disc(1, 1, 1)").set("label", std::string(300000, 'x'));
    m_model.add(Neighbour).set("label", std::string(262144, 'x'));
    const SHostRun result = run();
    EXPECT_EQ(result.errors, "Kiv_Test_T 1: the property 'label' is longer than 262144 bytes");
    EXPECT_TRUE(result.has(NeighbourList));
}

TEST_F(ItemErrors, equalAndMissingIdsAreSeparateItems)
{
    for (int i = 0; i < 3; ++i) {
        STestItem &item = m_model.add("disc(radius, 0, 1)");
        item.id = i == 0 ? "" : "5";
        item.properties.clear();
        item.set("radius", i + 1);
    }
    for (int frame = 0; frame < 2; ++frame) {
        const SHostRun result = run();
        EXPECT_EQ(result.errors, "");
        EXPECT_TRUE(result.has("DISC(16, 0, 16)") || result.has("DISC(16, 16, 0)")) << result.list;
        EXPECT_TRUE(result.has("ITEM(5);")) << result.list;
    }
}

TEST_F(ItemErrors, sameItemsGiveTheSameListAfterAnyHistory)
{
    m_model.add("text(5, 9, 27, 'a') disc(width, height, 3)");
    m_model.add("for k, v in pairs(item.properties) do text(1, 1, 20, k .. '=' .. v) end");
    const std::vector<uint32_t> expected = run().words;
    CTestModel other;
    other.add("error('x')");
    other.add("local t = {} while true do t[#t + 1] = {} end");
    SHostRun(m_host, other);
    EXPECT_EQ(run().words, expected);
    kivemu::CLuaHost fresh(kivemu::chipLimits(0x110), PatientLimits);
    ASSERT_TRUE(fresh.loadText(PlainScript, "kiv_render.lua"));
    EXPECT_EQ(SHostRun(fresh, m_model).words, expected);
}
