#include "CLuaAllocator.h"

#include "SLuaContext.h"

#include <cstdlib>

namespace kivemu {

namespace {

constexpr size_t LargeBlock = 4096; ///< what is given no more after a limit has passed
constexpr size_t SmallBlock = 512;  ///< what no single instruction takes long for
constexpr size_t BytesPerWork = 4;
constexpr size_t FewKeys = 64;
constexpr size_t ValueSize = 2 * sizeof(void *); ///< of a list or the stack
constexpr size_t StringOverhead = 64; ///< at least the header that Lua puts before a string's bytes

/// How many keys of a table a fresh block without a kind holds: of these there is always a power of
/// two, and Lua asks for them at once. A list whose first size is exactly that is taken for one.
size_t keysIn(size_t size)
{
    constexpr size_t KeySize = 3 * sizeof(void *); // a value, a key, their types and a link
    const size_t count = size / KeySize;
    return size % KeySize == 0 && (count & (count - 1)) == 0 ? count : 0;
}

/// Putting all keys of a table into a larger place, when all of them collide.
uint64_t workToGrow(size_t keys)
{
    return uint64_t{keys} * keys / 2;
}

bool isAllowed(SLuaContext &context, size_t oldSize, size_t newSize, bool isString)
{
    if (newSize <= oldSize)
        return true;
    if (isString && newSize > CLuaAllocator::MaxString + StringOverhead)
        return false;
    if (newSize - oldSize > context.memoryLimit - context.memoryUsed)
        return false;
    const bool isOver = context.watchdog.add((newSize - oldSize) / BytesPerWork);
    return newSize < LargeBlock || !isOver;
}

/// Tells the watchdog what single instructions can touch from now on.
void noteReach(SLuaContext &context, const void *block, size_t size, bool isString, size_t keys)
{
    if (isString)
        context.watchdog.reachText(size);
    else if (keys > 0)
        context.watchdog.reachKeys(keys);
    else if (block == context.stack)
        context.watchdog.setStack(size / ValueSize);
    else
        context.watchdog.reachList(size / ValueSize);
}

} // namespace

void *CLuaAllocator::allocate(void *user, void *block, size_t oldSize, size_t newSize)
{
    auto &context = *static_cast<SLuaContext *>(user);
    // Without a block, Lua passes the kind of the object in place of the old size.
    const bool isString = !block && oldSize == LUA_TSTRING;
    const bool isVector = !block && oldSize == 0;
    if (!block)
        oldSize = 0;
    if (newSize == 0) {
        std::free(block);
        context.memoryUsed -= oldSize;
        return nullptr;
    }
    const size_t keys = isVector ? keysIn(newSize) : 0;
    const bool isTooMuch =
        keys > CLuaAllocator::MaxKeys || (keys > FewKeys && context.watchdog.add(workToGrow(keys)));
    if (isTooMuch || !isAllowed(context, oldSize, newSize, isString)) {
        context.memoryRefused = true;
        return nullptr;
    }
    // The first block without a kind is the stack of a new state.
    const bool isStack = context.stack ? block == context.stack : isVector;
    void *result = std::realloc(block, newSize);
    if (!result)
        return newSize <= oldSize ? block : nullptr; // Lua relies on shrinking never to fail
    if (isStack)
        context.stack = result;
    context.memoryUsed = context.memoryUsed - oldSize + newSize;
    if (newSize >= SmallBlock)
        noteReach(context, result, newSize, isString, keys);
    return result;
}

} // namespace kivemu
