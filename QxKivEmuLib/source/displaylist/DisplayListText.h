#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kivemu {

/// The text form of a list: "NAME(arg, arg);" for every command, all on one line with nothing
/// between them. Lossless: words that are no command are written "WORD(0x…);".
/// No text contains ";" anywhere but at a command's end, so that a reader may break lines there.
std::string disassemble(const uint32_t *words, size_t count);

/// The words of a text form (line breaks and blanks between tokens are allowed); nothing and a
/// message with the line when the text is malformed.
std::optional<std::vector<uint32_t>> assemble(std::string_view text, std::string *error);

/// Words as little-endian bytes, and back (a rest of less than four bytes is left out).
std::vector<uint8_t> toBytes(const std::vector<uint32_t> &words);
std::vector<uint32_t> fromBytes(const uint8_t *bytes, size_t count);

} // namespace kivemu
