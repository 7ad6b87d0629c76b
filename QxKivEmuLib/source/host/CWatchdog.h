#pragma once

#include <chrono>
#include <cstdint>

struct lua_Debug;
struct lua_State;

namespace kivemu {

/// Stops Lua code that runs too long. Three things look at the clock: a hook every HookInterval
/// instructions, C functions that charge() for work which the hook does not see, and the allocator.
/// Once the deadline has passed, the hook is armed for every instruction until stop(), so that
/// pcall cannot swallow the error.
class CWatchdog
{
public:
    using Clock = std::chrono::steady_clock;
    static constexpr int HookInterval = 1000; ///< Lua instructions

    /// Watches one state from now on; `frameLimit` counts from here.
    void start(lua_State *state, std::chrono::milliseconds frameLimit);
    void stop();

    /// Within the frame's time, gives what runs until endPart() at most `limit`.
    void beginPart(std::chrono::milliseconds limit);
    /// True when the part was stopped because its own time was over; what follows may run on.
    bool endPart();

    /// True from when the deadline was seen to have passed.
    bool isExpired() const { return m_expired; }
    /// Looks at the clock. True when the deadline has passed; the hook is then armed.
    bool look();

    /// For C functions: `work` is about a nanosecond's worth. Raises the Lua error when time is up.
    void charge(lua_State *state, size_t work)
    {
        m_work += work;
        if (m_work > WorkInterval)
            check(state, Caller);
    }

    static CWatchdog &of(lua_State *state);

private:
    static constexpr size_t WorkInterval = 65536;
    static constexpr int Caller = 1; ///< level of the function that the message names
    void check(lua_State *state, int level);
    static void hook(lua_State *state, lua_Debug *);
    void arm(int interval);

    lua_State *m_state = nullptr;
    Clock::time_point m_frameDeadline;
    Clock::time_point m_deadline;
    size_t m_work = 0;
    bool m_expired = false;
};

} // namespace kivemu
