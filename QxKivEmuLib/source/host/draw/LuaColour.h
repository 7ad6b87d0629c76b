#pragma once

#include "raster/RasterTypes.h"

#include <optional>
#include <string_view>

struct lua_State;

namespace kivemu {

/// "#rrggbb" (opaque) or "#aarrggbb"; nothing for any other text.
std::optional<Argb> parseColour(std::string_view text);
/// The colour between two, each part by itself; `t` from 0 to 1 is cut to that range.
Argb mixColours(Argb from, Argb to, double t);
/// A colour argument: such a text or an integer 0xRRGGBB. Raises the Lua error for others.
Argb checkColour(lua_State *state, int argument);

} // namespace kivemu
