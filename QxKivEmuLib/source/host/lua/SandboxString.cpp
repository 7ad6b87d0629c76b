#include "CLuaAllocator.h"
#include "SLuaContext.h"
#include "SandboxLibraries.h"

#include <algorithm>
#include <cctype>
#include <lua.hpp>

namespace kivemu {

namespace {

constexpr size_t MaxFormat = 4096;

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
    contextOf(state).watchdog.charge(
        state, each * static_cast<size_t>(std::max<lua_Integer>(count, 0)) / 8);
    // Nothing, any number of times: without this it would be counted out.
    if (each == 0)
        lua_settop(state, 1);
    return each == 0 ? 1 : callOriginal(state);
}

/// Refuses "%p", which gives addresses.
void checkFormatText(lua_State *state, const char *format)
{
    for (const char *at = format; *at != '\0'; ++at) {
        if (*at != '%')
            continue;
        ++at;
        while (*at != '\0' && !std::isalpha(static_cast<unsigned char>(*at)) && *at != '%')
            ++at;
        if (*at == 'p')
            luaL_error(state, "'%%p' is not available");
        if (*at == '\0')
            return;
    }
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
    checkFormatText(state, format);
    replaceAddresses(state);
    size_t work = length;
    for (int i = lua_gettop(state); i > 1; --i) {
        if (lua_type(state, i) == LUA_TSTRING)
            work += lua_rawlen(state, i);
    }
    contextOf(state).watchdog.charge(state, work);
    return callOriginal(state);
}

/// Takes a function of the stock library (below the top) into the table at the top, wrapped.
void wrap(lua_State *state, const char *name, lua_CFunction wrapper)
{
    lua_getfield(state, -2, name);
    lua_pushcclosure(state, wrapper, 1);
    lua_setfield(state, -2, name);
}

} // namespace

void openSandboxString(lua_State *state)
{
    static const char *const Charged[] = {"byte",    "char", "len",    "lower", "pack", "packsize",
                                          "reverse", "sub",  "unpack", "upper", nullptr};
    luaopen_string(state);
    lua_pushvalue(state, -1);
    takeCharged(state, Charged);
    addSandboxPatterns(state);
    wrap(state, "rep", boundedRep);
    wrap(state, "format", boundedFormat);

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
