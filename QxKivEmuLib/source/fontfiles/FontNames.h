#pragma once

#include <string>

struct FT_FaceRec_;

namespace kivemu {

enum class ENameLines {
    One,    ///< line ends become blanks
    Several ///< line ends stay
};

/// An entry of a font's table of names as UTF-8, in English where there is a choice, without
/// control characters and with U+FFFD for what is no text; empty when there is none.
std::string fontName(FT_FaceRec_ *face, unsigned id, ENameLines lines = ENameLines::One);

} // namespace kivemu
