#include "CFontMerge.h"

#include "CRamGPlan.h"
#include "displaylist/FontBlock.h"

#include <QHash>
#include <QMap>

#include <algorithm>
#include <numeric>
#include <optional>

using namespace kivemu;

namespace {

uint32_t inMemory(const QByteArray &block)
{
    return CRamGPlan::aligned(static_cast<uint32_t>(block.size()));
}

/// The glyphs of several blocks; the blocks must outlive it.
class CFontUnion
{
public:
    /// The numbers that the block's glyphs get; nothing when it is malformed, its texels have other
    /// bits, or there would be more glyphs than a block can have.
    std::optional<std::vector<uint16_t>> add(const QByteArray &block);
    QByteArray block() const
    {
        const std::vector<uint8_t> bytes = writeFontBlock(m_bits, m_glyphs);
        return {reinterpret_cast<const char *>(bytes.data()), static_cast<int>(bytes.size())};
    }

private:
    QByteArray identity(const SFontGlyph &glyph) const;

    int m_bits = 0;
    std::vector<SFontGlyph> m_glyphs;
    QHash<QByteArray, uint16_t> m_numbers; ///< by identity
};

std::optional<std::vector<uint16_t>> CFontUnion::add(const QByteArray &block)
{
    std::string fault;
    const auto font = CFontBlock::find(reinterpret_cast<const uint8_t *>(block.constData()),
                                       static_cast<size_t>(block.size()), 0, fault);
    const bool isFirst = m_glyphs.empty();
    if (!font || (!isFirst && font->bits() != m_bits))
        return std::nullopt;
    m_bits = font->bits();
    std::vector<uint16_t> numbers;
    for (uint32_t i = 0; i < font->glyphCount(); ++i) {
        const auto glyph = font->glyph(i, fault);
        if (!glyph)
            return std::nullopt;
        const QByteArray key = identity(*glyph);
        const auto known = m_numbers.constFind(key);
        // The first block keeps equal glyphs apart: a firmware counts on its numbers.
        if (!isFirst && known != m_numbers.constEnd()) {
            numbers.push_back(*known);
            continue;
        }
        if (m_glyphs.size() == MaxFontGlyphs)
            return std::nullopt;
        const auto number = static_cast<uint16_t>(m_glyphs.size());
        if (known == m_numbers.constEnd())
            m_numbers.insert(key, number);
        numbers.push_back(number);
        m_glyphs.push_back(*glyph);
    }
    return numbers;
}

/// What a glyph draws, whatever its number is.
QByteArray CFontUnion::identity(const SFontGlyph &glyph) const
{
    QByteArray key;
    for (const int metric : {glyph.width, glyph.height, glyph.left, glyph.top, glyph.advance16})
        key += QByteArray::number(metric) + ' ';
    if (glyph.hasInk())
        key.append(reinterpret_cast<const char *>(glyph.mask),
                   static_cast<int>(fontMaskBytes(m_bits, glyph)));
    return key;
}

} // namespace

CFontMerge::CFontMerge(const QList<QByteArray> &blocks, const std::vector<SUse> &uses,
                       const std::vector<uint32_t> &otherBytes, uint32_t capacity)
    : m_parts(static_cast<size_t>(blocks.size()))
{
    std::vector<SScreen> screens;
    screens.reserve(otherBytes.size());
    for (const uint32_t bytes : otherBytes)
        screens.push_back({{}, bytes});
    for (const SUse &use : uses)
        if (screens[use.screen].blocks.insert(use.block).second)
            screens[use.screen].bytes += inMemory(blocks[static_cast<int>(use.block)]);
    for (const Blocks &font : fontsOf(m_parts.size(), uses)) {
        if (font.size() > 1 && mergeFont(blocks, font, screens, capacity))
            continue;
        for (const size_t block : font) {
            m_parts[block].merged = static_cast<size_t>(m_result.size());
            m_result.append(blocks[static_cast<int>(block)]);
        }
    }
}

uint16_t CFontMerge::numberOf(size_t block, uint16_t number) const
{
    const std::vector<uint16_t> &numbers = m_parts[block].numbers;
    return number < numbers.size() ? numbers[number] : number;
}

/// The blocks of each font, ascending. Two fonts that have a block in common are one.
std::vector<CFontMerge::Blocks> CFontMerge::fontsOf(size_t blockCount,
                                                    const std::vector<SUse> &uses)
{
    std::vector<size_t> first(blockCount); // of the blocks that belong together
    std::iota(first.begin(), first.end(), 0);
    QMap<QString, size_t> blockOfFont;
    for (const SUse &use : uses) {
        const auto known = blockOfFont.constFind(use.font);
        const size_t other = known == blockOfFont.constEnd() ? use.block : *known;
        blockOfFont.insert(use.font, use.block);
        const size_t from = std::max(first[other], first[use.block]);
        std::replace(first.begin(), first.end(), from, std::min(first[other], first[use.block]));
    }
    std::vector<Blocks> fonts;
    for (size_t block = 0; block < blockCount; ++block) {
        if (first[block] == block)
            fonts.emplace_back();
        const auto own = std::find_if(fonts.begin(), fonts.end(), [&](const Blocks &font) {
            return font.empty() || font.front() == first[block];
        });
        own->push_back(block);
    }
    return fonts;
}

/// False, and nothing is changed, when the font's blocks cannot be one on every screen.
bool CFontMerge::mergeFont(const QList<QByteArray> &blocks, const Blocks &font,
                           std::vector<SScreen> &screens, uint32_t capacity)
{
    CFontUnion all;
    std::vector<std::vector<uint16_t>> numbers;
    for (const size_t block : font) {
        auto own = all.add(blocks[static_cast<int>(block)]);
        if (!own)
            return false;
        numbers.push_back(std::move(*own));
    }
    const QByteArray merged = all.block();
    std::vector<SScreen> changed = screens;
    for (SScreen &screen : changed) {
        uint64_t own = 0;
        for (const size_t block : font)
            own += screen.blocks.count(block) ? inMemory(blocks[static_cast<int>(block)]) : 0;
        if (own == 0)
            continue;
        screen.bytes += inMemory(merged) - own;
        if (screen.bytes > capacity)
            return false;
    }
    screens = changed;
    for (size_t i = 0; i < font.size(); ++i)
        m_parts[font[i]] = {static_cast<size_t>(m_result.size()), numbers[i]};
    m_result.append(merged);
    return true;
}
