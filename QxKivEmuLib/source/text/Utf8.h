#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kivemu {

/// A text by its code points, and where they came from.
struct SDecodedText
{
    std::u32string text;
    std::vector<uint32_t> offsets; ///< bytes before each code point, and behind the last
};

/// At most `most` code points; U+FFFD for each byte that is malformed. Line ends, tabs and other
/// control characters become blanks.
SDecodedText decodeUtf8(std::string_view utf8, size_t most);

} // namespace kivemu
