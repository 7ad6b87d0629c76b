#pragma once

#include "RomFonts.h"

#include <array>
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
    /// The glyph of that number in the font block at `block`, in the memory that was followed last;
    /// null when it has not been expanded. Valid until the next expand().
    const romfonts::SGlyph *find(uint32_t block, uint32_t number);
    /// As find(), of a glyph that it has not. `glyph` is what the block says of it, and has ink.
    const romfonts::SGlyph &expand(uint32_t block, uint32_t number, int bits,
                                   const SFontGlyph &glyph);

    size_t bytes() const { return m_bytes; }

private:
    struct SExpanded
    {
        std::vector<uint8_t> rows;
        romfonts::SGlyph glyph{};
    };
    struct SRecent
    {
        uint64_t key = 0;
        const romfonts::SGlyph *glyph = nullptr;
    };
    void clear();
    SRecent &recent(uint64_t key);

    uint64_t m_generation = 0;
    size_t m_bytes = 0;
    std::unordered_map<uint64_t, SExpanded> m_glyphs; ///< by block and number
    std::array<SRecent, 1024> m_recent; ///< texts use few glyphs: found without looking in the map
};

} // namespace kivemu
