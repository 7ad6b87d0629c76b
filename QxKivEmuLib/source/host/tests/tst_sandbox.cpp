#include "SHostRun.h"
#include "host/lua/CLuaSandbox.h"

#include <gtest/gtest.h>
#include <random>

namespace {

#ifdef __SANITIZE_THREAD__
constexpr int Rounds = 500; // each error that leaves by longjmp makes ThreadSanitizer slower
#else
constexpr int Rounds = 20000;
#endif

/// Runs code and gives what it returns, each value as text, or the error.
std::string evaluate(lua_State *state, const std::string &code, bool *isError = nullptr)
{
    lua_settop(state, 0);
    const bool failed = luaL_loadbufferx(state, code.data(), code.size(), "=code", "t") != LUA_OK ||
                        lua_pcall(state, 0, LUA_MULTRET, 0) != LUA_OK;
    if (isError)
        *isError = failed;
    std::string text;
    for (int i = 1; i <= lua_gettop(state); ++i) {
        text += luaL_tolstring(state, i, nullptr);
        text += '|';
        lua_pop(state, 1);
    }
    return text;
}

std::string luaText(const std::string &text)
{
    std::string code = "\"";
    for (const char c : text)
        code += (c == '"' || c == '\\') ? std::string("\\") + c : std::string(1, c);
    return code + '"';
}

class Sandbox : public testing::Test
{
protected:
    Sandbox() : m_sandbox(size_t{32} << 20) {}
    std::string run(const std::string &code) { return evaluate(m_sandbox.state(), code); }

    kivemu::CLuaSandbox m_sandbox;
};

} // namespace

TEST_F(Sandbox, hasWhatIsPromisedAndNothingElse)
{
    EXPECT_EQ(
        run("local n = {} for _, k in ipairs{'assert','error','ipairs','next','pairs','pcall',"
            "'xpcall','select','tonumber','tostring','type','rawequal','rawget','rawlen',"
            "'rawset','getmetatable','setmetatable'} do n[#n + 1] = type(_ENV[k]) end "
            "return table.concat(n, ' ')"),
        "function function function function function function function function function "
        "function function function function function function function function|");
    EXPECT_EQ(run("return _G, _VERSION, io, os, package, debug, load, loadfile, dofile, require, "
                  "coroutine, collectgarbage, print, warn, string.dump, math.random, "
                  "math.randomseed, math.floor(2.5), utf8.charpattern ~= nil, string.pack ~= nil"),
              "nil|nil|nil|nil|nil|nil|nil|nil|nil|nil|nil|nil|nil|nil|nil|nil|nil|2|true|true|");
}

TEST_F(Sandbox, librariesCannotBeChanged)
{
    const char *const attacks[] = {
        "string.format = nil",
        "rawset(string, 'format', error)",
        "table.insert(string, 1)",
        "table.insert(math, error)",
        "setmetatable(string, {})",
        "setmetatable(math, nil)",
        "getmetatable('').__index = nil",
        "getmetatable('').__add = error",
        "getmetatable(string).__index.rep = nil",
        "local t = table t.sort = nil",
        "utf8.char = nil",
        "for k in pairs(string) do string[k] = nil end string.x = 1",
    };
    for (const char *attack : attacks) {
        bool failed = false;
        evaluate(m_sandbox.state(), attack, &failed);
        EXPECT_TRUE(failed) << attack;
    }
    EXPECT_EQ(run("return string.format('%d', 1), ('x'):rep(3), table.concat{1, 2}, utf8.char(65)"),
              "1|xxx|12|A|");
}

TEST_F(Sandbox, textsOfTablesAndFunctionsAreNoAddresses)
{
    EXPECT_EQ(
        run("return tostring({}), tostring(print or error), string.format('%s %s', {}, pairs), "
            "tostring(setmetatable({}, {__tostring = function() return 'own' end})), "
            "string.format('%s', setmetatable({}, {__tostring = function() return 'own' end}))"),
        "table|function|table function|own|own|");
}

TEST_F(Sandbox, pairsAndNextGoInAFixedOrder)
{
    const std::string expected = "-1|1|2|2.5|30|Z|a|ab|b|true|";
    const std::string table =
        "local t = {b = 1, ab = 1, a = 1, Z = 1, [30] = 1, [true] = 1, [2.5] = "
        "1, [-1] = 1, 1, 1} ";
    EXPECT_EQ(run(table + "local k = {} for key, v in pairs(t) do k[#k + 1] = tostring(key) end "
                          "return table.unpack(k)"),
              expected);
    EXPECT_EQ(run(table + "local k = {} local key = next(t) while key ~= nil do k[#k + 1] = "
                          "tostring(key) key = next(t, key) end return table.unpack(k)"),
              expected);
    EXPECT_EQ(
        run("local n = 0 local t = {} for i = 1, 500 do t['k' .. i % 250] = i t[i * 0.5] = 1 end "
            "for k, v in pairs(t) do n = n + 1 t[k] = nil end return n, next(t)"),
        "750|nil|");
    EXPECT_EQ(
        run("local k = {} for key in pairs(setmetatable({}, {__pairs = function() return next, "
            "{x = 1}, nil end})) do k[1] = key end return k[1], next({}), next({[false] = 1})"),
        "x|nil|false|1|");
}

TEST_F(Sandbox, xpcallCallsItsHandlerOnce)
{
    EXPECT_EQ(
        run("local n = 0 local ok, m = xpcall(function(a, b) error(a + b, 0) end, function(e) n "
            "= n + 1 return 'handled ' .. e end, 1, 2) return ok, m, n"),
        "false|handled 3|1|");
    EXPECT_EQ(run("return xpcall(function(...) return select('#', ...), ... end, error, 1, nil)"),
              "true|2|1|nil|");
    EXPECT_EQ(run("return (xpcall(error, error, 'x'))"), "false|");
}

// The matcher is our own: it must find what the stock one finds.
TEST_F(Sandbox, patternsMatchAsInTheStockLibrary)
{
    lua_State *stock = luaL_newstate();
    luaL_openlibs(stock);
    const char *const pieces[] = {
        "a", "b", ".", "%a", "[ab]", "[^a]", "[a-c]",  "[]]", "%d", "(",  ")",      "()", "*", "+",
        "-", "?", "^", "$",  "%b()", "%1",   "%f[%a]", "%.",  "%s", "%W", "[%a_-]", "x",  "%", "["};
    const char *const letters[] = {"a", "b", "c", "x", "1", " ", "(", ")", ".", "]", "_"};
    std::mt19937 random(20260);
    const auto pick = [&](const auto &list) {
        return std::string(list[random() % std::size(list)]);
    };
    int matched = 0;
    for (int round = 0; round < Rounds; ++round) {
        std::string pattern;
        for (auto i = 1 + random() % 6; i > 0; --i)
            pattern += pick(pieces);
        std::string subject;
        for (auto i = random() % 12; i > 0; --i)
            subject += pick(letters);
        const std::string s = luaText(subject);
        const std::string p = luaText(pattern);
        const std::string init = std::to_string(static_cast<int>(random() % 9) - 4);
        const std::string codes[] = {
            "return string.find(" + s + ", " + p + ", " + init + ")",
            "return string.match(" + s + ", " + p + ")",
            "return string.gsub(" + s + ", " + p + ", '<%0>')",
            "return string.gsub(" + s + ", " + p +
                ", function(...) return select('#', ...) .. (...) end, 3)",
            "local r = {} for x, y in string.gmatch(" + s + ", " + p +
                ") do r[#r + 1] = x r[#r + 1] = y or '' end return table.concat(r, ',')",
        };
        for (const std::string &code : codes) {
            bool stockFailed = false;
            bool ownFailed = false;
            const std::string expected = evaluate(stock, code, &stockFailed);
            const std::string actual = evaluate(m_sandbox.state(), code, &ownFailed);
            // A malformed pattern is refused even where the match would not get to see it.
            const bool isMalformed = ownFailed && actual.find("malformed") != std::string::npos;
            ASSERT_TRUE(isMalformed || ownFailed == stockFailed) << code << "\n"
                                                                 << actual << expected;
            if (!ownFailed && !stockFailed) {
                ASSERT_EQ(actual, expected) << code;
                ++matched;
            }
        }
    }
    EXPECT_GT(matched, Rounds);
    lua_close(stock);
}

TEST_F(Sandbox, usefulPatternsHaveNoLimitOfLength)
{
    EXPECT_EQ(
        run("local s = ('12.5, '):rep(5000) local n = 0 for v in s:gmatch('([^,]*),') do n = n + "
            "tonumber(v:match('^%s*(.-)%s*$')) end return n"),
        "62500.0|");
    EXPECT_EQ(run("return #(('word '):rep(20000)):gsub('%s+$', '')"), "99999|");
}

TEST_F(Sandbox, stringFunctionsWorkWithinTheirLimits)
{
    EXPECT_EQ(run("return ('ab'):rep(3, '-'), #('x'):rep(262144), ('x'):rep(0), ('x'):rep(-1), "
                  "(''):rep(9)"),
              "ab-ab-ab|262144||||");
    EXPECT_EQ(
        run("return ('a.b'):find('.', 1, true), ('a+b'):find('+b', 1, true), ('abc'):find('', 10), "
            "('abc'):find('', 4)"),
        "2|2|nil|4|3|");
    EXPECT_EQ(run("return string.format('%5.1f|%-4d|%q|%%', 2.25, 7, 'x')"), "  2.2|7   |\"x\"|%|");
}

// Sandbox leaks between items

namespace {

struct SLeak
{
    const char *first;  ///< render commands of the first item
    const char *second; ///< what the second item checks
};

} // namespace

TEST(SandboxLeaks, oneItemsCommandsCannotReachAnothers)
{
    const SLeak leaks[] = {
        {"shared = 1", "assert(shared == nil)"},
        // Nor its own next run.
        {"assert(own == nil) own = 1", "assert(own == nil)"},
        {"assert(own == nil) function own() end", "assert(own == nil)"},
        {"assert(own == nil) local t = {} t.x, own = 1, 2", "assert(own == nil)"},
        {"assert(own == nil) pcall(function() own = 1 end)", "assert(own == nil)"},
        {"assert(own == nil) own = 1 error('x')", "assert(own == nil)"},
        {"assert(own == nil and width == 20) own, width = 1, 2", "assert(own == nil)"},
        {"disc = nil", "disc(1, 1, 1)"},
        {"draw_item = nil render = nil", "assert(render)"},
        {"_ENV.color = error", "color('#000000')"},
        {"pcall(rawset, _ENV, 'color', error)", "color('#000000')"},
        {"pcall(function() string.rep = nil end)", "assert(('x'):rep(2) == 'xx')"},
        {"helper = nil", "helper()"},
        {"pcall(function() palette.text = 'broken' end)", "assert(palette.text == '#ffffff')"},
        {"pcall(function() palette.deep.list[1] = 'broken' end)",
         "assert(palette.deep.list[1] == 1)"},
        {"pcall(rawset, palette, 'text', 'broken')", "assert(palette.text == '#ffffff')"},
        {"pcall(table.insert, palette.deep.list, 9)", "assert(#palette.deep.list == 2)"},
        {"pcall(function() item.properties.width = 7 end)", "assert(width == 20)"},
        {"pcall(function() item.type = 'x' end)", "assert(item.type == 'Kiv_Test_T')"},
        {"width = 99 x_coordinate = -1", "assert(width == 20 and x_coordinate == 10)"},
        {"for i = 1, 2000 do _ENV['v' .. i] = i end", "assert(v1 == nil and v2000 == nil)"},
        {"pcall(function() getmetatable(_ENV).__index = nil end)", "disc(1, 1, 1)"},
        {"pcall(setmetatable, _ENV, {})", "disc(1, 1, 1)"},
        {"color('#123456') line_width(9) blend(0) rotate(45, 0, 0) scissor(0, 0, 1, 1) save() "
         "save()",
         "disc(1, 1, 1)"},
        {"pcall(restore) pcall(restore)", "disc(1, 1, 1)"},
    };
    const std::string script = std::string(PlainScript) +
                               "function helper() return 1 end\n"
                               "palette = {text = '#ffffff', deep = {list = {1, 2}}}\n"
                               "palette.self = palette\n";
    for (const SLeak &leak : leaks) {
        kivemu::CLuaHost host(kivemu::chipLimits(0x110), PatientLimits);
        ASSERT_TRUE(host.loadText(script, "kiv_render.lua")) << host.loadError();
        CTestModel model;
        model.add(leak.first);
        model.add(std::string(leak.second) + " disc(5, 5, 5)");
        model.add(std::string(leak.second) + " disc(5, 5, 5)");
        // The second frame uses what the first one has left.
        for (int frame = 0; frame < 2; ++frame) {
            const SHostRun run(host, model);
            const bool isBroken = std::string(leak.first).find("error('x')") != std::string::npos;
            EXPECT_EQ(run.errors, isBroken ? "Kiv_Test_T 1: line 1: x" : "") << leak.first;
            const std::string plainDisc = "DISC(80, 80, 80);ITEM(3);";
            EXPECT_TRUE(run.has(plainDisc)) << leak.first << run.list;
            EXPECT_FALSE(run.has("SCISSOR(0, 0, 1, 1);ITEM(2)")) << leak.first;
        }
    }
}

TEST(SandboxLeaks, globalTablesStayReadable)
{
    kivemu::CLuaHost host(kivemu::chipLimits(0x110), PatientLimits);
    ASSERT_TRUE(host.loadText(std::string(PlainScript) +
                                  "list = {3, 5, name = 'n'}\n"
                                  "function sum() return list[1] + list[2] end",
                              "kiv_render.lua"));
    CTestModel model;
    model.add("local n, k = 0, '' for _, v in ipairs(list) do n = n + v end "
              "for key in pairs(list) do k = k .. key end "
              "assert(n == 8 and #list == 2 and sum() == 8 and k == '12name', k) "
              "assert(select('#', table.unpack(list)) == 2 and table.concat(list, '-') == '3-5')");
    EXPECT_EQ(SHostRun(host, model).errors, "");
}
