#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kivemu {

/// Which global names a Lua chunk may assign.
/// Found without the grammar, so the list may hold too many names (locals that are assigned later,
/// for one) but never too few. The text must be valid Lua.
struct SChunkAssignments
{
    std::vector<std::string> names;
    /// It names _ENV, and may assign anything through that.
    bool isUnbounded = false;
};

SChunkAssignments findAssignments(std::string_view chunk);

} // namespace kivemu
