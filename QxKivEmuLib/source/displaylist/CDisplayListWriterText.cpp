// Texts: runs of characters of a ROM font, and of glyphs of a font in RAM_G.
#include "CDisplayListWriter.h"
#include "OperandWords.h"

#include <algorithm>
#include <cassert>

namespace kivemu {

namespace {

constexpr size_t CharsPerWord = 3;

bool isCoordinate(Sub16 value)
{
    return value == clampCoordinate(value);
}

/// The row of pixels that the chip takes as the baseline.
Sub16 baseline(SPoint pen)
{
    return (pen.y + 8) >> 4;
}

/// How much further than its advance a glyph has to move the pen to reach the next one; nothing
/// when it cannot.
std::optional<int> shiftTo(const CDisplayListWriter::SPlacedGlyph &glyph,
                           const CDisplayListWriter::SPlacedGlyph &next)
{
    const int64_t shift = int64_t{next.pen.x} - glyph.pen.x - glyph.advance;
    if (baseline(next.pen) != baseline(glyph.pen) || shift < INT8_MIN || shift > INT8_MAX)
        return std::nullopt;
    return static_cast<int>(shift);
}

} // namespace

void CDisplayListWriter::text(int font, SPoint pen, std::string_view latin1)
{
    const auto zeros = static_cast<size_t>(std::count(latin1.begin(), latin1.end(), '\0'));
    const size_t length = latin1.size() - zeros;
    if (length == 0 || !begin(2 + (length + CharsPerWord - 1) / CharsPerWord))
        return;
    put(headerWord(EOpcode::Text, static_cast<uint32_t>(std::clamp(font, 0, 255))));
    put(pointWord(pen));
    uint32_t characters = 0;
    size_t filled = 0;
    for (const char c : latin1) {
        if (c == '\0')
            continue;
        characters |= static_cast<uint32_t>(static_cast<uint8_t>(c)) << (8 * filled);
        if (++filled == CharsPerWord) {
            put(headerWord(EOpcode::Chars, characters));
            characters = 0;
            filled = 0;
        }
    }
    if (filled > 0)
        put(headerWord(EOpcode::Chars, characters));
}

void CDisplayListWriter::font(uint32_t handle, uint32_t address)
{
    assert(handle < FontHandles);
    if (m_at.fonts[handle] == address)
        return;
    m_at.fonts[handle] = address;
    if (!begin(2))
        return;
    put(headerWord(EOpcode::Font, handle));
    m_fontWords.push_back(m_words.size());
    put(address);
}

void CDisplayListWriter::glyphs(uint32_t handle, const std::vector<SPlacedGlyph> &run)
{
    assert(handle < FontHandles);
    std::vector<uint32_t> words;
    words.reserve(run.size() + 2);
    const SPlacedGlyph *last = nullptr;
    for (const SPlacedGlyph &glyph : run) {
        if (!isCoordinate(glyph.pen.x) || !isCoordinate(glyph.pen.y))
            continue;
        const std::optional<int> shift = last ? shiftTo(*last, glyph) : std::nullopt;
        if (shift) {
            words.back() |= static_cast<uint32_t>(*shift & 0xFF) << 16;
        } else {
            words.push_back(headerWord(EOpcode::Text, handle));
            words.push_back(pointWord(glyph.pen));
        }
        words.push_back(headerWord(EOpcode::Glyph, glyph.number));
        last = &glyph;
    }
    if (!words.empty() && begin(words.size()))
        m_words.insert(m_words.end(), words.begin(), words.end());
}

} // namespace kivemu
