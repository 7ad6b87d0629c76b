#include "RomFonts.h"

#include "RomFontData.h"

namespace romfonts {

namespace {

constexpr char Unknown = '?';

const SFontData *find(int font)
{
    return isFont(font) ? &FontData[font - FirstFont] : nullptr;
}

/// Code points outside Latin-1 that have a good stand-in.
char standIn(char32_t codePoint)
{
    switch (codePoint) {
    case 0x2013:
    case 0x2014:
        return '-';
    case 0x2018:
    case 0x2019:
        return '\'';
    case 0x201C:
    case 0x201D:
        return '"';
    case 0x2026:
        return static_cast<char>(Ellipsis);
    default:
        return Unknown;
    }
}

char latin1Of(char32_t codePoint)
{
    const bool control = codePoint == 0 || (codePoint >= 0x7F && codePoint < 0xA0);
    if (codePoint <= 0xFF)
        return control ? Unknown : static_cast<char>(codePoint);
    return standIn(codePoint);
}

/// Whether it is drawn as itself.
bool hasGlyph(char character)
{
    return character != Unknown && glyphIndex(static_cast<uint8_t>(character)) >= 0;
}

void addOnce(std::u32string &codePoints, char32_t codePoint)
{
    if (codePoints.size() < MostMissing && codePoints.find(codePoint) == std::u32string::npos)
        codePoints.push_back(codePoint);
}

/// Length of the well-formed UTF-8 sequence at the start of `text`, and its code point; 0 when the
/// first byte starts none.
size_t decode(std::string_view text, char32_t &codePoint)
{
    const auto byte = [&](size_t i) { return static_cast<uint8_t>(text[i]); };
    const uint8_t lead = byte(0);
    if (lead < 0x80) {
        codePoint = lead;
        return 1;
    }
    const size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return 0;
    codePoint = lead & (0x7FU >> length);
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
        codePoint = (codePoint << 6) | (byte(i) & 0x3FU);
    }
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    const bool overlong =
        (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
    return surrogate || overlong || codePoint > 0x10FFFF ? 0 : length;
}

} // namespace

bool isFont(int font)
{
    return font >= FirstFont && font <= LastFont;
}

int height(int font)
{
    const SFontData *data = find(font);
    return data ? data->height : 0;
}

int ascent(int font)
{
    const SFontData *data = find(font);
    return data ? data->ascent : 0;
}

int capHeight(int font)
{
    const SFontData *data = find(font);
    return data ? data->capHeight : 0;
}

int emSize(int font)
{
    const SFontData *data = find(font);
    return data ? data->emSize : 0;
}

const SGlyph *glyph(int font, uint8_t character)
{
    const SFontData *data = find(font);
    if (!data)
        return nullptr;
    const int index = glyphIndex(character);
    return &data->glyphs[index >= 0 ? index : glyphIndex(Unknown)];
}

int textWidth16(int font, std::string_view latin1)
{
    if (!isFont(font))
        return 0;
    int width = 0;
    for (const char character : latin1)
        width += glyph(font, static_cast<uint8_t>(character))->advance16;
    return width;
}

std::string toLatin1(std::string_view utf8, std::u32string *missing)
{
    std::string latin1;
    latin1.reserve(utf8.size());
    while (!utf8.empty()) {
        char32_t codePoint = 0;
        const size_t length = decode(utf8, codePoint);
        const char character = length ? latin1Of(codePoint) : Unknown;
        latin1 += character;
        if (missing && length && codePoint != Unknown && !hasGlyph(character))
            addOnce(*missing, codePoint);
        utf8.remove_prefix(length ? length : 1);
    }
    return latin1;
}

} // namespace romfonts
