#include "CLuaAllocator.h"

#include "SLuaContext.h"

#include <cstdlib>

namespace kivemu {

namespace {

constexpr size_t LargeBlock = 4096;   ///< from here on the clock is worth a look
constexpr size_t StringOverhead = 64; ///< at least the header that Lua puts before a string's bytes

bool isAllowed(SLuaContext &context, size_t oldSize, size_t newSize, bool isString)
{
    if (newSize <= oldSize)
        return true;
    if (isString && newSize > CLuaAllocator::MaxString + StringOverhead)
        return false;
    if (newSize - oldSize > context.memoryLimit - context.memoryUsed)
        return false;
    return newSize < LargeBlock || !context.watchdog.look();
}

} // namespace

void *CLuaAllocator::allocate(void *user, void *block, size_t oldSize, size_t newSize)
{
    auto &context = *static_cast<SLuaContext *>(user);
    // Without a block, Lua passes the kind of the object in place of the old size.
    const bool isString = !block && oldSize == LUA_TSTRING;
    if (!block)
        oldSize = 0;
    if (newSize == 0) {
        std::free(block);
        context.memoryUsed -= oldSize;
        return nullptr;
    }
    if (!isAllowed(context, oldSize, newSize, isString)) {
        context.memoryRefused = true;
        return nullptr;
    }
    void *result = std::realloc(block, newSize);
    if (!result)
        return newSize <= oldSize ? block : nullptr; // Lua relies on shrinking never to fail
    context.memoryUsed = context.memoryUsed - oldSize + newSize;
    return result;
}

} // namespace kivemu
