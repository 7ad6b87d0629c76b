#include "CLuaSandbox.h"

#include "CLuaAllocator.h"
#include "SandboxLibraries.h"
#include "host/draw/DrawApi.h"

#include <algorithm>

namespace kivemu {

namespace {

/// Whether the escape behind a backslash means the character 0, as in "0", "x00" or "u{0}".
bool isZeroEscape(std::string_view escape)
{
    const bool isHex = escape.substr(0, 1) == "x";
    const bool isCode = escape.substr(0, 2) == "u{";
    const size_t start = isHex ? 1 : isCode ? 2 : 0;
    const size_t most = isHex ? 2 : isCode ? escape.size() : 3;
    const char *const digits = isHex || isCode ? "0123456789abcdefABCDEF" : "0123456789";
    std::string_view number = escape.substr(std::min(start, escape.size()), most);
    number = number.substr(0, number.find_first_not_of(digits));
    return !number.empty() && number.find_first_not_of('0') == std::string_view::npos;
}

bool hasZeroEscape(std::string_view text)
{
    for (size_t at = text.find('\\'); at != std::string_view::npos && at + 1 < text.size();
         at = text.find('\\', at + 2)) { // what is escaped may be a backslash
        if (isZeroEscape(text.substr(at + 1)))
            return true;
    }
    return false;
}

} // namespace

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
    if (hasZeroEscape(text))
        return "a text cannot hold zero bytes, as an escape such as \\0 makes them";
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
