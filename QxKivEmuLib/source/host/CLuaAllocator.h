#pragma once

#include <cstddef>

namespace kivemu {

/// The memory of a Lua state, kept below the context's limit.
/// No string gets longer than MaxString, because the work of a single instruction grows with its
/// operands and the watchdog looks only between instructions. After the deadline nothing large is
/// given any more: a loop of failing allocations would otherwise outlive the hook.
struct CLuaAllocator
{
    static constexpr size_t MaxString = 256 * 1024;

    /// A lua_Alloc; `context` is an SLuaContext.
    static void *allocate(void *context, void *block, size_t oldSize, size_t newSize);
};

} // namespace kivemu
