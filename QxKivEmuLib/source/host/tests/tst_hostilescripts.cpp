#include "SHostRun.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

using namespace std::chrono_literals;

namespace {

constexpr size_t Memory = size_t{16} << 20;
constexpr uint64_t Much = 4'000'000'000;
/// What does too much is stopped soon; what should end by another limit may do a lot. The clock
/// should stop none of them, though it leaves the work only some 100 times of what it counts for.
constexpr kivemu::SScriptLimits LittleWork{8'000'000, 4'000'000, Memory, 60s, 30s};
constexpr kivemu::SScriptLimits LittleItemWork{Much, 4'000'000, Memory, 60s, 400ms};
constexpr kivemu::SScriptLimits MuchWork{Much, Much, Memory, 60s, 30s};

constexpr char Neighbour[] = "color('#00ff00') fill_rect(1, 2, 3, 4)";
constexpr char NeighbourList[] = "FILL_RECT(16, 32, 48, 64, 0);";

struct SHostileScript
{
    const char *name;
    const char *code;
    const char *error; ///< part of the message
};

constexpr char TooLong[] = "takes too long";
constexpr char NoMemory[] = "not enough memory";

const SHostileScript Scripts[] = {
    // Time
    {"endless_loop", "while true do end", TooLong},
    {"pcall_loop", "while true do pcall(function() while true do end end) end", TooLong},
    {"xpcall_handler",
     "while true do xpcall(function() while true do end end, function() while true do end end) end",
     TooLong},
    {"metamethod_loop",
     "local t = setmetatable({}, {__index = function() while true do end end}) return t.x",
     TooLong},
    {"sort_comparator", "table.sort({3, 2, 1}, function() while true do end end)", TooLong},
    {"sort_long_texts",
     "local a = ('x'):rep(200000) local t = {} for i = 1, 40000 do t[i] = a end for i = 1, 60 do "
     "t[i] "
     "= a .. i end while true do table.sort(t) end",
     TooLong},
    {"gsub_callback", "('x'):gsub('x', function() while true do end end)", TooLong},
    {"pattern_blow_up", "return (('a'):rep(3000)):find(('a-'):rep(20) .. 'b')", TooLong},
    {"pattern_optional_blow_up", "return (('a'):rep(60)):match(('a?'):rep(60) .. ('a'):rep(60))",
     TooLong},
    {"pattern_plus_blow_up",
     "return (('a'):rep(5000)):match('(a+)+b') or (('a'):rep(5000)):match('a*a*a*a*b')", TooLong},
    {"plain_find_product",
     "local s = ('a'):rep(200000) while true do s:find(('a'):rep(99999) .. 'b', 1, true) end",
     TooLong},
    {"tostring_metamethod",
     "tostring(setmetatable({}, {__tostring = function() while true do end end}))", TooLong},
    {"close_variable",
     "local x <close> = setmetatable({}, {__close = function() while true do end end})", TooLong},
    {"concat_metamethod",
     "local t = setmetatable({}, {__concat = function() while true do end end}) return t .. ''",
     TooLong},
    {"compare_long_texts",
     "local a, b = ('x'):rep(250000) .. 'a', ('x'):rep(250000) .. 'a' while true do local c = a == "
     "b and a <= b end",
     TooLong},
    {"number_of_blanks",
     "local s = (' '):rep(250000) while true do tonumber(s) pcall(function() return s + 1 end) end",
     TooLong},
    {"next_of_emptied_table",
     "local t = {} for i = 1, 4000 do t['k' .. i] = 1 end for i = 1, 4000 do t['k' .. i] = nil "
     "end "
     "while true do next(t) end",
     TooLong},
    {"pairs_of_large_table",
     "local t = {} for i = 1, 4000 do t[i * 2.5] = i end while true do pairs(t) end", TooLong},
    {"colliding_keys",
     "while true do local t = {} for i = 1, 4000 do t[i * 4095 * 2047] = 1 end end", TooLong},
    {"colliding_lookups",
     "local t = {} for i = 1, 4000 do t[i * 4095 * 2047] = 1 end "
     "while true do local x = t[4000 * 4095 * 2047] end",
     TooLong},
    {"collected_arguments",
     "local function f(...) while true do local n = select('#', ...) end end local t = {} for i = "
     "1, 40000 do t[i] = i end f(table.unpack(t))",
     TooLong},
    {"long_number", "local s = (' '):rep(250000) .. 1 while true do disc(s, s, s) end", TooLong},
    {"long_sum", "local s = ('1'):rep(250000) while true do local x = s + s end", TooLong},
    {"long_loop_limit", "local s = (' '):rep(250000) .. 0 while true do for i = 1, s do end end",
     TooLong},
    {"emptied_list",
     "local t = {} for i = 1, 50000 do t[i] = i end for i = 1, 50000 do t[i] = nil end "
     "while true do pairs(t) end",
     TooLong},
    {"many_digits", "while true do string.format('%99.99f', 1.7e308) end", TooLong},
    {"caught_errors", "while true do pcall(arc) end", TooLong},
    {"far_corners", "rotate(33, 1, 1) while true do fill_rect(1, 2, 1e9, 1e9, 5e8) end", TooLong},
    {"far_bands",
     "rotate(33, 1, 1) while true do gradient(1, 2, 1e9, 1e9, '#80102030', '#405060', 45, 5e8) end",
     TooLong},
    {"api_flood", "while true do disc(1, 2, 3) end", TooLong},
    {"text_flood", "local s = ('W'):rep(4000) while true do text_fit(34, s, 5) end", TooLong},
    {"utf8_flood",
     "local s = ('\\u{20AC}'):rep(60000) while true do utf8.len(s) utf8.codepoint(s, 1, 3000) end",
     TooLong},
    {"unpack_flood",
     "local t = {} for i = 1, 40000 do t[i] = i end while true do table.unpack(t) end", TooLong},
    {"insert_at_front",
     "local t = {} for i = 1, 40000 do t[i] = i end while true do table.insert(t, 1, 0) "
     "table.remove(t, 1) end",
     TooLong},
    {"missing_files", "while true do load_image('/no/such/file.png') end", TooLong},

    // Memory
    {"rep_huge", "return ('x'):rep(1 << 40)", "longer than"},
    {"rep_of_nothing", "return #(''):rep(1 << 62) .. missing", "missing"},
    {"doubling", "local s = 'x' while true do s = s .. s end", NoMemory},
    {"table_growth", "local t = {} for i = 1, 1e9 do t[i] = i end", NoMemory},
    {"table_growth_in_pcall",
     "while true do pcall(function() local t = {} for i = 1, 1e9 do t[i] = i end end) end",
     TooLong},
    {"many_keys", "local t = {} for i = 1, 1e9 do t[i * 4095 * 2047] = 1 end", NoMemory},
    {"closures", "local t = {} while true do t[#t + 1] = function() return t end end",
     "Kiv_Test_T 1: "},
    {"concat_huge",
     "local t = {} for i = 1, 500 do t[i] = ('x'):rep(1000) end return table.concat(t)", NoMemory},
    {"concat_no_end", "return table.concat(setmetatable({}, {__index = rawlen}), '', 1, 1 << 60)",
     "too many"},
    {"concat_lying_length",
     "return table.concat(setmetatable({}, {__index = rawlen, __len = function() return 1 << 60 "
     "end}))",
     "too many"},
    {"insert_lying_length",
     "table.insert(setmetatable({}, {__len = function() return 1 << 60 end}), 1, 1)", "__len"},
    {"move_no_end", "table.move({}, 1, 1 << 60, 2)", "too many"},
    {"unpack_wrapping", "return table.unpack({}, -(1 << 62), 1 << 62)", "too many"},
    {"gsub_growth", "return (('x'):rep(10000)):gsub('x', ('y'):rep(10000))", "longer than"},
    {"format_digits", "return string.format('%.-99999999f', 1)", "invalid"},
    {"format_width", "return string.format('%99999d', 1)", "invalid"},
    {"format_huge", "return string.format(('%s'):rep(3000), 1)", "longer than"},
    {"many_globals", "for i = 1, 1e9 do _ENV['v' .. i] = i end", "Kiv_Test_T 1: "},
    {"points_flood", "local p = {} for i = 1, 20000 do p[i] = i end polyline(p)",
     "too many points"},
    {"text_too_long", "text(0, 0, 20, ('x'):rep(100000))", "longer than"},
    {"save_flood", "while true do save() end", "nested"},

    // Recursion
    {"recursion_in_pcall", "local function f() pcall(f) error('x') end f()", "Kiv_Test_T 1: "},
    {"tostring_recursion",
     "local t t = setmetatable({}, {__tostring = function() return tostring(t) end}) tostring(t)",
     "overflow"},
    {"pattern_recursion", "return (('('):rep(40)):find(('('):rep(40) .. (')'):rep(40))", "pattern"},
    {"parser_recursion_guard", "return ((((((((((((((((((((((((((((((((((((((((", "expected"},

    // What must not be there.
    {"finalizer", "setmetatable({}, {__gc = function() while true do end end})", "__gc"},
    {"finalizer_later",
     "local m = {} local t = setmetatable({}, m) m.__gc = function() while true do end end "
     "setmetatable(t, m)",
     "protected"},
    {"weak_table", "setmetatable({}, {__mode = 'k'})", "__mode"},
    {"weak_table_later",
     "local m = {} local t = setmetatable({}, m) m.__mode = 'k' getmetatable(t).__mode = 'k' "
     "t[{}] = 1 while #t == 0 do local u = {} if not next(t) then error('collected') end end",
     TooLong},
    {"finalizer_false", "setmetatable({}, {__gc = false})", "__gc"},
    {"bytecode", "\x1bLua\x54\x00\x19\x93", "binary chunk"},
    {"address", "return string.format('%p', {})", "%p"},
    {"zero_byte", "return 'a\\0b'", "zero bytes"},
    {"zero_code", "return '\\u{000}'", "zero bytes"},
    {"zero_character", "return string.char(65, 0)", "zero bytes"},
    {"zero_in_format", "return string.format('%c', 0)", "zero bytes"},
    {"own_draw_item", "draw_item(item)", "draw_item"},

    // Odd error values
    {"error_table", "error({})", "without a message"},
    {"error_empty", "error('', 0)", "without a message"},
    {"error_number", "error(42)", "42"},
    {"error_tostring", "error(setmetatable({}, {__tostring = function() while true do end end}))",
     "without a message"},
    {"error_lines", "error('a\\nb\\1c')", "a b"},
    {"error_long", "error(('x'):rep(100000))", "..."},
    {"error_flood", "while true do pcall(error, {}) end", TooLong},
};

class HostileScript : public testing::TestWithParam<SHostileScript>
{
protected:
    static const kivemu::SScriptLimits &limits(const kivemu::SScriptLimits &ifTooLong)
    {
        return GetParam().error == TooLong ? ifTooLong : MuchWork;
    }
    void expectNextFrameWorks(kivemu::CLuaHost &host)
    {
        CTestModel good;
        good.add(Neighbour);
        const SHostRun next(host, good);
        EXPECT_EQ(next.errors, "");
        EXPECT_TRUE(next.has(NeighbourList)) << next.list;
    }
};

size_t lineCount(const std::string &text)
{
    return text.empty() ? 0 : 1 + static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

TEST_P(HostileScript, asRenderCommandsHarmsNoOtherItem)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), limits(LittleItemWork));
    ASSERT_TRUE(host.loadText(PlainScript, "kiv_render.lua")) << host.loadError();
    CTestModel model;
    model.add(GetParam().code);
    model.add(Neighbour);
    const SHostRun run(host, model);
    EXPECT_NE(run.errors.find(GetParam().error), std::string::npos) << run.errors;
    EXPECT_EQ(run.errors.rfind("Kiv_Test_T 1: ", 0), 0U) << run.errors;
    EXPECT_EQ(run.errors.find("by the clock"), std::string::npos) << run.errors;
    EXPECT_LE(lineCount(run.errors), 2U) << run.errors; // the second one for a missing file
    EXPECT_EQ(run.words.back(), 0U) << "no end";
    EXPECT_TRUE(run.has(NeighbourList)) << run.list;
    EXPECT_TRUE(run.has("STROKE_RECT(160, 320, 320, 160, 0);")) << "no hatched box";
    EXPECT_LT(run.ramDlNeeded, 400U) << "what was stopped has left something";
    expectNextFrameWorks(host);
}

TEST_P(HostileScript, inRenderEndsTheFrameWithAnError)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), limits(LittleWork));
    const std::string code = GetParam().code;
    const std::string script = std::string("local attack = true\nlocal function run(item)\n") +
                               code +
                               "\nend\nfunction render(screen, items)\n"
                               "  clear(screen.color)\n"
                               "  if screen.attack == 1 then run(items[1]) end\n"
                               "  for _, item in ipairs(items) do draw_item(item) end\nend\n";
    // These cannot even be compiled, which is an error of the script as a whole.
    const std::set<std::string> broken{"parser_recursion_guard", "bytecode", "zero_byte",
                                       "zero_code"};
    const bool compiles = broken.count(GetParam().name) == 0;
    ASSERT_EQ(host.loadText(script, "kiv_render.lua"), compiles) << host.loadError();
    if (!compiles)
        return;
    CTestModel model;
    model.screen().set("attack", 1);
    model.add(Neighbour);
    const SHostRun run(host, model);
    const bool mayEndWell = code == "draw_item(item)";
    EXPECT_TRUE(mayEndWell || !run.errors.empty());
    EXPECT_TRUE(run.has("CLEAR(0x102030);")) << run.list;
    EXPECT_EQ(run.words.back(), 0U) << "no end";
    expectNextFrameWorks(host);
}

TEST_P(HostileScript, whenTheScriptIsLoadedEndsWithAnError)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), limits(LittleWork));
    const std::string script =
        std::string("local item = 1\n") + "do\n" + GetParam().code + "\nend\n" + PlainScript;
    host.loadText(script, "kiv_render.lua");
    CTestModel model;
    model.add(Neighbour);
    const SHostRun run(host, model);
    EXPECT_EQ(run.errors.empty(), host.loadError().empty());
    EXPECT_EQ(run.words.back(), 0U) << "no end";
    ASSERT_TRUE(host.loadText(PlainScript, "kiv_render.lua")) << host.loadError();
    expectNextFrameWorks(host);
}

INSTANTIATE_TEST_SUITE_P(All, HostileScript, testing::ValuesIn(Scripts),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(HostileScripts, frameThatIsNotWantedAnyMoreEnds)
{
    const std::atomic<bool> cancelled{true};
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), MuchWork);
    host.followCancel(cancelled);
    host.loadText(PlainScript, "kiv_render.lua");
    CTestModel model;
    model.add("while true do end");
    EXPECT_NE(SHostRun(host, model).errors.find("not wanted"), std::string::npos);
}

/// Items that hang, all in the same commands or each in its own.
class HangingItems : public testing::TestWithParam<std::pair<int, bool>>
{
};

TEST_P(HangingItems, leaveTheOthersDrawn)
{
    const auto [count, areAlike] = GetParam();
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), {16'000'000, 4'000'000, Memory, 60s, 30s});
    ASSERT_TRUE(host.loadText(PlainScript, "kiv_render.lua"));
    CTestModel model;
    model.add("local n = 0 while true do if n > 0 then scissor(n, n, 9, 9) end n = n + 1 "
              "color(n % 1000) line_width(n % 9) line(0, 0, 9, 9) end");
    for (int i = 1; i < count; ++i)
        model.add("while true do end --" + (areAlike ? "" : std::to_string(i)));
    model.add("color('#00ff00') line_width(1) line(1, 2, 3, 4) " +
              std::string("for i = 1, 1000 do local n = i end ") + Neighbour);
    const SHostRun run(host, model);
    EXPECT_TRUE(run.has(NeighbourList));
    EXPECT_EQ(run.list.find("SCISSOR"), std::string::npos) << "left by the first item";
    EXPECT_TRUE(run.has("LINE(16, 32, 48, 64);"));
    EXPECT_EQ(lineCount(run.errors), static_cast<size_t>(count)) << run.errors;
    EXPECT_EQ(run.errors.find("not drawn"), std::string::npos) << run.errors;
}

INSTANTIATE_TEST_SUITE_P(All, HangingItems,
                         testing::Values(std::pair(1, true), std::pair(10, false),
                                         std::pair(90, true)));

TEST(HostileScripts, whatTheClockStopsShowsNotWhere)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), {2 * Much, Much, Memory, 60s, 5ms});
    ASSERT_TRUE(host.loadText(PlainScript, "kiv_render.lua"));
    CTestModel model;
    model.add("local i = 0 while true do i = i + 1 disc(i, 2, 3) end");
    model.add(Neighbour);
    const SHostRun run(host, model);
    EXPECT_EQ(run.errors.rfind("Kiv_Test_T 1: stopped by the clock", 0), 0U) << run.errors;
    EXPECT_EQ(run.list.find("DISC"), std::string::npos);
    EXPECT_TRUE(run.has(NeighbourList));
}
