#pragma once

#include "CTypeface.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace kivemu {

/// The fonts that draw one text: the chosen one and those that stand in for what it lacks, all of
/// one size. Glyphs of all of them are counted through ("slots"), so that who gathers glyphs has
/// one number for each.
class CTextFaces
{
public:
    struct SSlot
    {
        uint32_t face;
        uint32_t glyph;
        int32_t advance64; ///< how far the glyph by itself moves the pen
    };

    /// At least one typeface; the first is the chosen one.
    CTextFaces(std::vector<std::shared_ptr<CTypeface>> typefaces, int size64);

    int size64() const { return m_size64; }
    size_t count() const { return m_faces.size(); }
    hb_font_t *font(size_t face) const { return m_faces[face].font.get(); }
    CTypeface &typeface(size_t face) const { return *m_faces[face].typeface; }
    bool has(size_t face, char32_t c) const;

    uint32_t slotOf(uint32_t face, uint32_t glyph);
    /// The slot of a character by itself, in the first font that has it; that of glyph 0 otherwise.
    uint32_t slotOfCharacter(char32_t c);
    const SSlot &slot(uint32_t number) const { return m_slots[number]; }
    size_t slotCount() const { return m_slots.size(); }

private:
    struct SFace
    {
        std::shared_ptr<CTypeface> typeface;
        CTypeface::FontPtr font;
    };
    int m_size64;
    std::vector<SFace> m_faces;
    std::vector<SSlot> m_slots;
    std::unordered_map<uint64_t, uint32_t> m_slotNumbers; ///< by face and glyph
};

} // namespace kivemu
