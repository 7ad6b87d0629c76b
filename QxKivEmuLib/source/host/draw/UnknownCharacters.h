#pragma once

#include <string>
#include <string_view>

namespace kivemu {

/// What is told of characters that no font has: the first of them by their code, and as they look
/// where that does no harm to a line of text.
std::string messageOfUnknown(std::u32string_view characters);
/// The same of a font of the project, by its name.
std::string messageOfMissing(const std::string &font, std::u32string_view characters);

} // namespace kivemu
