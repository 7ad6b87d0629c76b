#include "CTextFaces.h"

#include <hb.h>

namespace kivemu {

CTextFaces::CTextFaces(std::vector<std::shared_ptr<CTypeface>> typefaces, int size64)
    : m_size64(size64)
{
    for (auto &typeface : typefaces) {
        CTypeface::FontPtr font = typeface->makeFont(size64);
        m_faces.push_back({std::move(typeface), std::move(font)});
    }
}

bool CTextFaces::has(size_t face, char32_t c) const
{
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(font(face), c, &glyph) && glyph != 0;
}

uint32_t CTextFaces::slotOf(uint32_t face, uint32_t glyph)
{
    const auto [known, isNew] = m_slotNumbers.try_emplace(uint64_t{face} << 32 | glyph,
                                                          static_cast<uint32_t>(m_slots.size()));
    if (isNew)
        m_slots.push_back({face, glyph, hb_font_get_glyph_h_advance(font(face), glyph)});
    return known->second;
}

uint32_t CTextFaces::slotOfCharacter(char32_t c)
{
    for (uint32_t face = 0; face < m_faces.size(); ++face) {
        hb_codepoint_t glyph = 0;
        if (hb_font_get_nominal_glyph(font(face), c, &glyph) && glyph != 0)
            return slotOf(face, glyph);
    }
    return slotOf(0, 0);
}

} // namespace kivemu
