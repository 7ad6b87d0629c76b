#include "FontTable.h"

#include "Utf8.h"
#include "displaylist/FontBlock.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kivemu {

namespace {

constexpr size_t MostExtra = 4096; ///< characters
constexpr size_t MostAxes = 64;
constexpr size_t MostProblems = 16;

/// Takes what stands before the separator off the text.
std::string_view cut(std::string_view &text, char separator)
{
    const size_t at = text.find(separator);
    const std::string_view part = text.substr(0, at);
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
    return part;
}

template<typename Number>
bool parse(std::string_view text, Number &number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool parseAxes(std::string_view text, SFontLine &font)
{
    while (!text.empty()) {
        std::string_view value = cut(text, ',');
        const std::string_view tag = cut(value, '=');
        double number = 0;
        if (tag.size() != 4 || !parse(value, number) || !std::isfinite(number) ||
            font.axes.size() == MostAxes)
            return false;
        font.axes.emplace_back(tag, number);
    }
    return true;
}

bool parseFallback(std::string_view text, SFontLine &font)
{
    while (!text.empty()) {
        int handle = -1;
        if (!parse(cut(text, ','), handle) || handle < 0 || handle >= int{FontHandles})
            return false;
        const bool isKnown =
            std::find(font.fallback.begin(), font.fallback.end(), handle) != font.fallback.end();
        if (handle != font.handle && !isKnown)
            font.fallback.push_back(handle);
    }
    return true;
}

void addExtra(SFontLine &font, char32_t first, char32_t last)
{
    for (char32_t c = first; c <= last && !font.hasMoreExtra; ++c) {
        font.hasMoreExtra = font.extra.size() == MostExtra;
        if (!font.hasMoreExtra)
            font.extra += c;
    }
}

/// Whether a range may begin or end there; signs beside a "-" are meant themselves.
bool isRangeEnd(char32_t c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c >= 0xA0;
}

/// Words of characters and ranges: "A-Za-z0-9 , . -".
void parseExtra(std::string_view text, SFontLine &font)
{
    while (!text.empty()) {
        const std::u32string word = decodeUtf8(cut(text, ' '), MostExtra).text;
        for (size_t at = 0; at < word.size(); ++at) {
            const bool isRange = at + 2 < word.size() && word[at + 1] == '-' &&
                                 isRangeEnd(word[at]) && isRangeEnd(word[at + 2]);
            const char32_t end = isRange ? word[at + 2] : word[at];
            addExtra(font, std::min(word[at], end), std::max(word[at], end));
            at += isRange ? 2 : 0;
        }
    }
}

bool parseLine(std::string_view line, SFontLine &font)
{
    const bool hasHandle =
        parse(cut(line, '\t'), font.handle) && font.handle >= 0 && font.handle < int{FontHandles};
    font.name = cut(line, '\t');
    font.file = cut(line, '\t');
    const bool hasSize = parse(cut(line, '\t'), font.size) && font.size >= 4 && font.size <= 256;
    const bool hasBits =
        parse(cut(line, '\t'), font.bits) && isFontDepth(static_cast<uint32_t>(font.bits));
    const bool hasAxes = parseAxes(cut(line, '\t'), font);
    const bool hasFallback = parseFallback(cut(line, '\t'), font);
    parseExtra(cut(line, '\t'), font);
    return hasHandle && hasSize && hasBits && hasAxes && hasFallback;
}

} // namespace

std::vector<SFontLine> parseFontTable(std::string_view text, std::vector<std::string> &problems)
{
    std::vector<SFontLine> fonts;
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = cut(text, '\n');
        if (line.empty())
            continue;
        SFontLine font;
        if (!parseLine(line, font)) {
            if (problems.size() < MostProblems)
                problems.push_back("line " + std::to_string(number) +
                                   " of the project's fonts cannot be read");
            continue;
        }
        const bool isTaken = std::any_of(fonts.begin(), fonts.end(), [&](const SFontLine &other) {
            return other.handle == font.handle;
        });
        if (!isTaken)
            fonts.push_back(std::move(font));
    }
    return fonts;
}

} // namespace kivemu
