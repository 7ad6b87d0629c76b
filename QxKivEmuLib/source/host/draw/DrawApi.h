#pragma once

#include "CDrawContext.h"
#include "host/lua/SLuaContext.h"

#include <cmath>
#include <cstdio>
#include <lua.hpp>

// The functions that a render script draws with; docs/render-script.md describes them. Their errors
// are Lua errors, which leave by longjmp: nothing with a destructor may live in these functions
// where one can be raised.

namespace kivemu {

// Tables of functions, ended by a null name.
extern const luaL_Reg DrawApiState[];
extern const luaL_Reg DrawApiShapes[];
extern const luaL_Reg DrawApiText[];
extern const luaL_Reg DrawApiBitmaps[];
extern const luaL_Reg DrawApiColours[];

/// Adds all of them to the table at the top of the stack.
void addDrawApi(lua_State *state);

/// The frame that is being drawn; a Lua error outside of one.
inline CDrawContext &drawingOf(lua_State *state)
{
    constexpr uint64_t WorkPerCall = 128;
    contextOf(state).watchdog.charge(state, WorkPerCall);
    CDrawContext *drawing = contextOf(state).drawing;
    if (!drawing)
        luaL_error(state, "drawing is possible only while a frame is drawn");
    return *drawing;
}

/// What a shape took beside the call, such as the points of its outline.
inline int chargeShape(lua_State *state, CDrawContext &drawing)
{
    if (const uint64_t work = drawing.takeWork())
        contextOf(state).watchdog.charge(state, work);
    return 0;
}

/// Of a text that holds a number.
inline void chargeNumberText(lua_State *state, int index)
{
    constexpr uint64_t WorkPerNumberText = 150;
    contextOf(state).watchdog.charge(state, WorkPerNumberText + lua_rawlen(state, index));
}

/// A number argument; texts that hold one count. Infinite ones and NaN are errors.
inline double checkNumber(lua_State *state, int argument)
{
    const int type = lua_type(state, argument);
    if (type == LUA_TSTRING)
        chargeNumberText(state, argument);
    const double number =
        type == LUA_TNUMBER ? lua_tonumber(state, argument) : luaL_checknumber(state, argument);
    if (!std::isfinite(number))
        luaL_argerror(state, argument, "the number is not finite");
    return number;
}

inline double optNumber(lua_State *state, int argument, double otherwise)
{
    return lua_isnoneornil(state, argument) ? otherwise : checkNumber(state, argument);
}

/// The start of a text argument, for messages.
struct SShownText
{
    explicit SShownText(const char *whole) { std::snprintf(text, sizeof text, "%s", whole); }
    char text[41];
};

/// On or off: a boolean, or the integers 1 and 0 as properties have them.
inline bool checkSwitch(lua_State *state, int argument)
{
    if (lua_isboolean(state, argument))
        return lua_toboolean(state, argument);
    return luaL_checkinteger(state, argument) != 0;
}

} // namespace kivemu
