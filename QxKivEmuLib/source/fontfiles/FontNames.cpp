#include "FontNames.h"

#include <cstdint>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_SFNT_NAMES_H
#include FT_TRUETYPE_IDS_H

namespace kivemu {

namespace {

constexpr char32_t NoText = 0xFFFD;

/// How welcome an entry is; 0 when its encoding is not known.
int rankOf(const FT_SfntName &name)
{
    constexpr int AnyEnglish = 0x09; // the low bits of Windows' languages
    if (name.platform_id == TT_PLATFORM_MICROSOFT &&
        (name.encoding_id == TT_MS_ID_UNICODE_CS || name.encoding_id == TT_MS_ID_UCS_4 ||
         name.encoding_id == TT_MS_ID_SYMBOL_CS)) {
        if (name.language_id == TT_MS_LANGID_ENGLISH_UNITED_STATES)
            return 5;
        return (name.language_id & 0x3FF) == AnyEnglish ? 4 : 2;
    }
    if (name.platform_id == TT_PLATFORM_APPLE_UNICODE)
        return 3;
    return name.platform_id == TT_PLATFORM_MACINTOSH && name.encoding_id == TT_MAC_ID_ROMAN ? 1 : 0;
}

void append(std::string &text, char32_t c, ENameLines lines)
{
    if (c == '\r')
        return;
    if (c == '\n' && lines == ENameLines::Several) {
        text += '\n';
        return;
    }
    const bool isLineEnd = c == '\n' || c == '\t' || c == 0x2028 || c == 0x2029;
    if (isLineEnd)
        c = ' ';
    if (c < 0x20 || (c >= 0x7F && c < 0xA0))
        return;
    const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
        return;
    }
    const unsigned more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    put((0xFF00U >> (more + 1) & 0xFFU) | c >> (6 * more));
    for (unsigned left = more; left > 0; --left)
        put(0x80U | (c >> (6 * (left - 1)) & 0x3FU));
}

std::string fromUtf16(const FT_Byte *bytes, FT_UInt count, ENameLines lines)
{
    std::string text;
    const auto unit = [bytes](FT_UInt at) {
        return static_cast<char32_t>(bytes[at] << 8 | bytes[at + 1]);
    };
    for (FT_UInt at = 0; at + 1 < count; at += 2) {
        char32_t c = unit(at);
        if (c >= 0xD800 && c < 0xDC00 && at + 3 < count && (unit(at + 2) & 0xFC00U) == 0xDC00) {
            c = 0x10000 + ((c & 0x3FFU) << 10 | (unit(at + 2) & 0x3FFU));
            at += 2;
        } else if (c >= 0xD800 && c < 0xE000) {
            c = NoText;
        }
        append(text, c, lines);
    }
    return text;
}

/// Only entries of old fonts; what is not ASCII there is hardly ever needed.
std::string fromMacRoman(const FT_Byte *bytes, FT_UInt count, ENameLines lines)
{
    std::string text;
    for (FT_UInt at = 0; at < count; ++at) {
        constexpr FT_Byte Copyright = 0xA9; // the same as in Latin-1
        const bool isKnown = bytes[at] < 0x80 || bytes[at] == Copyright;
        append(text, isKnown ? bytes[at] : NoText, lines);
    }
    return text;
}

} // namespace

std::string fontName(FT_FaceRec_ *face, unsigned id, ENameLines lines)
{
    FT_SfntName best{};
    int bestRank = 0;
    const FT_UInt count = FT_Get_Sfnt_Name_Count(face);
    for (FT_UInt at = 0; at < count; ++at) {
        FT_SfntName name{};
        if (FT_Get_Sfnt_Name(face, at, &name) != 0 || name.name_id != id || !name.string)
            continue;
        if (const int rank = rankOf(name); rank > bestRank) {
            best = name;
            bestRank = rank;
        }
    }
    if (bestRank == 0)
        return {};
    return bestRank == 1 ? fromMacRoman(best.string, best.string_len, lines)
                         : fromUtf16(best.string, best.string_len, lines);
}

} // namespace kivemu
