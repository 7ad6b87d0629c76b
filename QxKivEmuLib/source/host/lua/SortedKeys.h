#pragma once

struct lua_State;

namespace kivemu {

// pairs and next in a fixed order: numbers by size, then texts by their bytes, then all others as
// they come. Lua's own order depends on a seed that differs from run to run, and the same items
// must give the same frame.

/// A lua_CFunction in the place of pairs; __pairs works as usual.
int sortedPairs(lua_State *state);
/// A lua_CFunction in the place of next. Each call looks at the whole table: loops use pairs.
int sortedNext(lua_State *state);

} // namespace kivemu
