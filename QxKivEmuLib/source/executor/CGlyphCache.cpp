#include "CGlyphCache.h"

#include "CRamG.h"
#include "displaylist/FontBlock.h"

#include <utility>

namespace kivemu {

namespace {

constexpr size_t Group = 8; ///< bytes that the kernels read at once

} // namespace

void CGlyphCache::clear()
{
    m_glyphs.clear();
    m_bytes = 0;
}

void CGlyphCache::follow(const CRamG &memory)
{
    if (memory.generation() == m_generation)
        return;
    clear();
    m_generation = memory.generation();
}

const romfonts::SGlyph &CGlyphCache::find(uint32_t block, uint32_t number, int bits,
                                          const SFontGlyph &glyph)
{
    const uint64_t key = uint64_t{block} << 32 | number;
    const auto found = m_glyphs.find(key);
    if (found != m_glyphs.end())
        return found->second.glyph;
    const size_t stride = (static_cast<size_t>(glyph.width) + Group - 1) / Group * Group;
    SExpanded expanded;
    expanded.rows.resize(stride * static_cast<size_t>(glyph.height));
    expandMask(bits, glyph, expanded.rows.data(), stride);
    expanded.glyph = {expanded.rows.data(), glyph.width, glyph.height,   static_cast<int>(stride),
                      glyph.left,           glyph.top,   glyph.advance16};
    if (m_bytes + expanded.rows.size() > MaxBytes)
        clear();
    m_bytes += expanded.rows.size();
    return m_glyphs.emplace(key, std::move(expanded)).first->second.glyph;
}

} // namespace kivemu
