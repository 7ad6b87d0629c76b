#pragma once

#include <string>

namespace kivemu {

/// The page docs/display-list.md: the encoding and every command, from the command table.
std::string displayListMarkdown();

} // namespace kivemu
