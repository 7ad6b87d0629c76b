#include "SLuaContext.h"
#include "SandboxLibraries.h"

#include <algorithm>
#include <lua.hpp>

namespace kivemu {

namespace {

constexpr lua_Integer MaxElements = 50'000; ///< that one call may touch
constexpr size_t WorkPerElement = 32;       ///< nanoseconds
constexpr size_t WorkPerAnyElement = 1000;
constexpr size_t WorkPerCompare = 64;

/// Charges for a range of elements before it is touched; `last` may be anything.
void chargeRange(lua_State *state, lua_Integer first, lua_Integer last)
{
    if (last < first)
        return;
    // Unsigned, since the difference may be larger than any signed number.
    const auto count = static_cast<lua_Unsigned>(last) - static_cast<lua_Unsigned>(first);
    if (count >= static_cast<lua_Unsigned>(MaxElements))
        luaL_error(state, "too many elements: at most %I are possible at once", MaxElements);
    contextOf(state).watchdog.charge(state, static_cast<size_t>(count) * WorkPerElement);
}

/// The number of elements of a plain table. One with its own __len could give another number when
/// it is asked again.
lua_Integer plainLength(lua_State *state)
{
    luaL_checktype(state, 1, LUA_TTABLE);
    if (luaL_getmetafield(state, 1, "__len") != LUA_TNIL)
        luaL_error(state, "a table with '__len' is not possible here");
    return static_cast<lua_Integer>(lua_rawlen(state, 1));
}

/// Numbers become texts. What a metatable gives is not known before.
size_t workToConcat(lua_State *state, lua_Integer first, lua_Integer last)
{
    if (last < first)
        return 0;
    if (lua_getmetatable(state, 1)) {
        lua_pop(state, 1);
        return static_cast<size_t>(last - first + 1) * WorkPerAnyElement;
    }
    size_t work = 0;
    for (lua_Integer i = first; i < last; ++i) {
        if (lua_rawgeti(state, 1, i) == LUA_TNUMBER)
            work += workOfNumberText(lua_tonumber(state, -1));
        lua_pop(state, 1);
    }
    return work;
}

int concat(lua_State *state)
{
    luaL_checktype(state, 1, LUA_TTABLE);
    lua_settop(state, 4);
    const lua_Integer first = luaL_optinteger(state, 3, 1);
    const lua_Integer last = lua_isnil(state, 4) ? luaL_len(state, 1) : luaL_checkinteger(state, 4);
    chargeRange(state, first, last);
    contextOf(state).watchdog.charge(state, workToConcat(state, first, last));
    lua_pushinteger(state, last);
    lua_replace(state, 4);
    return callOriginal(state);
}

int unpack(lua_State *state)
{
    lua_settop(state, 3);
    const lua_Integer first = luaL_optinteger(state, 2, 1);
    const lua_Integer last = lua_isnil(state, 3) ? luaL_len(state, 1) : luaL_checkinteger(state, 3);
    chargeRange(state, first, last);
    lua_pushinteger(state, last);
    lua_replace(state, 3);
    return callOriginal(state);
}

int insert(lua_State *state)
{
    const lua_Integer length = plainLength(state);
    if (lua_gettop(state) > 2)
        chargeRange(state, std::max<lua_Integer>(1, luaL_checkinteger(state, 2)), length);
    return callOriginal(state);
}

int remove(lua_State *state)
{
    const lua_Integer length = plainLength(state);
    if (lua_gettop(state) > 1)
        chargeRange(state, std::max<lua_Integer>(1, luaL_checkinteger(state, 2)), length);
    return callOriginal(state);
}

int move(lua_State *state)
{
    chargeRange(state, luaL_checkinteger(state, 2), luaL_checkinteger(state, 3));
    return callOriginal(state);
}

int defaultLess(lua_State *state)
{
    size_t work = WorkPerCompare;
    if (lua_type(state, 1) == LUA_TSTRING && lua_type(state, 2) == LUA_TSTRING)
        work += std::min(lua_rawlen(state, 1), lua_rawlen(state, 2));
    contextOf(state).watchdog.charge(state, work);
    lua_pushboolean(state, lua_compare(state, 1, 2, LUA_OPLT));
    return 1;
}

/// Without a function of its own, the table is sorted by one that looks at the clock.
int sort(lua_State *state)
{
    chargeRange(state, 1, plainLength(state));
    lua_settop(state, 2);
    if (lua_isnil(state, 2)) {
        lua_pushcfunction(state, defaultLess);
        lua_replace(state, 2);
    }
    return callOriginal(state);
}

} // namespace

void openSandboxTable(lua_State *state)
{
    static const char *const Charged[] = {"pack", nullptr};
    static const luaL_Reg Wrapped[] = {{"concat", concat}, {"unpack", unpack}, {"insert", insert},
                                       {"remove", remove}, {"move", move},     {"sort", sort}};
    luaopen_table(state);
    lua_getfield(state, -1, "sort");
    lua_setfield(state, LUA_REGISTRYINDEX, "kiv.sort");
    lua_pushvalue(state, -1);
    takeCharged(state, Charged);
    for (const luaL_Reg &function : Wrapped)
        takeWrapped(state, function.name, function.func);
    setReadOnlyGlobal(state, "table");
    lua_pop(state, 1);
}

} // namespace kivemu
