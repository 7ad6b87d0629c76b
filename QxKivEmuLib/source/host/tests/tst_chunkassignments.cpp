#include "host/lua/ChunkAssignments.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

std::string assigned(const std::string &chunk)
{
    kivemu::SChunkAssignments found = kivemu::findAssignments(chunk);
    std::sort(found.names.begin(), found.names.end());
    std::string text = found.isUnbounded ? "_ENV " : "";
    for (const std::string &name : found.names)
        text += name != "_ENV" ? name + ' ' : "";
    return text;
}

} // namespace

// A name that is missing would let an item's own value reach the next frame. That fields, locals
// and loops are left out keeps the quick way for most chunks.
TEST(ChunkAssignments, noGlobalAssignmentIsMissed)
{
    const std::pair<const char *, const char *> cases[] = {
        {"", ""},
        {"disc(x, y, 3) if a == b or a <= b or a ~= b then line(1, 2, 3, 4) end", ""},
        {"a = 1", "a "},
        {"a,b = 1, 2", "a b "},
        {"a --[[ = ]] , --x = 1\n b --[==[ ]] ]==] = 1, 2", "a b "},
        {"a, t.f, b = 1, 2, 3", "a b t "},
        {"a, t[true], t[f(function() end)] = 1, 2, 3", "a t "},
        {"a, f{x = 1}.y = 1, 2", "a f "},
        {"a, f'text'.y, f[[x = 2]].z = 1, 2, 3", "a f "},
        {"a, t[{b = 1}].x = 1, 2", "a t "},
        {"a, (f or g).x = 1, 2", "a "},
        {"local a = 1", ""},
        {"local a, b = x, y", ""},
        {"local a <const>, b <close> = x, y", ""},
        {"local a <const>= 1", ""},
        {"local a b = 1", "b "},
        {"for i = 1, 10 do a = i end", "a "},
        {"for k, v in pairs(t) do k = 1 end", "k "},
        {"bitmap(b, 1, 2, {width = 3, height = x})", ""},
        {"local t = {f = function() a = 1 end, 2, [b] = 3; c = 4}", "a c "},
        {"g(function() a = 1 end)", "a "},
        {"if x then a = 1 elseif y then b = 2 else c = 3 end", "a b c "},
        {"while x do a = 1 end repeat b = 2 until c", "a b "},
        {"do a = 1 end; b = 2 ::label:: c = 3", "a b c "},
        {"function f() end local function g() end function t.h() end function t:m() end", "f t "},
        {"local s = 'a = 1' local q = \"\\\" b = 2\" c = 3", "c "},
        {"local s = '\\\\' a = 1 --'", "a "},
        {"local s = [[ ' ]] a = 1 -- ]]", "a "},
        {"--[[ ' ]] a = 1", "a "},
        {"-- [[ ' \n a = 1 --]]", "a "},
        {"local n = 0x1p-4 + 1e+5 .. 1 a = 3", "a "},
        {"x = a < b and c > d y = 2", "x y "},
        {"f(x) a = 1 g'x' b = 2 t.x.y = {} c = 3", "a b c t "},
        {"local _ENV = {}", "_ENV "},
        {"_ENV.a = 1", "_ENV "},
        {"f(_ENV)", "_ENV "},
        {"goto a ::b:: c = 1", "c "},
    };
    for (const auto &[chunk, names] : cases)
        EXPECT_EQ(assigned(chunk), names) << chunk;
}
