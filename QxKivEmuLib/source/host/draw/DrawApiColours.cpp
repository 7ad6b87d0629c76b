#include "DrawApi.h"
#include "LuaColour.h"

#include <cstdio>

namespace kivemu {

namespace {

int mix(lua_State *state)
{
    const Argb from = checkColour(state, 1);
    const Argb to = checkColour(state, 2);
    char text[16];
    std::snprintf(text, sizeof text, "#%08x", mixColours(from, to, checkNumber(state, 3)));
    lua_pushstring(state, text);
    return 1;
}

} // namespace

const luaL_Reg DrawApiColours[] = {
    {"mix", mix},
    {nullptr, nullptr},
};

} // namespace kivemu
