#include "CLuaSandbox.h"

#include "CLuaAllocator.h"
#include "SandboxLibraries.h"
#include "host/draw/DrawApi.h"

#include <algorithm>

namespace kivemu {

CLuaSandbox::CLuaSandbox(size_t memoryLimit)
{
    m_context.memoryLimit = memoryLimit;
    m_state = lua_newstate(CLuaAllocator::allocate, &m_context);
    if (!m_state)
        return;
    *static_cast<SLuaContext **>(lua_getextraspace(m_state)) = &m_context;
    lua_pushcfunction(m_state, openLibraries);
    if (lua_pcall(m_state, 0, 0, 0) != LUA_OK) {
        lua_close(m_state);
        m_state = nullptr;
    }
}

CLuaSandbox::~CLuaSandbox()
{
    if (m_state)
        lua_close(m_state);
}

int CLuaSandbox::openLibraries(lua_State *state)
{
    openSandboxBase(state);
    openSandboxString(state);
    openSandboxTable(state);
    openSandboxUtf8(state);
    openSandboxMath(state);
    lua_pushglobaltable(state);
    addDrawApi(state);
    return 0;
}

std::string CLuaSandbox::compile(std::string_view text, const char *name)
{
    const std::string chunkName = std::string("=") + name;
    const int status = luaL_loadbufferx(m_state, text.data(), text.size(), chunkName.c_str(), "t");
    return status == LUA_OK ? std::string() : popError(status);
}

std::string CLuaSandbox::popError(int status)
{
    std::string message;
    if (status == LUA_ERRMEM && m_context.watchdog.isExpired()) {
        message = m_context.watchdog.reason(); // the allocator was asked after the end
    } else if (status == LUA_ERRMEM) {
        message = "not enough memory: a frame has " + std::to_string(m_context.memoryLimit >> 20) +
                  " MiB, a text " + std::to_string(CLuaAllocator::MaxString / 1024) +
                  " KiB, a table " + std::to_string(CLuaAllocator::MaxKeys) + " keys";
    } else if (lua_type(m_state, -1) == LUA_TSTRING) {
        size_t length = 0;
        const char *text = lua_tolstring(m_state, -1, &length);
        message = tidyMessage({text, length});
    } else if (lua_type(m_state, -1) == LUA_TNUMBER) {
        message = "error " + std::to_string(lua_tonumber(m_state, -1));
    } else {
        message = std::string("error without a message (its value is a ") +
                  luaL_typename(m_state, -1) + ")";
    }
    lua_pop(m_state, 1);
    return message.empty() ? "error without a message (an empty text)" : message;
}

std::string tidyMessage(std::string_view message)
{
    constexpr size_t MaxLength = 400;
    // Chunks are named "line", so that Lua's "line:3: what" only lacks a blank.
    constexpr std::string_view Position = "line:";
    std::string tidy;
    if (message.substr(0, Position.size()) == Position) {
        tidy = "line ";
        message.remove_prefix(Position.size());
    }
    const bool isCut = message.size() > MaxLength;
    tidy += message.substr(0, MaxLength);
    if (isCut)
        tidy += "...";
    std::replace_if(
        tidy.begin(), tidy.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return tidy;
}

} // namespace kivemu
