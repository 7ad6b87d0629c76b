#include "CWatchdog.h"

#include "QxKivEmuLib.h"
#include "SLuaContext.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <lua.hpp>

namespace kivemu {

namespace {

constexpr int ShortInterval = 25; ///< instructions, when single ones may take long
/// Asking for the processor time is a system call, the time of day is not.
constexpr std::chrono::milliseconds TimeInterval{4};

std::chrono::nanoseconds processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

CWatchdog &CWatchdog::of(lua_State *state)
{
    return contextOf(state).watchdog;
}

void CWatchdog::arm(int interval)
{
    lua_sethook(m_state, interval > 0 ? hook : nullptr, interval > 0 ? LUA_MASKCOUNT : 0, interval);
}

void CWatchdog::start(lua_State *state, const SScriptLimits &limits)
{
    m_state = state;
    m_limits = limits;
    m_work = 0;
    m_workLimit = limits.frameWork;
    m_partEnd = limits.frameWork;
    m_nextLook = 0;
    m_interval = HookInterval;
    m_reach.resetTo({});
    m_frameTimeEnd = processorTime() + limits.frameTime;
    m_timeEnd = m_frameTimeEnd;
    m_isTimeKnown = true;
    m_nextTime = Clock::now() + TimeInterval;
    m_end = EEnd::None;
    arm(m_interval);
}

void CWatchdog::stop()
{
    if (m_state)
        arm(0);
    m_state = nullptr;
    m_end = EEnd::None;
}

void CWatchdog::beginPart(uint64_t share, size_t longestText)
{
    m_outerReach = m_reach;
    if (isExpired())
        return;
    m_workLimit = std::min(m_limits.frameWork, m_work + share);
    m_partEnd = std::min(m_limits.frameWork, m_work + m_limits.itemWork);
    m_nextLook = std::min(m_nextLook, m_workLimit);
    m_isTimeKnown = false;
    m_interval = HookInterval;
    arm(m_interval); // what ran before does not count for the part
    reachText(longestText);
}

bool CWatchdog::endPart()
{
    const bool wasStopped = isExpired();
    // Where the clock has struck must not show in what the others get.
    if (m_end == EEnd::Clock)
        m_work = std::max(m_work, m_workLimit);
    const bool partOnly = (m_end == EEnd::Work && m_work < m_limits.frameWork) ||
                          (m_end == EEnd::Clock && processorTime() < m_frameTimeEnd);
    m_workLimit = m_limits.frameWork;
    m_partEnd = m_limits.frameWork;
    m_timeEnd = m_frameTimeEnd;
    m_isTimeKnown = true;
    m_reach.resetTo(m_outerReach);
    if (partOnly) {
        m_end = EEnd::None;
        m_nextLook = m_work;
    }
    if (!isExpired() && (partOnly || m_interval != HookInterval)) {
        m_interval = HookInterval;
        arm(m_interval);
    }
    return wasStopped;
}

void CWatchdog::chargeLoading(lua_State *state, uint64_t work)
{
    m_workLimit = std::max(m_workLimit, std::min(m_partEnd, m_workLimit + work));
    charge(state, work);
}

const char *CWatchdog::reason() const
{
    switch (m_end) {
    case EEnd::Clock:
        return EMU_STOPPED_BY_CLOCK ", because it takes too long; another time it may get further";
    case EEnd::Cancelled:
        return "stopped, because the frame is not wanted any more";
    default:
        return "stopped, because it takes too long";
    }
}

/// Single instructions may take long from here on.
void CWatchdog::lookOften()
{
    if (!m_state || isExpired() || m_interval == ShortInterval)
        return;
    m_interval = ShortInterval;
    arm(m_interval);
}

bool CWatchdog::look()
{
    if (!m_state || isExpired())
        return isExpired();
    m_end = findEnd();
    m_nextLook = std::min(m_workLimit, m_work + LookInterval);
    if (isExpired())
        arm(1);
    return isExpired();
}

CWatchdog::EEnd CWatchdog::findEnd()
{
    if (m_work >= m_workLimit)
        return EEnd::Work;
    if (m_cancelled && m_cancelled->load(std::memory_order_relaxed))
        return EEnd::Cancelled;
    return isClockOver() ? EEnd::Clock : EEnd::None;
}

bool CWatchdog::isClockOver()
{
    const Clock::time_point now = Clock::now();
    if (now < m_nextTime)
        return false;
    m_nextTime = now + TimeInterval;
    const Nanoseconds used = processorTime();
    if (!m_isTimeKnown) // a part's time counts from here: most are over before it is asked for
        m_timeEnd = std::min(m_frameTimeEnd, used + m_limits.itemTime);
    m_isTimeKnown = true;
    return used >= m_timeEnd;
}

void CWatchdog::fail(lua_State *state, int level)
{
    // The place where the clock strikes differs from run to run: it is not told.
    if (of(state).m_end == EEnd::Clock)
        lua_pushliteral(state, "");
    else
        luaL_where(state, level);
    lua_pushstring(state, of(state).reason());
    lua_concat(state, 2);
    lua_error(state);
    std::abort(); // lua_error does not return, which its declaration does not say
}

void CWatchdog::hook(lua_State *state, lua_Debug *)
{
    constexpr int RunningFunction = 0;
    CWatchdog &watchdog = of(state);
    if (!watchdog.isExpired())
        watchdog.m_work += static_cast<uint64_t>(watchdog.m_interval) * watchdog.m_reach.work();
    if (watchdog.look())
        fail(state, RunningFunction);
}

} // namespace kivemu
