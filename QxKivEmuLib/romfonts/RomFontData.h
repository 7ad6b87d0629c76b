#pragma once

#include "RomFonts.h"

namespace romfonts {

/// One font as the generator writes it.
struct SFontData
{
    int height;
    int ascent;
    int capHeight;
    int emSize;
    const SGlyph *glyphs; ///< GlyphCount of them, in the order of glyphIndex()
};

/// 0x20 .. 0x7E, then the ellipsis, then 0xA0 .. 0xFF.
constexpr int GlyphCount = 95 + 1 + 96;
constexpr uint8_t Ellipsis = 0x85;

/// Where a character's glyph stands; -1 when there is none.
constexpr int glyphIndex(uint8_t character)
{
    if (character >= 0x20 && character <= 0x7E)
        return character - 0x20;
    if (character == Ellipsis)
        return 95;
    return character >= 0xA0 ? 96 + character - 0xA0 : -1;
}

extern const SFontData FontData[LastFont - FirstFont + 1];

} // namespace romfonts
