#pragma once

#include <cstddef>

namespace kivemu {

/// The memory of a Lua state, kept below the context's limit.
/// No string gets longer than MaxString, because the work of a single instruction grows with its
/// operands and the watchdog looks only between instructions. For the same reason no table gets
/// more than MaxKeys keys beside its list: keys can be chosen so that all of them collide, and then
/// the one instruction that makes the table grow takes time with the square of their number.
/// What grows is counted as work. After a limit has passed nothing large is given any more: a loop
/// of failing allocations would otherwise outlive the hook.
struct CLuaAllocator
{
    static constexpr size_t MaxString = size_t{256} << 10; ///< bytes
    static constexpr size_t MaxKeys = 4096;

    /// A lua_Alloc; `user` is an SLuaContext.
    static void *allocate(void *user, void *block, size_t oldSize, size_t newSize);
};

} // namespace kivemu
