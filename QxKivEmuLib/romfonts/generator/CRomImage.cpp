#include "CRomImage.h"

#include "../RomFontData.h"
#include "CFontFace.h"

#include <fstream>

namespace {

constexpr int Group = 8; ///< rows are padded to this many bytes

char32_t codePointOf(int index)
{
    if (index < 95)
        return static_cast<char32_t>(0x20 + index);
    return index == 95 ? 0x2026 : static_cast<char32_t>(0xA0 + index - 96);
}

std::string list(std::initializer_list<int> numbers)
{
    std::string text;
    for (const int number : numbers)
        text += (text.empty() ? "" : ", ") + std::to_string(number);
    return text;
}

} // namespace

void CRomImage::add(const CFontFace &face, int height)
{
    m_glyphs += "constexpr SGlyph Glyphs" + std::to_string(m_fontCount) + "[] = {\n";
    for (int i = 0; i < romfonts::GlyphCount; ++i) {
        const SDrawnGlyph glyph = face.draw(codePointOf(i));
        const int stride = (glyph.width + Group - 1) / Group * Group;
        const bool ink = !glyph.coverage.empty();
        m_glyphs += ink ? "{Masks + " + std::to_string(m_masks.size()) + ", " : "{nullptr, ";
        m_glyphs +=
            list({glyph.width, glyph.height, stride, glyph.left, glyph.top, glyph.advance16});
        m_glyphs += "},\n";
        for (int y = 0; y < glyph.height; ++y) {
            const auto row = glyph.coverage.begin() + ptrdiff_t{y} * glyph.width;
            m_masks.insert(m_masks.end(), row, row + glyph.width);
            m_masks.insert(m_masks.end(), static_cast<size_t>(stride - glyph.width), 0);
        }
    }
    m_glyphs += "};\n";
    m_fonts += "{" + list({height, face.ascent(), face.capHeight(), face.emSize()}) + ", Glyphs" +
               std::to_string(m_fontCount) + "},\n";
    ++m_fontCount;
}

std::string CRomImage::maskLiteral() const
{
    constexpr size_t LineLength = 4000;
    constexpr char Octal[] = "01234567";
    std::string text = "\"";
    size_t lineStart = 0;
    for (const uint8_t byte : m_masks) {
        // Digits are escaped too, since they would lengthen an escape before them.
        const bool plain = byte >= 0x20 && byte < 0x7F && byte != '"' && byte != '\\' &&
                           byte != '?' && (byte < '0' || byte > '9');
        if (plain) {
            text += static_cast<char>(byte);
        } else {
            text += '\\';
            if (byte >= 64)
                text += Octal[byte >> 6];
            if (byte >= 8)
                text += Octal[byte >> 3 & 7];
            text += Octal[byte & 7];
        }
        if (text.size() - lineStart > LineLength) {
            text += "\"\n\"";
            lineStart = text.size();
        }
    }
    return text + '"';
}

bool CRomImage::write(const std::string &file) const
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << "// Written by kiv_genromfonts.\n#include \"RomFontData.h\"\n\nnamespace romfonts {\n\n"
        << "namespace {\n\nalignas(" << Group << ") constexpr unsigned char Masks[] =\n"
        << maskLiteral() << ";\n\n"
        << m_glyphs << "\n} // namespace\n\nconst SFontData FontData[] = {\n"
        << m_fonts << "};\n\n} // namespace romfonts\n";
    out.close();
    return !out.fail();
}
