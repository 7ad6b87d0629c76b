#include "UnknownCharacters.h"

#include <cstdio>

namespace kivemu {

namespace {

constexpr size_t MostNamed = 8;

/// Controls, marks that join the letter before them, and what turns or breaks the line.
bool isShown(char32_t c)
{
    const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool isMark = (c >= 0x300 && c < 0x370) || (c >= 0xFE00 && c < 0xFE10);
    const bool isFormat = (c >= 0x200B && c < 0x2010) || (c >= 0x2028 && c < 0x202F) ||
                          (c >= 0x2060 && c < 0x2070) || c == 0xFEFF;
    return !isControl && !isMark && !isFormat;
}

void appendUtf8(std::string &text, char32_t c)
{
    const auto put = [&text](uint32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
        return;
    }
    const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    put((0xFF00U >> (more + 1) & 0xFFU) | c >> (6 * more));
    for (int shift = 6 * (more - 1); shift >= 0; shift -= 6)
        put(0x80U | (c >> shift & 0x3FU));
}

std::string namesOf(std::u32string_view characters)
{
    std::string names;
    for (const char32_t c : characters.substr(0, MostNamed)) {
        char code[16];
        std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(c));
        names += names.empty() ? "" : ", ";
        names += code;
        if (isShown(c)) {
            names += " '";
            appendUtf8(names, c);
            names += '\'';
        }
    }
    if (characters.size() > MostNamed)
        names += " and others";
    return names;
}

} // namespace

std::string messageOfUnknown(std::u32string_view characters)
{
    return "no font has " + namesOf(characters) + "; \"?\" is drawn instead";
}

std::string messageOfMissing(const std::string &font, std::u32string_view characters)
{
    return "font \"" + font + "\" and its fallbacks lack " + namesOf(characters) +
           "; the font's box is drawn instead";
}

} // namespace kivemu
