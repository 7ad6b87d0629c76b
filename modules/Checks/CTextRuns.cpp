#include "CTextRuns.h"

#include "RomFonts.h"
#include "displaylist/CommandTable.h"
#include "displaylist/FontBlock.h"

#include <algorithm>

using namespace kivemu;

namespace {

int low16(uint32_t word)
{
    return static_cast<int16_t>(word & 0xffff);
}

int high16(uint32_t word)
{
    return static_cast<int16_t>(word >> 16);
}

/// The pixel that the pen is rounded to.
int pixel(int sixteenths)
{
    return (sixteenths + 8) >> 4;
}

} // namespace

void CTextRuns::take(EOpcode opcode, const uint32_t *words, quint32 tag)
{
    const uint32_t operand = words[0] & HeaderOperandMask;
    switch (opcode) {
    case EOpcode::Colour:
        m_colour = operand;
        break;
    case EOpcode::Save:
        m_savedColours.append(m_colour);
        break;
    case EOpcode::Restore:
        if (!m_savedColours.isEmpty())
            m_colour = m_savedColours.takeLast();
        break;
    case EOpcode::Font:
        if (operand < FontHandles)
            m_blocks[operand] = words[1] + 1;
        break;
    case EOpcode::Text: {
        m_font = static_cast<int>(operand);
        m_x16 = low16(words[1]);
        m_y16 = high16(words[1]);
        CListProbe::STextRun run;
        run.tag = tag;
        run.colour = m_colour | 0xff000000U;
        run.lineHeight = romfonts::height(m_font);
        m_runs.append(run);
        break;
    }
    case EOpcode::Chars:
        takeChars(operand);
        break;
    case EOpcode::Glyph:
        takeGlyph(operand);
        break;
    default:
        break;
    }
}

void CTextRuns::takeChars(uint32_t operand)
{
    for (int shift = 0; shift < 24; shift += 8) {
        const auto character = static_cast<uint8_t>(operand >> shift);
        const romfonts::SGlyph *glyph = character ? romfonts::glyph(m_font, character) : nullptr;
        if (!glyph || m_runs.isEmpty())
            continue;
        addInk(glyph->left, glyph->top, glyph->width, glyph->height, glyph->advance16);
    }
}

void CTextRuns::takeGlyph(uint32_t operand)
{
    if (m_font < 0 || m_font >= static_cast<int>(FontHandles) || m_runs.isEmpty() ||
        m_blocks[m_font] == 0)
        return;
    std::string fault;
    const auto block =
        CFontBlock::find(reinterpret_cast<const uint8_t *>(m_memory.constData()),
                         static_cast<size_t>(m_memory.size()), m_blocks[m_font] - 1, fault);
    const auto glyph = block ? block->glyph(operand & 0xffff, fault) : std::nullopt;
    if (!glyph)
        return;
    const int shift16 = static_cast<int8_t>(operand >> 16);
    m_runs.last().lineHeight = std::max(m_runs.last().lineHeight, glyph->height);
    addInk(glyph->left, glyph->top, glyph->width, glyph->height, glyph->advance16 + shift16);
}

void CTextRuns::addInk(int left, int top, int width, int height, int advance16)
{
    if (width > 0 && height > 0)
        m_runs.last().ink |= QRect(pixel(m_x16) + left, pixel(m_y16) - top, width, height);
    m_x16 += advance16;
}

QVector<CListProbe::STextRun> CTextRuns::runs() const
{
    QVector<CListProbe::STextRun> inked;
    for (const CListProbe::STextRun &run : m_runs)
        if (!run.ink.isEmpty())
            inked.append(run);
    return inked;
}
