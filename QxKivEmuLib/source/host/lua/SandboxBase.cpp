#include "SLuaContext.h"
#include "SandboxLibraries.h"
#include "SortedKeys.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <lua.hpp>

namespace kivemu {

namespace {

const char *const Allowed[] = {"assert",       "error",    "getmetatable", "ipairs", "pcall",
                               "rawequal",     "rawget",   "rawlen",       "rawset", "select",
                               "setmetatable", "tonumber", "tostring",     "type",   nullptr};

constexpr size_t WorkPerCall = 32;
constexpr size_t WorkPerError = 2500; ///< to make the message, find the place and go back there
constexpr size_t WorkPerNumber = 100;
constexpr size_t EqualBytesPerWork = 16;

size_t workOfArguments(lua_State *state)
{
    size_t work = WorkPerCall;
    for (int i = lua_gettop(state); i > 0; --i) {
        if (lua_type(state, i) == LUA_TSTRING)
            work += lua_rawlen(state, i);
    }
    return work;
}

int charged(lua_State *state)
{
    contextOf(state).watchdog.charge(state, workOfArguments(state));
    return callOriginal(state);
}

/// What a metatable may hold. Not "__gc": a finalizer runs where no hook can stop it. Nor "__mode":
/// the collector can need minutes for weak tables that refer to each other, and nothing stops it
/// either.
const char *const MetaFields[] = {
    "__add",    "__band",      "__bnot", "__bor",  "__bxor",     "__call",     "__close",
    "__concat", "__div",       "__eq",   "__idiv", "__index",    "__le",       "__len",
    "__lt",     "__metatable", "__mod",  "__mul",  "__name",     "__newindex", "__pairs",
    "__pow",    "__shl",       "__shr",  "__sub",  "__tostring", "__unm"};

bool hasField(lua_State *state, int table, const char *name)
{
    lua_pushstring(state, name);
    const bool has = lua_rawget(state, table) != LUA_TNIL;
    lua_pop(state, 1);
    return has;
}

/// Sets a copy: what a script puts into its table afterwards could be one of the forbidden fields.
int setMetatable(lua_State *state)
{
    luaL_checktype(state, 1, LUA_TTABLE);
    luaL_argexpected(state, lua_isnil(state, 2) || lua_istable(state, 2), 2, "nil or table");
    if (luaL_getmetafield(state, 1, "__metatable") != LUA_TNIL)
        luaL_error(state, "cannot change a protected metatable");
    lua_settop(state, 2);
    if (lua_isnil(state, 2)) {
        lua_settop(state, 1);
        return 1;
    }
    for (const char *forbidden : {"__gc", "__mode"}) {
        if (hasField(state, 2, forbidden))
            luaL_error(state, "'%s' is not available", forbidden);
    }
    contextOf(state).watchdog.charge(state, sizeof MetaFields);
    lua_newtable(state);
    for (const char *field : MetaFields) {
        lua_pushstring(state, field);
        if (lua_rawget(state, 2) == LUA_TNIL)
            lua_pop(state, 1);
        else
            lua_setfield(state, 3, field);
    }
    if (!hasField(state, 3, "__metatable")) {
        lua_pushvalue(state, 2);
        lua_setfield(state, 3, "__metatable"); // getmetatable gives the script's own table
    }
    lua_setmetatable(state, 1);
    lua_settop(state, 1);
    return 1;
}

/// rawset would get past the views that keep the libraries read-only; their metatables are hidden
/// behind `false`.
int rawSet(lua_State *state)
{
    if (luaL_getmetafield(state, 1, "__metatable") != LUA_TNIL && !lua_toboolean(state, -1))
        luaL_error(state, "the table is read-only");
    lua_settop(state, 3);
    return callOriginal(state);
}

/// The stock text of a table or function is its address, which differs from run to run.
int toString(lua_State *state)
{
    luaL_checkany(state, 1);
    const int type = lua_type(state, 1);
    const bool hasAddress = type == LUA_TTABLE || type == LUA_TFUNCTION || type == LUA_TUSERDATA;
    contextOf(state).watchdog.charge(
        state, lua_type(state, 1) == LUA_TNUMBER ? workOfNumberText(lua_tonumber(state, 1)) : 0);
    if (!hasAddress || luaL_getmetafield(state, 1, "__tostring") != LUA_TNIL) {
        lua_settop(state, 1);
        return callOriginal(state);
    }
    lua_pushstring(state, lua_typename(state, type));
    return 1;
}

/// What errors cost is counted where they are caught.
void chargeCall(lua_State *state, bool hasFailed)
{
    contextOf(state).watchdog.charge(state, hasFailed ? WorkPerError : WorkPerCall);
}

int protectedCall(lua_State *state)
{
    luaL_checkany(state, 1);
    lua_pushboolean(state, true);
    lua_insert(state, 1);
    if (lua_pcall(state, lua_gettop(state) - 2, LUA_MULTRET, 0) == LUA_OK) {
        chargeCall(state, false);
        return lua_gettop(state);
    }
    chargeCall(state, true);
    lua_pushboolean(state, false);
    lua_insert(state, -2);
    return 2;
}

int rawEqual(lua_State *state)
{
    if (lua_type(state, 1) == LUA_TSTRING && lua_type(state, 2) == LUA_TSTRING)
        contextOf(state).watchdog.charge(state, lua_rawlen(state, 1) / EqualBytesPerWork);
    return callOriginal(state);
}

/// Calls the handler once the error is over. The stock version calls it where the error is raised,
/// which may be the hook: there hooks are off, and nothing could stop the handler.
int xpcall(lua_State *state)
{
    luaL_checktype(state, 2, LUA_TFUNCTION);
    const int arguments = lua_gettop(state) - 2;
    lua_pushvalue(state, 1);
    lua_insert(state, 3);
    if (lua_pcall(state, arguments, LUA_MULTRET, 0) == LUA_OK) {
        chargeCall(state, false);
        lua_pushboolean(state, true);
        lua_replace(state, 2);
        return lua_gettop(state) - 1;
    }
    chargeCall(state, true);
    lua_pushboolean(state, false);
    lua_replace(state, 1);
    lua_pcall(state, 1, 1, 0); // the handler with the error; its own error is a result, too
    return 2;
}

int readOnlyError(lua_State *state)
{
    return luaL_error(state, "the table is read-only");
}

void wrapGlobal(lua_State *state, const char *name, lua_CFunction wrapper)
{
    lua_getglobal(state, name);
    lua_pushcclosure(state, wrapper, 1);
    lua_setglobal(state, name);
}

} // namespace

size_t workOfNumberText(double number, int digits)
{
    constexpr size_t WorkPerDigit = 24;
    constexpr int BitsPerWork = 2; // of the exponent
    int exponent = 0;
    std::frexp(number, &exponent);
    return WorkPerNumber + static_cast<size_t>(digits) * WorkPerDigit +
           static_cast<size_t>(std::abs(exponent)) / BitsPerWork;
}

int callOriginal(lua_State *state)
{
    return lua_tocfunction(state, lua_upvalueindex(1))(state);
}

void takeCharged(lua_State *state, const char *const *names)
{
    lua_newtable(state);
    for (; *names; ++names)
        takeWrapped(state, *names, charged);
    lua_remove(state, -2);
}

void takeWrapped(lua_State *state, const char *name, lua_CFunction wrapper)
{
    lua_getfield(state, -2, name);
    lua_pushcclosure(state, wrapper, 1);
    lua_setfield(state, -2, name);
}

int callTextMaker(lua_State *state)
{
    const int count = callOriginal(state);
    size_t length = 0;
    const char *text = lua_tolstring(state, -1, &length);
    if (std::memchr(text, 0, length))
        luaL_error(state, "a text cannot hold zero bytes");
    return count;
}

int chargedTextMaker(lua_State *state)
{
    contextOf(state).watchdog.charge(state, workOfArguments(state));
    return callTextMaker(state);
}

void setReadOnlyGlobal(lua_State *state, const char *name)
{
    lua_newtable(state);
    lua_newtable(state);
    lua_rotate(state, -3, -1); // view, its metatable, the table
    lua_setfield(state, -2, "__index");
    lua_pushcfunction(state, readOnlyError);
    lua_setfield(state, -2, "__newindex");
    lua_pushboolean(state, false);
    lua_setfield(state, -2, "__metatable");
    lua_setmetatable(state, -2);
    lua_setglobal(state, name);
}

void openSandboxBase(lua_State *state)
{
    luaL_requiref(state, LUA_GNAME, luaopen_base, 1);
    lua_newtable(state);
    for (const char *const *name = Allowed; *name; ++name) {
        lua_getfield(state, -2, *name);
        lua_setfield(state, -2, *name);
    }
    lua_rawseti(state, LUA_REGISTRYINDEX, LUA_RIDX_GLOBALS);
    lua_pop(state, 1);
    // The full base library stays reachable through the table of loaded modules otherwise.
    lua_pushnil(state);
    lua_setfield(state, LUA_REGISTRYINDEX, LUA_LOADED_TABLE);

    lua_pushcfunction(state, setMetatable);
    lua_setglobal(state, "setmetatable");
    wrapGlobal(state, "rawset", rawSet);
    wrapGlobal(state, "tostring", toString);
    wrapGlobal(state, "tonumber", charged);
    wrapGlobal(state, "rawequal", rawEqual);
    lua_pushcfunction(state, protectedCall);
    lua_setglobal(state, "pcall");
    lua_pushcfunction(state, sortedPairs);
    lua_setglobal(state, "pairs");
    lua_pushcfunction(state, xpcall);
    lua_setglobal(state, "xpcall");
    lua_pushcfunction(state, sortedNext);
    lua_setglobal(state, "next");
}

void openSandboxMath(lua_State *state)
{
    luaopen_math(state);
    for (const char *name : {"random", "randomseed"}) {
        lua_pushnil(state);
        lua_setfield(state, -2, name);
    }
    setReadOnlyGlobal(state, "math");
}

void openSandboxUtf8(lua_State *state)
{
    static const char *const Functions[] = {"codepoint", "codes", "len", "offset", nullptr};
    luaopen_utf8(state);
    lua_getfield(state, -1, "charpattern");
    lua_insert(state, -2);
    lua_pushvalue(state, -1);
    takeCharged(state, Functions);
    takeWrapped(state, "char", chargedTextMaker);
    lua_remove(state, -2);
    lua_insert(state, -2);
    lua_setfield(state, -2, "charpattern");
    setReadOnlyGlobal(state, "utf8");
}

} // namespace kivemu
