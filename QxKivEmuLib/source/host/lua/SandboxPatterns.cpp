#include "CLuaAllocator.h"
#include "CPattern.h"
#include "SLuaContext.h"
#include "SandboxLibraries.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace kivemu {

namespace {

constexpr size_t WorkPerPiece = 24; ///< that is added to a result

std::string_view checkText(lua_State *state, int argument)
{
    size_t length = 0;
    const char *text = luaL_checklstring(state, argument, &length);
    return {text, length};
}

/// The start position of an argument, from 0: Lua counts from 1, and from the end when negative.
/// Past the end it is one more than the length.
size_t checkStart(lua_State *state, int argument, size_t length)
{
    const lua_Integer position = luaL_optinteger(state, argument, 1);
    if (position > 0)
        return std::min(static_cast<size_t>(position) - 1, length + 1);
    if (position == 0 || static_cast<lua_Unsigned>(-position) >= length)
        return 0;
    return length - static_cast<size_t>(-position);
}

int findPlain(lua_State *state, std::string_view subject, std::string_view what, size_t start)
{
    contextOf(state).watchdog.charge(state, subject.size() + what.size());
    // Shorter steps than the whole text: a search in it takes the product of both lengths at worst.
    for (size_t at = start; at + what.size() <= subject.size();) {
        const void *found = what.empty() ? subject.data() + at
                                         : std::memchr(subject.data() + at, what[0],
                                                       subject.size() - what.size() - at + 1);
        if (!found)
            break;
        at = static_cast<size_t>(static_cast<const char *>(found) - subject.data());
        contextOf(state).watchdog.charge(state, what.size() / 8 + 4);
        if (subject.compare(at, what.size(), what) == 0) {
            lua_pushinteger(state, static_cast<lua_Integer>(at) + 1);
            lua_pushinteger(state,
                            static_cast<lua_Integer>(at) + static_cast<lua_Integer>(what.size()));
            return 2;
        }
        ++at;
    }
    lua_pushnil(state);
    return 1;
}

/// The first match from `from` on; null when there is none.
const char *search(CPattern &pattern, const char *&from, const char *end)
{
    for (;; ++from) {
        const char *to = pattern.match(from);
        if (to || pattern.isAnchored() || from == end)
            return to;
    }
}

int findOrMatch(lua_State *state, bool isFind)
{
    const std::string_view subject = checkText(state, 1);
    const std::string_view text = checkText(state, 2);
    const size_t start = checkStart(state, 3, subject.size());
    if (start > subject.size()) {
        lua_pushnil(state);
        return 1;
    }
    constexpr std::string_view Specials = "^$*+?.([%-";
    const bool isPlain = isFind && (lua_toboolean(state, 4) ||
                                    text.find_first_of(Specials) == std::string_view::npos);
    if (isPlain)
        return findPlain(state, subject, text, start);
    CPattern pattern(state, text, true);
    pattern.setSubject(subject);
    const char *from = subject.data() + start;
    const char *to = search(pattern, from, subject.data() + subject.size());
    if (!to) {
        lua_pushnil(state);
        return 1;
    }
    if (!isFind)
        return pattern.pushCaptures(from, to);
    lua_pushinteger(state, from - subject.data() + 1);
    lua_pushinteger(state, to - subject.data());
    return 2 + pattern.pushCaptures(nullptr, nullptr);
}

int find(lua_State *state)
{
    return findOrMatch(state, true);
}

int match(lua_State *state)
{
    return findOrMatch(state, false);
}

/// Upvalues: subject, pattern, where to go on, where the last match ended (-1: none).
int nextMatch(lua_State *state)
{
    const std::string_view subject = checkText(state, lua_upvalueindex(1));
    CPattern pattern(state, checkText(state, lua_upvalueindex(2)), false);
    pattern.setSubject(subject);
    const char *end = subject.data() + subject.size();
    const char *from = subject.data() + lua_tointeger(state, lua_upvalueindex(3));
    const lua_Integer lastEnd = lua_tointeger(state, lua_upvalueindex(4));
    while (from <= end) {
        const char *to = search(pattern, from, end);
        if (!to)
            return 0;
        // An empty match right behind the last one is none.
        if (to - subject.data() == lastEnd) {
            ++from;
            continue;
        }
        lua_pushinteger(state, to - subject.data());
        lua_copy(state, -1, lua_upvalueindex(3));
        lua_replace(state, lua_upvalueindex(4));
        return pattern.pushCaptures(from, to);
    }
    return 0;
}

int gmatch(lua_State *state)
{
    const size_t length = checkText(state, 1).size();
    checkText(state, 2);
    const size_t start = checkStart(state, 3, length);
    lua_settop(state, 2);
    lua_pushinteger(state, static_cast<lua_Integer>(start));
    lua_pushinteger(state, -1);
    lua_pushcclosure(state, nextMatch, 4);
    return 1;
}

void addText(lua_State *state, luaL_Buffer &result, std::string_view text)
{
    if (luaL_bufflen(&result) + text.size() > CLuaAllocator::MaxString)
        luaL_error(state, "the text would be longer than %d characters",
                   int{CLuaAllocator::MaxString});
    contextOf(state).watchdog.charge(state, WorkPerPiece + text.size());
    luaL_addlstring(&result, text.data(), text.size());
}

/// Adds the value at the top of the stack and pops it.
void addTop(lua_State *state, luaL_Buffer &result)
{
    size_t length = 0;
    luaL_tolstring(state, -1, &length);
    lua_remove(state, -2);
    if (luaL_bufflen(&result) + length > CLuaAllocator::MaxString)
        luaL_error(state, "the text would be longer than %d characters",
                   int{CLuaAllocator::MaxString});
    contextOf(state).watchdog.charge(state, WorkPerPiece + length);
    luaL_addvalue(&result);
}

/// A replacement text, in which %1 to %9 are captures, %0 the match and %% a percent sign.
void addTemplate(lua_State *state, luaL_Buffer &result, const CPattern &pattern, const char *from,
                 const char *to)
{
    std::string_view text = checkText(state, 3);
    for (;;) {
        const size_t escape = text.find('%');
        addText(state, result, text.substr(0, escape));
        if (escape == std::string_view::npos)
            return;
        const char c = escape + 1 < text.size() ? text[escape + 1] : '\0';
        if (c == '%') {
            addText(state, result, "%");
        } else if (c >= '0' && c <= '9') {
            pattern.pushCapture(c - '0', from, to);
            addTop(state, result);
        } else {
            luaL_error(state, "invalid use of '%%' in the replacement text");
        }
        text.remove_prefix(escape + 2);
    }
}

void addReplacement(lua_State *state, luaL_Buffer &result, const CPattern &pattern,
                    const char *from, const char *to)
{
    const int type = lua_type(state, 3);
    if (type == LUA_TSTRING || type == LUA_TNUMBER) {
        addTemplate(state, result, pattern, from, to);
        return;
    }
    if (type == LUA_TTABLE) {
        pattern.pushCapture(1, from, to);
        lua_gettable(state, 3);
    } else {
        lua_pushvalue(state, 3);
        lua_call(state, pattern.pushCaptures(from, to), 1);
    }
    if (!lua_toboolean(state, -1)) {
        lua_pop(state, 1);
        addText(state, result, {from, static_cast<size_t>(to - from)});
        return;
    }
    if (!lua_isstring(state, -1))
        luaL_error(state, "the replacement is a %s", luaL_typename(state, -1));
    addTop(state, result);
}

int gsub(lua_State *state)
{
    const std::string_view subject = checkText(state, 1);
    CPattern pattern(state, checkText(state, 2), true);
    const int type = lua_type(state, 3);
    luaL_argexpected(state,
                     type == LUA_TNUMBER || type == LUA_TSTRING || type == LUA_TFUNCTION ||
                         type == LUA_TTABLE,
                     3, "string/function/table");
    const auto most = static_cast<lua_Integer>(subject.size()) + 1;
    const lua_Integer limit = luaL_optinteger(state, 4, most);
    pattern.setSubject(subject);
    const char *from = subject.data();
    const char *end = from + subject.size();
    const char *lastEnd = nullptr;
    lua_Integer count = 0;
    luaL_Buffer result;
    luaL_buffinit(state, &result);
    while (count < limit) {
        const char *to = pattern.match(from);
        if (to && to != lastEnd) {
            ++count;
            addReplacement(state, result, pattern, from, to);
            from = lastEnd = to;
        } else if (from < end) {
            addText(state, result, {from, 1});
            ++from;
        } else {
            break;
        }
        if (pattern.isAnchored())
            break;
    }
    addText(state, result, {from, static_cast<size_t>(end - from)});
    luaL_pushresult(&result);
    lua_pushinteger(state, count);
    return 2;
}

} // namespace

void addSandboxPatterns(lua_State *state)
{
    static const luaL_Reg Functions[] = {
        {"find", find}, {"match", match}, {"gmatch", gmatch}, {"gsub", gsub}, {nullptr, nullptr}};
    luaL_setfuncs(state, Functions, 0);
}

} // namespace kivemu
