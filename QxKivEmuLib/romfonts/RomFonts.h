#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The fonts that lie in the chip's ROM: handles 16 to 34, printable ASCII and Latin-1, as 8-bit
/// coverage masks. 16 to 19 are fixed-pitch, 20 to 25 bold, 26 to 34 regular. Character 0x85 is the
/// ellipsis. Advances are whole pixels, so that glyphs keep their gaps wherever a text starts.
/// Lengths with the suffix 16 are in sixteenths of a pixel; all others in whole pixels.
namespace romfonts {

constexpr int FirstFont = 16;
constexpr int LastFont = 34;

/// One character's mask. Rows are `stride` bytes apart, and `stride` is a multiple of 8 with zero
/// bytes behind `width`, so that a kernel may read whole groups of eight.
struct SGlyph
{
    const uint8_t *coverage; ///< null for a glyph without ink
    int width;
    int height;
    int stride;
    int left;      ///< from the pen to the mask's left column
    int top;       ///< from the baseline up to the mask's top row
    int advance16; ///< how far the pen moves
};

bool isFont(int font);
/// Height of the line: ascent plus descent. 0 for an unknown font, as all metrics below.
int height(int font);
int ascent(int font);
/// Height of a capital letter above the baseline; half of it is the optical centre of a text.
int capHeight(int font);
/// Size of the em square, the figure that other font systems call the pixel size.
int emSize(int font);

/// The glyph of a Latin-1 character; for characters without one, the glyph of "?". Null for an
/// unknown font.
const SGlyph *glyph(int font, uint8_t character);

/// How far a text of Latin-1 characters moves the pen.
int textWidth16(int font, std::string_view latin1);

/// UTF-8 as Latin-1. Typographic dashes and quotes become their ASCII forms, the ellipsis 0x85;
/// what else Latin-1 lacks becomes "?", each malformed byte and the control characters from 0x7F on
/// too. `missing` gets the well-formed code points whose glyph will be that of "?", each once, and
/// no more when it has MostMissing.
constexpr size_t MostMissing = 32;
std::string toLatin1(std::string_view utf8, std::u32string *missing = nullptr);

} // namespace romfonts
