#include "SortedKeys.h"

#include "SLuaContext.h"

#include <algorithm>
#include <cstring>
#include <lua.hpp>

namespace kivemu {

namespace {

constexpr size_t WorkPerKey = 64; ///< nanoseconds to collect and sort one
constexpr size_t WorkPerNext = 200;
constexpr size_t BytesPerWork = 16; ///< of texts that are compared

/// Where a key stands: numbers, texts, others.
int rank(lua_State *state, int index)
{
    switch (lua_type(state, index)) {
    case LUA_TNUMBER:
        return 0;
    case LUA_TSTRING:
        return 1;
    default:
        return 2;
    }
}

bool textLess(lua_State *state, int a, int b)
{
    size_t lengthA = 0;
    size_t lengthB = 0;
    const char *textA = lua_tolstring(state, a, &lengthA);
    const char *textB = lua_tolstring(state, b, &lengthB);
    contextOf(state).watchdog.charge(state, std::min(lengthA, lengthB) / BytesPerWork);
    const int order = std::memcmp(textA, textB, std::min(lengthA, lengthB));
    return order != 0 ? order < 0 : lengthA < lengthB;
}

/// Whether the key at `a` comes before the one at `b`; others have no order among themselves.
bool keyLess(lua_State *state, int a, int b)
{
    const int rankA = rank(state, a);
    const int rankB = rank(state, b);
    if (rankA != rankB)
        return rankA < rankB;
    if (rankA == 0)
        return lua_compare(state, a, b, LUA_OPLT);
    return rankA == 1 && textLess(state, a, b);
}

int compareKeys(lua_State *state)
{
    contextOf(state).watchdog.charge(state, WorkPerKey);
    lua_pushboolean(state, keyLess(state, 1, 2));
    return 1;
}

/// Pushes an array of the keys of the table at index 1, in order.
void pushSortedKeys(lua_State *state)
{
    CWatchdog &watchdog = contextOf(state).watchdog;
    watchdog.charge(state, WorkPerNext + watchdog.reach().workOfWalk());
    lua_newtable(state);
    const int keys = lua_gettop(state);
    lua_Integer count = 0;
    bool isSorted = true;
    lua_pushnil(state);
    for (; lua_next(state, 1); ++count) {
        lua_pop(state, 1);
        contextOf(state).watchdog.charge(state, WorkPerKey);
        if (count > 0 && isSorted) {
            lua_rawgeti(state, keys, count);
            isSorted = !keyLess(state, -2, -1);
            lua_pop(state, 1);
        }
        lua_pushvalue(state, -1);
        lua_rawseti(state, keys, count + 1);
    }
    if (isSorted)
        return;
    // Sorting is the table library's: it lies in the registry for that.
    lua_getfield(state, LUA_REGISTRYINDEX, "kiv.sort");
    lua_pushvalue(state, keys);
    lua_pushcfunction(state, compareKeys);
    lua_call(state, 2, 0);
}

/// The iterator of pairs; upvalues: the keys, how many were given.
int nextKey(lua_State *state)
{
    lua_Integer given = lua_tointeger(state, lua_upvalueindex(2));
    for (;;) {
        lua_settop(state, 1);
        const bool isEnd = lua_rawgeti(state, lua_upvalueindex(1), ++given) == LUA_TNIL;
        lua_pushinteger(state, given);
        lua_replace(state, lua_upvalueindex(2));
        if (isEnd)
            return 1;
        lua_pushvalue(state, -1);
        if (lua_rawget(state, 1) != LUA_TNIL)
            return 2;
    }
}

} // namespace

int sortedPairs(lua_State *state)
{
    luaL_checkany(state, 1);
    if (luaL_getmetafield(state, 1, "__pairs") != LUA_TNIL) {
        lua_pushvalue(state, 1);
        lua_call(state, 1, 3);
        return 3;
    }
    luaL_checktype(state, 1, LUA_TTABLE);
    lua_settop(state, 1);
    pushSortedKeys(state);
    lua_pushinteger(state, 0);
    lua_pushcclosure(state, nextKey, 2);
    lua_pushvalue(state, 1);
    lua_pushnil(state);
    return 3;
}

int sortedNext(lua_State *state)
{
    luaL_checktype(state, 1, LUA_TTABLE);
    lua_settop(state, 2);
    CWatchdog &watchdog = contextOf(state).watchdog;
    watchdog.charge(state, WorkPerNext + watchdog.reach().workOfWalk());
    const bool isFirst = lua_isnil(state, 2);
    bool wasGiven = isFirst;
    lua_pushnil(state); // 3: the least key after the given one
    lua_pushnil(state); // 4: the walk's key
    while (lua_next(state, 1)) {
        lua_pop(state, 1);
        contextOf(state).watchdog.charge(state, WorkPerKey);
        const bool isUnordered = rank(state, 4) == 2;
        bool isAfter = isFirst || keyLess(state, 2, 4);
        if (isUnordered && !isFirst && rank(state, 2) == 2)
            isAfter = wasGiven; // keys without an order follow each other as they come
        if (!wasGiven && lua_rawequal(state, 2, 4))
            wasGiven = true;
        if (isAfter && (lua_isnil(state, 3) || keyLess(state, 4, 3))) {
            lua_pushvalue(state, 4);
            lua_replace(state, 3);
        }
    }
    lua_settop(state, 3);
    if (lua_isnil(state, 3))
        return 1;
    lua_pushvalue(state, 3);
    lua_rawget(state, 1);
    return 2;
}

} // namespace kivemu
