#include "CLuaAllocator.h"
#include "SLuaContext.h"
#include "SandboxLibraries.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <lua.hpp>

namespace kivemu {

namespace {

constexpr size_t MaxFormat = 4096;
constexpr size_t WorkPerPiece = 6;
constexpr size_t WorkPerDirective = 200;

int boundedRep(lua_State *state)
{
    size_t length = 0;
    size_t separator = 0;
    luaL_checklstring(state, 1, &length);
    const lua_Integer count = luaL_checkinteger(state, 2);
    luaL_optlstring(state, 3, "", &separator);
    const size_t each = length + separator;
    if (each > 0 && count > static_cast<lua_Integer>(CLuaAllocator::MaxString / each))
        luaL_error(state, "the text would be longer than %d characters",
                   int{CLuaAllocator::MaxString});
    // Nothing, any number of times, would be counted out.
    if (each == 0) {
        lua_settop(state, 1);
        return 1;
    }
    const auto pieces = static_cast<size_t>(std::max<lua_Integer>(count, 0));
    contextOf(state).watchdog.charge(state, (each / 8 + WorkPerPiece) * pieces);
    return callOriginal(state);
}

/// The number that a directive has behind its point: 0 where there is none. Lua takes two digits
/// and no sign; work below zero would be time for nothing.
int digitsAt(const char *at)
{
    constexpr int MostDigits = 99;
    int digits = 0;
    while (*at >= '0' && *at <= '9' && digits < MostDigits)
        digits = digits * 10 + (*at++ - '0');
    return std::min(digits, MostDigits);
}

/// The work that the directives of a format are. Refuses "%p", which gives addresses.
size_t checkDirectives(lua_State *state, const char *format)
{
    size_t work = 0;
    int argument = 1;
    for (const char *at = format; *at != '\0'; ++at) {
        if (*at != '%')
            continue;
        int digits = 6;
        for (++at; *at != '\0' && !std::isalpha(static_cast<unsigned char>(*at)) && *at != '%';) {
            if (*at++ == '.')
                digits = digitsAt(at);
        }
        if (*at == 'p')
            luaL_error(state, "'%%p' is not available");
        if (*at == '\0')
            break;
        if (*at == '%')
            continue;
        ++argument;
        work += std::strchr("aAeEfFgGq", *at)
                    ? workOfNumberText(lua_tonumber(state, argument), digits)
                    : WorkPerDirective;
    }
    return work;
}

/// As with tostring, what has no text of its own is named by its type, not by its address.
void replaceAddresses(lua_State *state)
{
    for (int i = lua_gettop(state); i > 1; --i) {
        const int type = lua_type(state, i);
        if (type != LUA_TTABLE && type != LUA_TFUNCTION && type != LUA_TUSERDATA)
            continue;
        if (luaL_getmetafield(state, i, "__tostring") != LUA_TNIL) {
            lua_pop(state, 1);
            continue;
        }
        lua_pushstring(state, lua_typename(state, type));
        lua_replace(state, i);
    }
}

int boundedFormat(lua_State *state)
{
    size_t length = 0;
    const char *format = luaL_checklstring(state, 1, &length);
    if (length > MaxFormat)
        luaL_error(state, "the format is longer than %d characters", int{MaxFormat});
    size_t work = length + checkDirectives(state, format);
    replaceAddresses(state);
    for (int i = lua_gettop(state); i > 1; --i) {
        if (lua_type(state, i) == LUA_TSTRING)
            work += lua_rawlen(state, i);
    }
    contextOf(state).watchdog.charge(state, work);
    return callTextMaker(state);
}

} // namespace

void openSandboxString(lua_State *state)
{
    static const char *const Charged[] = {"byte", "len",    "lower", "packsize", "reverse",
                                          "sub",  "unpack", "upper", nullptr};
    luaopen_string(state);
    lua_pushvalue(state, -1);
    takeCharged(state, Charged);
    addSandboxPatterns(state);
    takeWrapped(state, "rep", boundedRep);
    takeWrapped(state, "format", boundedFormat);
    takeWrapped(state, "char", chargedTextMaker);
    takeWrapped(state, "pack", chargedTextMaker);

    // Methods of texts (s:upper()) come from the string metatable.
    lua_pushliteral(state, "");
    lua_getmetatable(state, -1);
    lua_pushvalue(state, -3);
    lua_setfield(state, -2, "__index");
    lua_pushboolean(state, false);
    lua_setfield(state, -2, "__metatable");
    lua_pop(state, 2);

    setReadOnlyGlobal(state, "string");
    lua_pop(state, 1);
}

} // namespace kivemu
