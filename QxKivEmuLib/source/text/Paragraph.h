#pragma once

#include "Utf8.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kivemu {

class CTextBreaks;
class CTextFaces;

/// A text with all that has to be known of it as a whole before it is taken apart into lines.
struct SParagraph
{
    SDecodedText decoded;
    bool isRightToLeft = false;
    std::vector<uint32_t> types;   ///< of FriBidi, one a code point; so the next
    std::vector<int8_t> levels;    ///< odd ones run from right to left
    std::vector<uint32_t> scripts; ///< of HarfBuzz
    std::vector<uint16_t> faces;   ///< that draw it; a cluster has one

    const std::u32string &text() const { return decoded.text; }
};

SParagraph makeParagraph(SDecodedText decoded, const CTextFaces &faces, CTextBreaks &breaks);

} // namespace kivemu
