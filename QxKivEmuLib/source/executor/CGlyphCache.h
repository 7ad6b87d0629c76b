#pragma once

#include "RomFonts.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace kivemu {

class CRamG;
struct SFontGlyph;

/// Expands each glyph mask of a graphics memory once, to the rows that glyphs in ROM have too.
/// Holds at most MaxBytes of rows: when more would be needed, all are dropped.
class CGlyphCache
{
public:
    static constexpr size_t MaxBytes = 16U << 20;

    /// Drops what was expanded from other contents than those of `memory`.
    void follow(const CRamG &memory);
    /// The glyph of that number in the font block at `block`, in the memory that was followed last.
    /// `glyph` is what the block says of it, and has ink. Valid until the next call.
    const romfonts::SGlyph &find(uint32_t block, uint32_t number, int bits,
                                 const SFontGlyph &glyph);

    size_t bytes() const { return m_bytes; }

private:
    struct SExpanded
    {
        std::vector<uint8_t> rows;
        romfonts::SGlyph glyph;
    };
    void clear();

    uint64_t m_generation = 0;
    size_t m_bytes = 0;
    std::unordered_map<uint64_t, SExpanded> m_glyphs; ///< by block and number
};

} // namespace kivemu
