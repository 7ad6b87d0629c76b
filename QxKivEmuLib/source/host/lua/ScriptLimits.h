#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace kivemu {

/// What Lua code may use of a frame. Work is counted, about a nanosecond's worth of a plain machine
/// each, so that equal input is stopped at the same place on every machine and under any load.
struct SScriptLimits
{
    uint64_t frameWork = 80'000'000;
    uint64_t itemWork =
        20'000'000; ///< a single item, so that one that hangs leaves the others room
    size_t memory = size_t{64} << 20;
    /// The last resort against work that nothing counts: processor time, not the time of day, which
    /// also passes while the thread has to wait.
    std::chrono::milliseconds frameTime{400};
    std::chrono::milliseconds itemTime{200};
};

} // namespace kivemu
