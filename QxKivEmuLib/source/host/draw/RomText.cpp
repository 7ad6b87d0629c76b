#include "RomText.h"

#include "RomFonts.h"

#include <algorithm>

namespace kivemu {

namespace {

constexpr char Ellipsis[] = "\xE2\x80\xA6";
constexpr uint8_t EllipsisCharacter = 0x85;

/// Bytes of the UTF-8 character at `at`: a lead byte and what continues it.
size_t characterLength(std::string_view text)
{
    size_t length = 1;
    while (length < text.size() && length < 4 && (text[length] & 0xC0) == 0x80)
        ++length;
    return length;
}

double widthOf(int font, std::string_view utf8)
{
    return romfonts::textWidth16(font, romfonts::toLatin1(utf8)) / 16.0;
}

std::string_view trimmed(std::string_view text)
{
    const auto isBlank = [](char c) { return static_cast<uint8_t>(c) <= ' '; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const size_t at = text.find(separator);
        parts.push_back(trimmed(text.substr(0, at)));
        if (at == std::string_view::npos)
            break;
        text.remove_prefix(at + 1);
        if (text.empty())
            parts.emplace_back();
    }
    return parts;
}

} // namespace

double romMiddle(int font, std::string_view latin1)
{
    double middle = romfonts::textWidth16(font, latin1) / 32.0;
    if (latin1.empty())
        return middle;
    const auto seen = [font](char character) {
        const auto *glyph = romfonts::glyph(font, static_cast<uint8_t>(character));
        const bool isFigure = character >= '0' && character <= '9';
        return isFigure || !glyph->coverage ? nullptr : glyph;
    };
    if (const romfonts::SGlyph *first = seen(latin1.front()))
        middle += first->left / 2.0;
    if (const romfonts::SGlyph *last = seen(latin1.back()))
        middle -= (last->advance16 / 16.0 - last->left - last->width) / 2.0;
    return middle;
}

std::string romFit(int font, std::string_view utf8, double width)
{
    if (widthOf(font, utf8) <= width)
        return std::string(utf8);
    const double room = width - romfonts::glyph(font, EllipsisCharacter)->advance16 / 16.0;
    if (room < 0)
        return {};
    size_t kept = 0;
    double used = 0;
    while (kept < utf8.size()) {
        const size_t length = characterLength(utf8.substr(kept));
        used += widthOf(font, utf8.substr(kept, length));
        if (used > room)
            break;
        kept += length;
    }
    while (kept > 0 && utf8[kept - 1] == ' ')
        --kept;
    return std::string(utf8.substr(0, kept)) + Ellipsis;
}

SRomLines romWrap(int font, std::string_view utf8, double width, size_t mostLines)
{
    SRomLines wrapped;
    const double blank = widthOf(font, " ");
    const auto isFull = [&] { return wrapped.lines.size() == mostLines; };
    const auto put = [&](const std::string &row) {
        std::string line = romFit(font, row, width);
        wrapped.isWhole = wrapped.isWhole && line == row;
        wrapped.lines.push_back(line == Ellipsis && line != row ? std::string() : std::move(line));
    };
    for (const std::string_view section : split(utf8, '\n')) {
        if (isFull()) {
            wrapped.isWhole = wrapped.isWhole && section.empty();
            continue;
        }
        std::string row;
        double rowWidth = 0;
        for (const std::string_view word : split(section, ' ')) {
            const double wordWidth = widthOf(font, word);
            const double longer = rowWidth + (row.empty() ? 0 : blank) + wordWidth;
            const bool isLastLine = wrapped.lines.size() + 1 == mostLines;
            if (!row.empty() && !isLastLine && longer > width) {
                put(row);
                row = word;
                rowWidth = wordWidth;
            } else {
                row += row.empty() ? "" : " ";
                row += word;
                rowWidth = longer;
            }
        }
        put(row);
    }
    return wrapped;
}

} // namespace kivemu
