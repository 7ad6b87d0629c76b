#pragma once

#include "ChipState.h"
#include "displaylist/FontBlock.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace romfonts {
struct SGlyph;
}

namespace kivemu {

class CGlyphCache;

/// The commands that draw texts, and what they set: the pen, its font, and what the handles mean.
/// A text with a fault reports it once; what cannot be drawn is left out.
class CTextCommands
{
public:
    /// Both must outlive the commands, and the memory must stay as it is.
    CTextCommands(const SExecution &execution, CGlyphCache &glyphs);

    // `words` starts with the header.
    void text(const uint32_t *words);
    void chars(const uint32_t *words);
    void font(const uint32_t *words);
    void glyph(const uint32_t *words);

private:
    enum class EFont { None, Unusable, Rom, Own };
    /// Where the next character goes, in sixteenths; wide enough for any number of characters.
    struct SPen
    {
        EFont kind = EFont::None;
        int font = 0;
        int64_t x = 0;
        int baseline = 0; ///< whole pixels
        bool isFaultTold = false;
    };
    /// What a handle means.
    struct SBinding
    {
        bool isBound = false;
        uint32_t address = 0;
        std::optional<CFontBlock> block; ///< nothing: there is none at the address
    };

    int64_t penColumn() const;
    bool canDraw(EOpcode opcode, EFont kind);
    void failOnce(EOpcode opcode, const std::string &what);
    std::optional<int> drawFirst(uint32_t number);
    void draw(const romfonts::SGlyph &glyph);

    const SExecution m_chip;
    CGlyphCache &m_glyphs;
    SPen m_pen;
    SBinding m_font; ///< of the pen, as its handle was when TEXT chose it
    std::array<SBinding, FontHandles> m_bindings;
};

} // namespace kivemu
