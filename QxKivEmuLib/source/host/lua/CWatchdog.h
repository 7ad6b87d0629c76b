#pragma once

#include "CReach.h"
#include "ScriptLimits.h"

#include <atomic>

struct lua_Debug;
struct lua_State;

namespace kivemu {

/// Stops Lua code that does too much. Work is counted by a hook every HookInterval instructions, by
/// C functions that charge() for what the hook does not see, and by the allocator. The clock is
/// looked at besides; only work that nothing counts ever gets that far.
/// Once a limit has passed, the hook is armed for every instruction until stop(), so that pcall
/// cannot swallow the error.
class CWatchdog
{
public:
    static constexpr int HookInterval = 250; ///< Lua instructions

    /// Watches one state from now on; the frame's limits count from here.
    void start(lua_State *state, const SScriptLimits &limits);
    void stop();
    /// A flag that ends the frame when it becomes true; it must outlive the watchdog.
    void followCancel(const std::atomic<bool> &cancelled) { m_cancelled = &cancelled; }

    /// What runs until endPart() gets at most this share of the frame's work, beside what it loads,
    /// and can reach a text of this many bytes.
    void beginPart(uint64_t share, size_t longestText);
    /// True when the part was stopped; unless the frame was, what follows may run on.
    bool endPart();

    /// True from when a limit was seen to have passed.
    bool isExpired() const { return m_end != EEnd::None; }
    /// Why the code was stopped, for its error message.
    const char *reason() const;

    /// Counts work. True when a limit has passed; the hook is then armed.
    bool add(uint64_t work)
    {
        m_work += work;
        return m_work >= m_nextLook ? look() : isExpired();
    }
    /// For C functions: counts, and raises the Lua error when it was too much.
    void charge(lua_State *state, uint64_t work)
    {
        if (add(work))
            fail(state, Caller);
    }

    /// The same for loading a file, which never takes from the part's share: items that were
    /// stopped before must not cost this one its picture.
    void chargeLoading(lua_State *state, uint64_t work);

    const CReach &reach() const { return m_reach; }
    void reachText(size_t bytes)
    {
        if (m_reach.addText(bytes))
            lookOften();
    }
    void reachKeys(size_t keys)
    {
        if (m_reach.addKeys(keys))
            lookOften();
    }
    void reachList(size_t elements) { m_reach.addList(elements); }
    void setStack(size_t slots)
    {
        if (m_reach.setStack(slots))
            lookOften();
    }
    void resetReach(const CReach &outer) { m_reach.resetTo(outer); }

    static CWatchdog &of(lua_State *state);

private:
    enum class EEnd { None, Work, Clock, Cancelled };
    using Nanoseconds = std::chrono::nanoseconds;
    using Clock = std::chrono::steady_clock;
    static constexpr uint64_t LookInterval = 65536;
    static constexpr int Caller = 1; ///< level of the function that the message names
    bool look();
    void lookOften();
    EEnd findEnd();
    bool isClockOver();
    [[noreturn]] static void fail(lua_State *state, int level);
    static void hook(lua_State *state, lua_Debug *);
    void arm(int interval);

    lua_State *m_state = nullptr;
    const std::atomic<bool> *m_cancelled = nullptr;
    SScriptLimits m_limits;
    uint64_t m_work = 0;      ///< since start()
    uint64_t m_workLimit = 0; ///< of the frame or, within a part, of the part
    uint64_t m_partEnd = 0;   ///< what loading may raise a part's limit to
    uint64_t m_nextLook = 0;
    CReach m_reach;
    CReach m_outerReach; ///< outside of the part
    int m_interval = HookInterval;
    Nanoseconds m_frameTimeEnd{}; ///< in the thread's processor time
    Nanoseconds m_timeEnd{};      ///< of the frame or, within a part, of the part
    bool m_isTimeKnown = true;    ///< m_timeEnd is that of the part, if one runs
    Clock::time_point m_nextTime; ///< the processor time is not asked for before
    EEnd m_end = EEnd::None;
};

} // namespace kivemu
