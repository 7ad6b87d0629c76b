#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CFontFace;

/// The C++ source of all fonts: gathers them and writes RomFontData.cpp.
class CRomImage
{
public:
    /// Appends the next font, in the face's present size.
    void add(const CFontFace &face, int height);
    /// False when the file could not be written whole.
    bool write(const std::string &file) const;

private:
    std::string maskLiteral() const;

    std::vector<uint8_t> m_masks; ///< of all glyphs, rows padded
    std::string m_glyphs;         ///< initialisers
    std::string m_fonts;
    int m_fontCount = 0;
};
