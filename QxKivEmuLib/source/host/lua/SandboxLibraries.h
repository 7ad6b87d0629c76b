#pragma once

#include <cstddef>

#include <lua.hpp>

namespace kivemu {

// The parts of Lua's library that render scripts get. Every function that could run long in C looks
// at the clock itself, and none gives anything that differs from run to run. Each leaves the Lua
// error to the caller: they run in protected mode.

/// Takes everything out of the globals that is not allowed and puts bounded versions in.
void openSandboxBase(lua_State *state);
void openSandboxString(lua_State *state);
void openSandboxTable(lua_State *state);
void openSandboxUtf8(lua_State *state);
void openSandboxMath(lua_State *state);

/// Adds find, match, gmatch and gsub to the table at the top of the stack.
void addSandboxPatterns(lua_State *state);
/// Makes the tables among the globals, and those within them, read-only, so that no item's render
/// commands can change what another one's find.
void freezeGlobalTables(lua_State *state);
/// Of making a number a text of so many digits.
size_t workOfNumberText(double number, int digits = 14);
/// For wrappers: calls the C function that is the first upvalue, in the wrapper's own frame.
int callOriginal(lua_State *state);
/// From a table of functions at the top of the stack takes the named ones (the list ends with null)
/// into a new table in its place, each wrapped so that it charges the watchdog for the length of
/// its text arguments.
void takeCharged(lua_State *state, const char *const *names);
/// The same for one of them (below the top into the table at the top), with a wrapper.
void takeWrapped(lua_State *state, const char *name, lua_CFunction wrapper);
/// As callOriginal, of functions that make texts out of numbers: a zero byte in one is an error.
/// Lua compares texts piece by piece between zero bytes, which takes a thousand times as long.
int callTextMaker(lua_State *state);
/// A wrapper that charges as takeCharged does.
int chargedTextMaker(lua_State *state);
/// Pops a table and sets the global of that name to a read-only view of it.
void setReadOnlyGlobal(lua_State *state, const char *name);

} // namespace kivemu
