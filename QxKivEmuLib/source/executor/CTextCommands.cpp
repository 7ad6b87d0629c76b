#include "CTextCommands.h"

#include "CDrawingBudget.h"
#include "CGlyphCache.h"
#include "CRamG.h"
#include "RomFonts.h"
#include "raster/CRasterizer.h"

namespace kivemu {

namespace {

constexpr Sub16 Pixel = 16;

/// Whether a mask whose pen is at the column and row reaches into the clip. For a glyph as it lies
/// in a font block, and for one of the rasterizer.
template<typename Glyph>
bool isSeen(const SClip &clip, const Glyph &glyph, int64_t column, int64_t row)
{
    const int64_t left = column + glyph.left;
    const int64_t top = row - glyph.top;
    return left < clip.right && left + glyph.width > clip.left && top < clip.bottom &&
           top + glyph.height > clip.top;
}

} // namespace

CTextCommands::CTextCommands(const SExecution &execution, CGlyphCache &glyphs)
    : m_chip(execution), m_glyphs(glyphs)
{
    m_glyphs.follow(m_chip.memory);
}

int64_t CTextCommands::penColumn() const
{
    return (m_pen.x + Pixel / 2) >> 4;
}

void CTextCommands::text(const uint32_t *words)
{
    const auto font = static_cast<int>(operand(words[0]));
    const SPoint pen = point(words[1]);
    m_pen = {EFont::Rom, font, pen.x, (pen.y + Pixel / 2) >> 4, false};
    if (romfonts::isFont(font))
        return;
    m_pen.kind = EFont::Unusable;
    if (static_cast<uint32_t>(font) >= FontHandles) {
        failOnce(EOpcode::Text, "there is no font " + std::to_string(font));
        return;
    }
    m_font = m_bindings[static_cast<size_t>(font)];
    if (m_font.block)
        m_pen.kind = EFont::Own;
    else if (!m_font.isBound)
        failOnce(EOpcode::Text, "no FONT has bound the handle " + std::to_string(font));
}

void CTextCommands::chars(const uint32_t *words)
{
    if (!canDraw(EOpcode::Chars, EFont::Rom))
        return;
    for (uint32_t rest = operand(words[0]); rest != 0; rest >>= 8) {
        const auto character = static_cast<uint8_t>(rest & 0xFF);
        if (character == 0)
            continue;
        const romfonts::SGlyph *glyph = romfonts::glyph(m_pen.font, character);
        const int64_t x = penColumn();
        if (x + glyph->left < m_chip.state.clip.right)
            m_chip.rasterizer.drawGlyph(*glyph, static_cast<int>(x), m_pen.baseline,
                                        m_chip.state.paint);
        m_pen.x += glyph->advance16;
    }
}

void CTextCommands::font(const uint32_t *words)
{
    const CRamG &memory = m_chip.memory;
    std::string fault;
    m_bindings[operand(words[0])] = {
        true, words[1], CFontBlock::find(memory.data(), memory.used(), words[1], fault)};
    if (!fault.empty())
        m_chip.errors.add(EOpcode::Font, fault);
}

void CTextCommands::glyph(const uint32_t *words)
{
    if (!canDraw(EOpcode::Glyph, EFont::Own))
        return;
    const uint32_t number = words[0] & 0xFFFF;
    const romfonts::SGlyph *known = m_glyphs.find(m_font.address, number);
    std::optional<int> advance;
    if (known) {
        draw(*known);
        advance = known->advance16;
    } else {
        advance = drawFirst(number);
    }
    if (advance)
        m_pen.x += *advance + static_cast<int8_t>(words[0] >> 16 & 0xFF);
}

/// A glyph that is not expanded yet: only what is seen will be. Gives its advance; nothing when it
/// is malformed.
std::optional<int> CTextCommands::drawFirst(uint32_t number)
{
    std::string fault;
    const auto glyph = m_font.block->glyph(number, fault);
    if (!glyph) {
        failOnce(EOpcode::Glyph, fault);
        return std::nullopt;
    }
    if (glyph->hasInk() && isSeen(m_chip.state.clip, *glyph, penColumn(), m_pen.baseline))
        draw(m_glyphs.expand(m_font.address, number, m_font.block->bits(), *glyph));
    return glyph->advance16;
}

void CTextCommands::draw(const romfonts::SGlyph &glyph)
{
    const int64_t column = penColumn();
    if (!isSeen(m_chip.state.clip, glyph, column, m_pen.baseline))
        return;
    m_chip.budget.countMask(glyph.width, glyph.height);
    m_chip.rasterizer.drawGlyph(glyph, static_cast<int>(column), m_pen.baseline,
                                m_chip.state.paint);
}

/// Whether the pen's font is of the kind that the command draws.
bool CTextCommands::canDraw(EOpcode opcode, EFont kind)
{
    if (m_pen.kind == EFont::None)
        m_chip.errors.add(opcode, "there is no TEXT before");
    else if (m_pen.kind != kind && m_pen.kind != EFont::Unusable)
        failOnce(opcode, "font " + std::to_string(m_pen.font) +
                             (m_pen.kind == EFont::Rom ? " is in ROM" : " is not in ROM"));
    return m_pen.kind == kind;
}

/// A text of many glyphs has the same fault many times.
void CTextCommands::failOnce(EOpcode opcode, const std::string &what)
{
    if (!m_pen.isFaultTold)
        m_chip.errors.add(opcode, what);
    m_pen.isFaultTold = true;
}

} // namespace kivemu
