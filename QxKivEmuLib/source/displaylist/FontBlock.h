#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kivemu {

// A font of the project's own as it lies in RAM_G: glyph masks with their metrics. The bytes are
// described in docs/display-list.md; only this file pair writes and reads them.

constexpr uint32_t FontHandles = 16; ///< FONT binds the handles 0 to 15; fonts in ROM lie above
constexpr uint32_t MaxFontGlyphs = 65536;
constexpr int MaxGlyphSide = 512; ///< texels
constexpr size_t FontBlockAlignment = 4;

/// One glyph: its metrics, and its mask as a block holds it.
struct SFontGlyph
{
    int width = 0; ///< texels, 0 to MaxGlyphSide
    int height = 0;
    int left = 0;      ///< pixels from the pen to the mask's left column; 16 bits, as the next
    int top = 0;       ///< pixels from the baseline up to the mask's top row
    int advance16 = 0; ///< 1/16 pixel that the pen moves to the right; 16 bits
    /// `height` rows of fontRowBytes(); null for a glyph without ink. Not owned.
    const uint8_t *mask = nullptr;

    bool hasInk() const { return width > 0 && height > 0; }
};

/// Whether a texel may have so many bits: 1, 2, 4 or 8.
bool isFontDepth(uint32_t bits);
/// Bytes of a row of a mask.
size_t fontRowBytes(int bits, int width);
size_t fontMaskBytes(int bits, const SFontGlyph &glyph);

/// Masks of `bits` a texel, rounded from 8-bit coverage whose rows are `stride` bytes apart.
std::vector<uint8_t> packCoverage(int bits, int width, int height, const uint8_t *coverage,
                                  size_t stride);
/// A mask as 8-bit coverage, in rows `stride` bytes (at least its width) apart; what lies behind
/// the width is left as it is.
void expandMask(int bits, const SFontGlyph &glyph, uint8_t *coverage, size_t stride);

/// Bytes that the block of these glyphs takes.
size_t fontBlockBytes(int bits, const std::vector<SFontGlyph> &glyphs);
/// The block of 1 to MaxFontGlyphs glyphs, whose masks have `bits` a texel. What its numbers cannot
/// hold is a mistake of the caller (asserted).
std::vector<uint8_t> writeFontBlock(int bits, const std::vector<SFontGlyph> &glyphs);

/// A font block within a memory that may hold anything: nothing is read past the memory's end.
/// Owns nothing; the memory must outlive it.
class CFontBlock
{
public:
    /// Nothing, and why in `fault`, when no block with a whole table of glyphs starts at `address`.
    static std::optional<CFontBlock> find(const uint8_t *memory, size_t size, uint32_t address,
                                          std::string &fault);

    int bits() const { return m_bits; }
    uint32_t glyphCount() const { return m_glyphCount; }
    /// Nothing, and why in `fault`, for a number that the block has not, and for a glyph that is
    /// malformed or whose mask reaches beyond the memory.
    std::optional<SFontGlyph> glyph(uint32_t number, std::string &fault) const;

private:
    CFontBlock(const uint8_t *bytes, size_t size, int bits, uint32_t glyphCount);

    const uint8_t *m_bytes;
    size_t m_size; ///< from the block's start to the memory's end
    int m_bits;
    uint32_t m_glyphCount;
};

} // namespace kivemu
