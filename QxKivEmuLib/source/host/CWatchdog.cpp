#include "CWatchdog.h"

#include "SLuaContext.h"

#include <algorithm>
#include <lua.hpp>

namespace kivemu {

CWatchdog &CWatchdog::of(lua_State *state)
{
    return contextOf(state).watchdog;
}

void CWatchdog::arm(int interval)
{
    lua_sethook(m_state, interval > 0 ? hook : nullptr, interval > 0 ? LUA_MASKCOUNT : 0, interval);
}

void CWatchdog::start(lua_State *state, std::chrono::milliseconds frameLimit)
{
    m_state = state;
    m_frameDeadline = Clock::now() + frameLimit;
    m_deadline = m_frameDeadline;
    m_work = 0;
    m_expired = false;
    arm(HookInterval);
}

void CWatchdog::stop()
{
    if (m_state)
        arm(0);
    m_state = nullptr;
    m_expired = false;
}

void CWatchdog::beginPart(std::chrono::milliseconds limit)
{
    if (!m_expired)
        m_deadline = std::min(m_frameDeadline, Clock::now() + limit);
}

bool CWatchdog::endPart()
{
    const bool partOnly = m_expired && Clock::now() < m_frameDeadline;
    m_deadline = m_frameDeadline;
    if (partOnly) {
        m_expired = false;
        arm(HookInterval);
    }
    return partOnly;
}

bool CWatchdog::look()
{
    m_work = 0;
    if (m_state && !m_expired && Clock::now() >= m_deadline) {
        m_expired = true;
        arm(1);
    }
    return m_expired;
}

void CWatchdog::check(lua_State *state, int level)
{
    if (!look())
        return;
    luaL_where(state, level);
    lua_pushliteral(state, "stopped, because it takes too long");
    lua_concat(state, 2);
    lua_error(state);
}

void CWatchdog::hook(lua_State *state, lua_Debug *)
{
    constexpr int RunningFunction = 0;
    of(state).check(state, RunningFunction);
}

} // namespace kivemu
