#pragma once

#include "SLuaContext.h"

#include <string>
#include <string_view>

namespace kivemu {

/// A Lua state with the allowed libraries and the drawing API, its memory limited. The context that
/// its C functions reach lives as long as the state.
/// Threads: one thread at a time.
class CLuaSandbox
{
public:
    explicit CLuaSandbox(size_t memoryLimit);
    ~CLuaSandbox();
    CLuaSandbox(const CLuaSandbox &) = delete;
    CLuaSandbox &operator=(const CLuaSandbox &) = delete;

    /// Null when not even the libraries fit into the memory.
    lua_State *state() const { return m_state; }
    SLuaContext &context() { return m_context; }

    /// Compiles text (bytecode is refused) and pushes the function, or pushes nothing and gives the
    /// message. `name` is what messages call the text, as in "name:line: …".
    std::string compile(std::string_view text, const char *name);

    /// The message of the error object at the top of the stack, which is popped: whatever it is.
    std::string popError(int status);

private:
    static int openLibraries(lua_State *state);

    SLuaContext m_context;
    lua_State *m_state = nullptr;
};

/// Makes a message of Lua one line of bounded length, its position as "line 3: …".
std::string tidyMessage(std::string_view message);

} // namespace kivemu
