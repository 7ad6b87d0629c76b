#include "CAssetAddresses.h"

#include "displaylist/CommandTable.h"

using namespace kivemu;

void CAssetAddresses::takeCommand(const SCommand &command, const uint32_t *words, size_t header)
{
    const uint32_t font = words[header] & HeaderOperandMask;
    m_named.reset();
    m_drawn.reset();
    switch (command.opcode) {
    case EOpcode::BitmapSource:
        m_named = m_bitmap = words[header + 1];
        break;
    case EOpcode::Font:
        m_named = words[header + 1];
        if (font < FontHandles)
            m_fonts[font] = m_named;
        break;
    case EOpcode::Text:
        m_font = font < FontHandles ? m_fonts[font] : std::nullopt;
        break;
    case EOpcode::Bitmap:
        m_drawn = m_bitmap;
        break;
    case EOpcode::Glyph:
        m_drawn = m_font;
        break;
    default:
        break;
    }
}
