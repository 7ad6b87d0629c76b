#include "CGlyphCache.h"

#include "CRamG.h"
#include "displaylist/FontBlock.h"

#include <utility>

namespace kivemu {

namespace {

constexpr size_t Group = 8; ///< bytes that the kernels read at once

uint64_t keyOf(uint32_t block, uint32_t number)
{
    return uint64_t{block} << 32 | number;
}

} // namespace

void CGlyphCache::clear()
{
    m_glyphs.clear();
    m_recent.fill({});
    m_bytes = 0;
}

void CGlyphCache::follow(const CRamG &memory)
{
    if (memory.generation() == m_generation)
        return;
    clear();
    m_generation = memory.generation();
}

CGlyphCache::SRecent &CGlyphCache::recent(uint64_t key)
{
    const uint64_t place = (key >> 32) / FontBlockAlignment * 61 + key;
    return m_recent[place % m_recent.size()];
}

const romfonts::SGlyph *CGlyphCache::find(uint32_t block, uint32_t number)
{
    const uint64_t key = keyOf(block, number);
    SRecent &recent = this->recent(key);
    if (recent.glyph && recent.key == key)
        return recent.glyph;
    const auto found = m_glyphs.find(key);
    if (found == m_glyphs.end())
        return nullptr;
    recent = {key, &found->second.glyph};
    return recent.glyph;
}

const romfonts::SGlyph &CGlyphCache::expand(uint32_t block, uint32_t number, int bits,
                                            const SFontGlyph &glyph)
{
    const size_t stride = (static_cast<size_t>(glyph.width) + Group - 1) / Group * Group;
    SExpanded expanded;
    expanded.rows.resize(stride * static_cast<size_t>(glyph.height));
    expandMask(bits, glyph, expanded.rows.data(), stride);
    expanded.glyph = {expanded.rows.data(), glyph.width, glyph.height,   static_cast<int>(stride),
                      glyph.left,           glyph.top,   glyph.advance16};
    if (m_bytes + expanded.rows.size() > MaxBytes)
        clear();
    m_bytes += expanded.rows.size();
    return m_glyphs.emplace(keyOf(block, number), std::move(expanded)).first->second.glyph;
}

} // namespace kivemu
