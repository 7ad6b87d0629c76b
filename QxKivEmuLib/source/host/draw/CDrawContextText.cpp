#include "CDrawContext.h"
#include "text/CTexts.h"

namespace kivemu {

void CDrawContext::text(double x, double y, int font, std::string_view latin1)
{
    if (latin1.empty())
        return;
    flush();
    m_writer.text(font, point(x, y), latin1);
}

void CDrawContext::glyphs(double x, double y, CTexts &texts, CTextFont &font,
                          const SShapedLine &line, IWorkMeter &meter)
{
    uint32_t number = 0;
    CGlyphBlock &block = texts.block(font, state().transform.degrees(), number);
    m_glyphs.clear();
    for (const SShapedGlyph &glyph : line.glyphs) {
        const std::optional<uint16_t> code = block.use(glyph.slot, meter);
        if (code)
            m_glyphs.push_back({*code, point(x + glyph.x / 64.0, y - glyph.y / 64.0),
                                block.advance16(glyph.slot)});
    }
    if (m_glyphs.empty())
        return;
    flush();
    m_writer.font(static_cast<uint32_t>(font.line().handle), number);
    m_writer.glyphs(static_cast<uint32_t>(font.line().handle), m_glyphs);
}

} // namespace kivemu
