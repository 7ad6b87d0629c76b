#include "LuaColour.h"

#include "DrawApi.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <lua.hpp>

namespace kivemu {

namespace {

constexpr uint8_t NoDigit = 0xFF;

constexpr std::array<uint8_t, 256> hexDigits()
{
    std::array<uint8_t, 256> digits{};
    for (size_t c = 0; c < 256; ++c) {
        const bool isDigit = c >= '0' && c <= '9';
        const bool isLetter = (c | 0x20) >= 'a' && (c | 0x20) <= 'f';
        digits[c] = static_cast<uint8_t>(isDigit    ? c - '0'
                                         : isLetter ? (c | 0x20) - 'a' + 10
                                                    : NoDigit);
    }
    return digits;
}

constexpr std::array<uint8_t, 256> HexDigits = hexDigits();

} // namespace

std::optional<Argb> parseColour(std::string_view text)
{
    if ((text.size() != 7 && text.size() != 9) || text[0] != '#')
        return std::nullopt;
    Argb colour = text.size() == 7 ? 0xFF : 0;
    uint32_t seen = 0;
    for (const char c : text.substr(1)) {
        const uint32_t digit = HexDigits[static_cast<uint8_t>(c)];
        seen |= digit;
        colour = colour << 4 | (digit & 0xF);
    }
    return seen > 0xF ? std::nullopt : std::optional<Argb>(colour);
}

Argb mixColours(Argb from, Argb to, double t)
{
    t = std::clamp(t, 0.0, 1.0);
    Argb mixed = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const double a = from >> shift & 0xFF;
        const double b = to >> shift & 0xFF;
        mixed |= static_cast<Argb>(std::lround(a + (b - a) * t)) << shift;
    }
    return mixed;
}

Argb checkColour(lua_State *state, int argument)
{
    if (lua_type(state, argument) == LUA_TSTRING) {
        size_t length = 0;
        const char *text = lua_tolstring(state, argument, &length);
        if (const auto colour = parseColour({text, length}))
            return *colour;
        luaL_error(state, "'%s' is no colour; colours are \"#rrggbb\", \"#aarrggbb\" or 0xRRGGBB",
                   SShownText(text).text);
    }
    const lua_Integer number = luaL_checkinteger(state, argument);
    luaL_argcheck(state, number >= 0 && number <= 0xFFFFFF, argument,
                  "a colour as a number is 0xRRGGBB");
    return 0xFF000000 | static_cast<Argb>(number);
}

} // namespace kivemu
