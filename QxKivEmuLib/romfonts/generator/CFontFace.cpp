#include "CFontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H

CFontFace::CFontFace(const std::string &file)
{
    if (FT_Init_FreeType(&m_library))
        throw std::runtime_error("FreeType cannot start");
    if (FT_New_Face(m_library, file.c_str(), 0, &m_face)) {
        FT_Done_FreeType(m_library);
        throw std::runtime_error(file + ": cannot be read as a font");
    }
}

CFontFace::~CFontFace()
{
    FT_Done_Face(m_face);
    FT_Done_FreeType(m_library);
}

int CFontFace::scaled(int fontUnits) const
{
    const int em = m_face->units_per_EM;
    return (fontUnits * m_emSize + em / 2) / em;
}

void CFontFace::fitLineHeight(int height)
{
    for (m_emSize = height; m_emSize > 1; --m_emSize) {
        if (scaled(m_face->ascender) + scaled(-m_face->descender) <= height)
            break;
    }
    if (FT_Set_Pixel_Sizes(m_face, 0, static_cast<FT_UInt>(m_emSize)))
        throw std::runtime_error("font size cannot be set");
}

int CFontFace::ascent() const
{
    return scaled(m_face->ascender);
}

int CFontFace::capHeight() const
{
    return draw('H').top;
}

SDrawnGlyph CFontFace::draw(char32_t codePoint) const
{
    const FT_UInt index = FT_Get_Char_Index(m_face, codePoint);
    // Light hinting moves stems vertically only: small sizes get crisp bars and keep their spacing.
    if (index == 0 || FT_Load_Glyph(m_face, index, FT_LOAD_RENDER | FT_LOAD_TARGET_LIGHT))
        throw std::runtime_error("no glyph for code point " + std::to_string(codePoint));
    const FT_GlyphSlot slot = m_face->glyph;
    const FT_Bitmap &bitmap = slot->bitmap;
    SDrawnGlyph glyph;
    glyph.width = static_cast<int>(bitmap.width);
    glyph.height = static_cast<int>(bitmap.rows);
    glyph.left = slot->bitmap_left;
    glyph.top = slot->bitmap_top;
    glyph.advance16 = static_cast<int>((slot->linearHoriAdvance + 0x8000) >> 16) * 16;
    for (int y = 0; y < glyph.height; ++y) {
        const uint8_t *row = bitmap.buffer + ptrdiff_t{y} * bitmap.pitch;
        glyph.coverage.insert(glyph.coverage.end(), row, row + glyph.width);
    }
    return glyph;
}
