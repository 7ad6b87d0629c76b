#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace kivemu {

/// Opens an arbitrary font, reads what it says, shapes, fits and breaks texts of several scripts
/// and draws their glyphs: it is refused with a reason, or gives a well-formed block of glyphs
/// within the limits, the same each time. Input: a byte each for size, turn and bits, the axes and
/// the text; then the font.
std::string checkFonts(const uint8_t *data, size_t size);

} // namespace kivemu
