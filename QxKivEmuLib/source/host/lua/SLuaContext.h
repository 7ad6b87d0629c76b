#pragma once

#include "CWatchdog.h"

#include <lua.hpp>

namespace kivemu {

class CAssetLoader;
class CDrawContext;
class CItemRunner;
class CItemTables;
class CTexts;

/// What the C functions of a Lua state reach: everything that is not Lua's own. One for each state,
/// found through the state's extra space.
struct SLuaContext
{
    CWatchdog watchdog;
    CDrawContext *drawing = nullptr; ///< null while no frame is drawn
    CAssetLoader *assets = nullptr;
    CTexts *texts = nullptr;
    CItemRunner *items = nullptr;
    CItemTables *itemTables = nullptr;
    uint64_t frameNumber = 0;
    size_t memoryUsed = 0;
    size_t memoryLimit = 0;
    const void *stack = nullptr; ///< the block that Lua keeps its stack in
    bool memoryRefused = false;  ///< an allocation was refused since this was last cleared
    bool isSpent = false;        ///< the state must not be used for another frame
};

inline SLuaContext &contextOf(lua_State *state)
{
    return **static_cast<SLuaContext **>(lua_getextraspace(state));
}

} // namespace kivemu
