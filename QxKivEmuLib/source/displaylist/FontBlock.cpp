#include "FontBlock.h"

#include <cassert>
#include <cstring>

namespace kivemu {

namespace {

constexpr size_t HeadBytes = 8;
constexpr size_t EntryBytes = 16;
constexpr int FullCoverage = 255;

/// Where a glyph's numbers lie in its entry.
enum EEntry : size_t {
    Offset = 0,
    Width = 4,
    Height = 6,
    Left = 8,
    Top = 10,
    Advance = 12,
    Zero = 14
};

uint32_t read16(const uint8_t *bytes)
{
    return bytes[0] | static_cast<uint32_t>(bytes[1]) << 8;
}

uint32_t read32(const uint8_t *bytes)
{
    return read16(bytes) | read16(bytes + 2) << 16;
}

int readSigned16(const uint8_t *bytes)
{
    return static_cast<int16_t>(read16(bytes));
}

void write16(uint8_t *bytes, int value)
{
    assert(value >= INT16_MIN && value <= UINT16_MAX);
    bytes[0] = static_cast<uint8_t>(value & 0xFF);
    bytes[1] = static_cast<uint8_t>(value >> 8 & 0xFF);
}

void write32(uint8_t *bytes, size_t value)
{
    assert(value <= UINT32_MAX);
    write16(bytes, static_cast<int>(value & 0xFFFF));
    write16(bytes + 2, static_cast<int>(value >> 16));
}

size_t entryPlace(uint32_t number)
{
    return HeadBytes + EntryBytes * number;
}

int fullTexel(int bits)
{
    return (1 << bits) - 1;
}

template<int Bits>
void expandRow(const uint8_t *row, int width, uint8_t *coverage)
{
    constexpr int Full = (1 << Bits) - 1;
    for (int x = 0; x < width; ++x) {
        const int bit = x * Bits;
        const int texel = row[bit / 8] >> (8 - Bits - bit % 8) & Full;
        coverage[x] = static_cast<uint8_t>(texel * (FullCoverage / Full));
    }
}

} // namespace

bool isFontDepth(uint32_t bits)
{
    return bits == 1 || bits == 2 || bits == 4 || bits == 8;
}

size_t fontRowBytes(int bits, int width)
{
    return (static_cast<size_t>(width) * static_cast<size_t>(bits) + 7) / 8;
}

size_t fontMaskBytes(int bits, const SFontGlyph &glyph)
{
    return fontRowBytes(bits, glyph.width) * static_cast<size_t>(glyph.height);
}

std::vector<uint8_t> packCoverage(int bits, int width, int height, const uint8_t *coverage,
                                  size_t stride)
{
    const size_t rowBytes = fontRowBytes(bits, width);
    const int full = fullTexel(bits);
    std::vector<uint8_t> mask(rowBytes * static_cast<size_t>(height));
    for (int y = 0; y < height; ++y) {
        const uint8_t *from = coverage + static_cast<size_t>(y) * stride;
        uint8_t *row = mask.data() + static_cast<size_t>(y) * rowBytes;
        for (int x = 0; x < width; ++x) {
            const int texel = (from[x] * full + FullCoverage / 2) / FullCoverage;
            const int bit = x * bits;
            row[bit / 8] = static_cast<uint8_t>(row[bit / 8] | texel << (8 - bits - bit % 8));
        }
    }
    return mask;
}

void expandMask(int bits, const SFontGlyph &glyph, uint8_t *coverage, size_t stride)
{
    const size_t rowBytes = fontRowBytes(bits, glyph.width);
    for (int y = 0; y < glyph.height; ++y) {
        const uint8_t *row = glyph.mask + static_cast<size_t>(y) * rowBytes;
        uint8_t *to = coverage + static_cast<size_t>(y) * stride;
        if (bits == 8)
            std::memcpy(to, row, rowBytes);
        else if (bits == 4)
            expandRow<4>(row, glyph.width, to);
        else if (bits == 2)
            expandRow<2>(row, glyph.width, to);
        else
            expandRow<1>(row, glyph.width, to);
    }
}

size_t fontBlockBytes(int bits, const std::vector<SFontGlyph> &glyphs)
{
    size_t bytes = HeadBytes + EntryBytes * glyphs.size();
    for (const SFontGlyph &glyph : glyphs)
        bytes += fontMaskBytes(bits, glyph);
    return bytes;
}

std::vector<uint8_t> writeFontBlock(int bits, const std::vector<SFontGlyph> &glyphs)
{
    assert(isFontDepth(static_cast<uint32_t>(bits)));
    assert(!glyphs.empty() && glyphs.size() <= MaxFontGlyphs);
    std::vector<uint8_t> block(fontBlockBytes(bits, glyphs));
    write32(block.data(), static_cast<size_t>(bits));
    write32(block.data() + 4, glyphs.size());
    uint8_t *entry = block.data() + HeadBytes;
    size_t offset = HeadBytes + EntryBytes * glyphs.size();
    for (const SFontGlyph &glyph : glyphs) {
        assert(glyph.width >= 0 && glyph.width <= MaxGlyphSide);
        assert(glyph.height >= 0 && glyph.height <= MaxGlyphSide);
        write32(entry + Offset, glyph.hasInk() ? offset : 0);
        write16(entry + Width, glyph.width);
        write16(entry + Height, glyph.height);
        write16(entry + Left, glyph.left);
        write16(entry + Top, glyph.top);
        write16(entry + Advance, glyph.advance16);
        if (glyph.hasInk())
            std::memcpy(block.data() + offset, glyph.mask, fontMaskBytes(bits, glyph));
        offset += fontMaskBytes(bits, glyph);
        entry += EntryBytes;
    }
    return block;
}

CFontBlock::CFontBlock(const uint8_t *bytes, size_t size, int bits, uint32_t glyphCount)
    : m_bytes(bytes), m_size(size), m_bits(bits), m_glyphCount(glyphCount)
{
}

std::optional<CFontBlock> CFontBlock::find(const uint8_t *memory, size_t size, uint32_t address,
                                           std::string &fault)
{
    const auto refuse = [&](const std::string &what) {
        fault = "the font at " + std::to_string(address) + " " + what;
        return std::nullopt;
    };
    const auto reachesBeyond = [&] {
        return refuse("reaches beyond the " + std::to_string(size) +
                      " bytes of RAM_G that are in use");
    };
    if (address % FontBlockAlignment != 0)
        return refuse("does not start at a multiple of 4");
    if (address > size || size - address < HeadBytes)
        return reachesBeyond();
    const uint8_t *bytes = memory + address;
    const uint32_t bits = read32(bytes);
    const uint32_t count = read32(bytes + 4);
    if (!isFontDepth(bits))
        return refuse("has texels of " + std::to_string(bits) + " bits");
    if (count == 0 || count > MaxFontGlyphs)
        return refuse("has " + std::to_string(count) + " glyphs");
    if (entryPlace(count) > size - address)
        return reachesBeyond();
    return CFontBlock(bytes, size - address, static_cast<int>(bits), count);
}

std::optional<SFontGlyph> CFontBlock::glyph(uint32_t number, std::string &fault) const
{
    const auto refuse = [&](const std::string &what) {
        fault = "glyph " + std::to_string(number) + " " + what;
        return std::nullopt;
    };
    if (number >= m_glyphCount)
        return refuse("is not among the " + std::to_string(m_glyphCount) + " of the font");
    const uint8_t *entry = m_bytes + entryPlace(number);
    SFontGlyph glyph;
    glyph.width = static_cast<int>(read16(entry + Width));
    glyph.height = static_cast<int>(read16(entry + Height));
    glyph.left = readSigned16(entry + Left);
    glyph.top = readSigned16(entry + Top);
    glyph.advance16 = readSigned16(entry + Advance);
    if (glyph.width > MaxGlyphSide || glyph.height > MaxGlyphSide)
        return refuse("has " + std::to_string(glyph.width) + " x " + std::to_string(glyph.height) +
                      " texels");
    if (read16(entry + Zero) != 0)
        return refuse("ends with a number that is not 0");
    if (!glyph.hasInk())
        return glyph;
    const uint32_t offset = read32(entry + Offset);
    if (offset > m_size || fontMaskBytes(m_bits, glyph) > m_size - offset)
        return refuse("reaches beyond the bytes of RAM_G that are in use");
    glyph.mask = m_bytes + offset;
    return glyph;
}

} // namespace kivemu
