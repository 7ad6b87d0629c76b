#include "DrawApi.h"
#include "LuaColour.h"

#include <algorithm>
#include <cstdlib>

namespace kivemu {

namespace {

/// Gathers the points of a flat table {x1, y1, x2, y2, …}.
void checkPoints(lua_State *state, CDrawContext &drawing)
{
    luaL_checktype(state, 1, LUA_TTABLE);
    const size_t count = lua_rawlen(state, 1);
    luaL_argcheck(state, count % 2 == 0, 1,
                  "points are {x1, y1, x2, y2, ...}: a number is missing");
    luaL_argcheck(state, count / 2 <= CDrawContext::MaxPoints, 1, "too many points");
    contextOf(state).watchdog.charge(state, count * 16);
    drawing.beginPoints();
    for (size_t i = 1; i < count; i += 2) {
        lua_rawgeti(state, 1, static_cast<lua_Integer>(i));
        lua_rawgeti(state, 1, static_cast<lua_Integer>(i) + 1);
        for (const int index : {-2, -1}) {
            if (lua_type(state, index) == LUA_TSTRING)
                chargeNumberText(state, index);
        }
        int isX = 0;
        int isY = 0;
        const double x = lua_tonumberx(state, -2, &isX);
        const double y = lua_tonumberx(state, -1, &isY);
        if (!isX || !isY || !std::isfinite(x) || !std::isfinite(y))
            luaL_error(state, "point %d is not a pair of numbers", static_cast<int>(i / 2 + 1));
        lua_pop(state, 2);
        drawing.addPoint(x, y);
    }
}

int disc(lua_State *state)
{
    const double x = checkNumber(state, 1);
    const double y = checkNumber(state, 2);
    drawingOf(state).disc(x, y, checkNumber(state, 3));
    return 0;
}

int line(lua_State *state)
{
    const double x0 = checkNumber(state, 1);
    const double y0 = checkNumber(state, 2);
    const double x1 = checkNumber(state, 3);
    drawingOf(state).line(x0, y0, x1, checkNumber(state, 4));
    return 0;
}

struct SBox
{
    explicit SBox(lua_State *state)
        : x(checkNumber(state, 1)),
          y(checkNumber(state, 2)),
          width(checkNumber(state, 3)),
          height(checkNumber(state, 4))
    {
    }
    double x, y, width, height;
};

int fillRect(lua_State *state)
{
    const SBox box(state);
    CDrawContext &drawing = drawingOf(state);
    drawing.fillRect(box.x, box.y, box.width, box.height, optNumber(state, 5, 0));
    return chargeShape(state, drawing);
}

int strokeRect(lua_State *state)
{
    const SBox box(state);
    CDrawContext &drawing = drawingOf(state);
    drawing.strokeRect(box.x, box.y, box.width, box.height, optNumber(state, 5, 0));
    return chargeShape(state, drawing);
}

int polyline(lua_State *state)
{
    CDrawContext &drawing = drawingOf(state);
    checkPoints(state, drawing);
    drawing.polyline(!lua_isnoneornil(state, 2) && checkSwitch(state, 2));
    return 0;
}

int polygon(lua_State *state)
{
    CDrawContext &drawing = drawingOf(state);
    checkPoints(state, drawing);
    drawing.polygon();
    return 0;
}

int arc(lua_State *state)
{
    static const char *const Caps[] = {"round", "butt", nullptr};
    const double x = checkNumber(state, 1);
    const double y = checkNumber(state, 2);
    const double radius = checkNumber(state, 3);
    const double start = checkNumber(state, 4);
    const double sweep = checkNumber(state, 5);
    const bool isRound = luaL_checkoption(state, 6, "round", Caps) == 0;
    drawingOf(state).arc(x, y, radius, start, sweep, isRound ? EArcCaps::Round : EArcCaps::Butt);
    return 0;
}

int gradient(lua_State *state)
{
    const SBox box(state);
    const Argb from = checkColour(state, 5);
    const Argb to = checkColour(state, 6);
    const double angle = optNumber(state, 7, 90);
    CDrawContext &drawing = drawingOf(state);
    drawing.gradient(box.x, box.y, box.width, box.height, from, to, angle, optNumber(state, 8, 0));
    return chargeShape(state, drawing);
}

int hatchedBox(lua_State *state)
{
    const SBox box(state);
    CDrawContext &drawing = drawingOf(state);
    if (!drawing.save())
        luaL_error(state, "too many saved states");
    drawing.hatchedBox(box.x, box.y, box.width, box.height);
    drawing.restore();
    return chargeShape(state, drawing);
}

/// The number that a text begins with. Whole ones, as the editor writes them, are taken directly.
double numberAt(const char *text, char **end)
{
    constexpr int MostDigits = 9;
    const char *at = *text == '-' ? text + 1 : text;
    const char *const first = at;
    int32_t whole = 0;
    while (at - first < MostDigits && *at >= '0' && *at <= '9')
        whole = whole * 10 + (*at++ - '0');
    if (at == first || (*at != ',' && *at != ';' && *at != '\0'))
        return std::strtod(text, end);
    *end = const_cast<char *>(at); // as strtod does
    const double size = whole;
    return *text == '-' ? -size : size;
}

int splitPoints(lua_State *state)
{
    size_t length = 0;
    const char *at = luaL_checklstring(state, 1, &length);
    const double offsets[] = {optNumber(state, 2, 0), optNumber(state, 3, 0)};
    contextOf(state).watchdog.charge(state, length * 8);
    constexpr size_t Expected = 512; // numbers, of some three bytes each; more make the table grow
    lua_createtable(state, static_cast<int>(std::min(length / 3, Expected)), 0);
    lua_Integer count = 0;
    while (*at != '\0') {
        char *end = nullptr;
        const double number = numberAt(at, &end);
        // x is followed by ",", y by ";" or the end of the text.
        const bool isX = count % 2 == 0;
        const bool isEnded = isX ? *end == ',' : *end == ';' || *end == '\0';
        if (end == at || !isEnded || !std::isfinite(number))
            luaL_error(state, "point %d of the list is not of the form x,y",
                       static_cast<int>(count / 2 + 1));
        lua_pushnumber(state, number + offsets[isX ? 0 : 1]);
        lua_rawseti(state, -2, ++count);
        at = *end == '\0' ? end : end + 1;
    }
    if (count % 2 != 0)
        luaL_error(state, "the last point of the list has no y");
    return 1;
}

} // namespace

const luaL_Reg DrawApiShapes[] = {
    {"disc", disc},
    {"line", line},
    {"fill_rect", fillRect},
    {"stroke_rect", strokeRect},
    {"polyline", polyline},
    {"polygon", polygon},
    {"arc", arc},
    {"gradient", gradient},
    {"hatched_box", hatchedBox},
    {"split_points", splitPoints},
    {nullptr, nullptr},
};

} // namespace kivemu
