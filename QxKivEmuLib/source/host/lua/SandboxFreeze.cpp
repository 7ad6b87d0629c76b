#include "SandboxLibraries.h"
#include "SortedKeys.h"

#include <lua.hpp>

namespace kivemu {

namespace {

constexpr int DeepestTable = 50; ///< tables deeper than this stay as they are

int readOnlyError(lua_State *state)
{
    return luaL_error(state, "the table is read-only");
}

int viewLength(lua_State *state)
{
    lua_pushinteger(state, static_cast<lua_Integer>(lua_rawlen(state, lua_upvalueindex(1))));
    return 1;
}

int viewPairs(lua_State *state)
{
    lua_pushcfunction(state, sortedPairs);
    lua_pushvalue(state, lua_upvalueindex(1));
    lua_call(state, 1, 3);
    return 3;
}

/// Gives the view at index `view` its metatable; the table behind it is at the top.
void setViewMetatable(lua_State *state, int view)
{
    const int behind = lua_gettop(state);
    lua_newtable(state);
    lua_pushvalue(state, behind);
    lua_setfield(state, -2, "__index");
    lua_pushcfunction(state, readOnlyError);
    lua_setfield(state, -2, "__newindex");
    lua_pushvalue(state, behind);
    lua_pushcclosure(state, viewLength, 1);
    lua_setfield(state, -2, "__len");
    lua_pushvalue(state, behind);
    lua_pushcclosure(state, viewPairs, 1);
    lua_setfield(state, -2, "__pairs");
    lua_pushboolean(state, false);
    lua_setfield(state, -2, "__metatable");
    lua_setmetatable(state, view);
}

/// Replaces the value at the top, when it is a plain table, by a read-only view of a copy. `known`:
/// index of a table from tables to their views.
void freezeTop(lua_State *state, int known, int depth)
{
    const bool hasMetatable = lua_getmetatable(state, -1);
    lua_pop(state, hasMetatable ? 1 : 0);
    if (!lua_istable(state, -1) || hasMetatable || depth == DeepestTable)
        return;
    luaL_checkstack(state, LUA_MINSTACK, nullptr);
    lua_pushvalue(state, -1);
    if (lua_rawget(state, known) != LUA_TNIL) {
        lua_remove(state, -2);
        return;
    }
    lua_pop(state, 1);
    const int original = lua_gettop(state);
    lua_newtable(state);
    const int view = original + 1;
    lua_pushvalue(state, original);
    lua_pushvalue(state, view);
    lua_rawset(state, known); // before its members, which may hold it again
    lua_newtable(state);
    const int copy = original + 2;
    lua_pushnil(state);
    while (lua_next(state, original)) {
        freezeTop(state, known, depth + 1);
        lua_pushvalue(state, -2);
        lua_insert(state, -2);
        lua_rawset(state, copy);
    }
    setViewMetatable(state, view);
    lua_settop(state, view);
    lua_remove(state, original);
}

} // namespace

void freezeGlobalTables(lua_State *state)
{
    lua_newtable(state);
    const int known = lua_gettop(state);
    lua_pushglobaltable(state);
    const int globals = known + 1;
    lua_pushnil(state);
    while (lua_next(state, globals)) {
        freezeTop(state, known, 0);
        lua_pushvalue(state, -2);
        lua_insert(state, -2);
        lua_rawset(state, globals);
    }
    lua_settop(state, known - 1);
}

} // namespace kivemu
