#include "DrawApi.h"
#include "LuaColour.h"
#include "executor/BitmapFormats.h"
#include "host/assets/CAssetLoader.h"
#include "host/items/CItemRunner.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace kivemu {

namespace {

constexpr char BitmapType[] = "kiv.bitmap";
constexpr size_t FileWork = 20'000; ///< to look a file up, beside reading it

/// What a script holds: the place in RAM_G, which is another one in the next frame.
struct SBitmapHandle
{
    SLoadedBitmap bitmap;
    uint64_t frameNumber;
};

int bitmapField(lua_State *state)
{
    const auto *handle = static_cast<const SBitmapHandle *>(luaL_checkudata(state, 1, BitmapType));
    const char *name = luaL_checkstring(state, 2);
    if (std::strcmp(name, "width") == 0)
        lua_pushinteger(state, handle->bitmap.source.width);
    else if (std::strcmp(name, "height") == 0)
        lua_pushinteger(state, handle->bitmap.source.height);
    else
        lua_pushnil(state);
    return 1;
}

int pushLoaded(lua_State *state, bool loaded, const SLoadedBitmap &bitmap)
{
    SLuaContext &context = contextOf(state);
    if (!loaded) {
        if (context.items)
            context.items->noteCurrent(context.assets->error());
        lua_pushnil(state);
        lua_pushstring(state, context.assets->error().c_str());
        return 2;
    }
    auto *handle = static_cast<SBitmapHandle *>(lua_newuserdatauv(state, sizeof(SBitmapHandle), 0));
    *handle = {bitmap, context.frameNumber};
    if (luaL_newmetatable(state, BitmapType)) {
        lua_pushcfunction(state, bitmapField);
        lua_setfield(state, -2, "__index");
        lua_pushboolean(state, false);
        lua_setfield(state, -2, "__metatable");
    }
    lua_setmetatable(state, -2);
    return 1;
}

uint32_t checkFormat(lua_State *state, int argument)
{
    if (lua_type(state, argument) == LUA_TNUMBER) {
        const lua_Integer code = luaL_checkinteger(state, argument);
        if (code >= 0 && code <= 255 && bitmapStride(static_cast<uint32_t>(code), 8) > 0)
            return static_cast<uint32_t>(code);
        luaL_error(state, "%I is not the code of a bitmap format", code);
    }
    const char *name = luaL_checkstring(state, argument);
    const int code = bitmapFormatCode(name);
    if (code < 0)
        luaL_error(state, "'%s' is not a bitmap format", SShownText(name).text);
    return static_cast<uint32_t>(code);
}

/// As an int; what none can hold stays out of range.
int sideOf(lua_Integer side)
{
    return static_cast<int>(std::clamp<lua_Integer>(side, 0, std::numeric_limits<int>::max()));
}

int loadBitmap(lua_State *state)
{
    drawingOf(state);
    size_t length = 0;
    const char *path = luaL_checklstring(state, 1, &length);
    const uint32_t format = checkFormat(state, 2);
    const lua_Integer width = luaL_checkinteger(state, 3);
    const lua_Integer height = luaL_checkinteger(state, 4);
    contextOf(state).watchdog.charge(state, FileWork);
    SLoadedBitmap bitmap{};
    const bool loaded = contextOf(state).assets->loadBitmap({path, length}, format, sideOf(width),
                                                            sideOf(height), bitmap);
    contextOf(state).watchdog.chargeLoading(state, contextOf(state).assets->lastWork());
    return pushLoaded(state, loaded, bitmap);
}

int loadImage(lua_State *state)
{
    drawingOf(state);
    size_t length = 0;
    const char *path = luaL_checklstring(state, 1, &length);
    const bool mono = !lua_isnoneornil(state, 2) && checkSwitch(state, 2);
    contextOf(state).watchdog.charge(state, FileWork);
    SLoadedBitmap bitmap{};
    const bool loaded = contextOf(state).assets->loadImage({path, length}, mono, bitmap);
    contextOf(state).watchdog.chargeLoading(state, contextOf(state).assets->lastWork());
    return pushLoaded(state, loaded, bitmap);
}

double optField(lua_State *state, const char *name, double otherwise)
{
    lua_getfield(state, 4, name);
    const double number = lua_tonumber(state, -1);
    const bool isGiven = !lua_isnil(state, -1);
    if (isGiven && (!lua_isnumber(state, -1) || !std::isfinite(number)))
        luaL_error(state, "the option '%s' is not a number", name);
    lua_pop(state, 1);
    return isGiven ? number : otherwise;
}

/// The place of an option's text in a list of two; 0 when it is not given.
int optChoice(lua_State *state, const char *name, const char *const (&choices)[2])
{
    lua_getfield(state, 4, name);
    const char *text = lua_isnil(state, -1) ? choices[0] : lua_tostring(state, -1);
    const bool isSecond = text && std::strcmp(text, choices[1]) == 0;
    if (!text || (!isSecond && std::strcmp(text, choices[0]) != 0))
        luaL_error(state, "the option '%s' is \"%s\" or \"%s\"", name, choices[0], choices[1]);
    lua_pop(state, 1);
    return isSecond ? 1 : 0;
}

int drawBitmap(lua_State *state)
{
    static constexpr const char *Filters[2] = {"nearest", "bilinear"};
    static constexpr const char *Wraps[2] = {"border", "repeat"};
    CDrawContext &drawing = drawingOf(state);
    const auto *handle = static_cast<const SBitmapHandle *>(luaL_checkudata(state, 1, BitmapType));
    if (handle->frameNumber != contextOf(state).frameNumber)
        luaL_error(state, "the bitmap was loaded for another frame");
    const auto &source = handle->bitmap.source;
    SBitmapDrawing how{checkNumber(state, 2),
                       checkNumber(state, 3),
                       double(source.width),
                       double(source.height),
                       0,
                       EBitmapFilter::Nearest,
                       EBitmapWrap::Border};
    if (!lua_isnoneornil(state, 4)) {
        luaL_checktype(state, 4, LUA_TTABLE);
        how.width = optField(state, "width", how.width);
        how.height = optField(state, "height", how.height);
        how.angle = optField(state, "angle", 0);
        if (optChoice(state, "filter", Filters) == 1)
            how.filter = EBitmapFilter::Bilinear;
        if (optChoice(state, "wrap", Wraps) == 1)
            how.wrap = EBitmapWrap::Repeat;
    }
    drawing.bitmap(handle->bitmap, how);
    return 0;
}

} // namespace

const luaL_Reg DrawApiBitmaps[] = {
    {"load_bitmap", loadBitmap},
    {"load_image", loadImage},
    {"bitmap", drawBitmap},
    {nullptr, nullptr},
};

} // namespace kivemu
