#include "DrawApi.h"
#include "LuaColour.h"
#include "host/items/CItemRunner.h"

namespace kivemu {

namespace {

int clear(lua_State *state)
{
    drawingOf(state).clear(checkColour(state, 1) | 0xFF000000);
    return 0;
}

int color(lua_State *state)
{
    Argb colour = checkColour(state, 1);
    if (!lua_isnoneornil(state, 2)) {
        const double alpha = checkNumber(state, 2);
        luaL_argcheck(state, alpha >= 0 && alpha <= 255, 2, "alpha is 0 to 255");
        const auto product = static_cast<Argb>((colour >> 24) * alpha / 255 + 0.5);
        colour = (colour & 0xFFFFFF) | product << 24;
    }
    drawingOf(state).setColour(colour);
    return 0;
}

int blend(lua_State *state)
{
    drawingOf(state).setBlend(checkSwitch(state, 1));
    return 0;
}

int lineWidth(lua_State *state)
{
    drawingOf(state).setLineWidth(checkNumber(state, 1));
    return 0;
}

int scissor(lua_State *state)
{
    if (lua_gettop(state) == 0) {
        drawingOf(state).liftScissor();
        return 0;
    }
    const double x = checkNumber(state, 1);
    const double y = checkNumber(state, 2);
    const double width = checkNumber(state, 3);
    const double height = checkNumber(state, 4);
    drawingOf(state).setScissor(x, y, width, height);
    return 0;
}

int save(lua_State *state)
{
    if (!drawingOf(state).save())
        luaL_error(state, "save() can be nested %d times only", int{CDrawContext::MaxSaved});
    return 0;
}

int restore(lua_State *state)
{
    if (!drawingOf(state).restore())
        luaL_error(state, "restore() without save()");
    return 0;
}

int rotate(lua_State *state)
{
    const double angle = checkNumber(state, 1);
    drawingOf(state).rotate(angle, checkNumber(state, 2), checkNumber(state, 3));
    return 0;
}

int report(lua_State *state)
{
    drawingOf(state);
    size_t length = 0;
    const char *message = luaL_checklstring(state, 1, &length);
    contextOf(state).watchdog.charge(state, 1000 + length);
    contextOf(state).items->noteCurrent({message, length});
    return 0;
}

} // namespace

const luaL_Reg DrawApiState[] = {
    {"clear", clear},     {"color", color},   {"blend", blend},     {"line_width", lineWidth},
    {"scissor", scissor}, {"save", save},     {"restore", restore}, {"rotate", rotate},
    {"report", report},   {nullptr, nullptr},
};

void addDrawApi(lua_State *state)
{
    for (const luaL_Reg *functions :
         {DrawApiState, DrawApiShapes, DrawApiText, DrawApiBitmaps, DrawApiColours})
        luaL_setfuncs(state, functions, 0);
}

} // namespace kivemu
