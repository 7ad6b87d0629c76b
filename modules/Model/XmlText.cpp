#include "XmlText.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {
struct Range
{
    ushort first;
    ushort last;
};

// The ranges of XML 1.0, fifth edition, without those above U+FFFF.
constexpr Range StartRanges[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},
    {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},
    {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}};
constexpr Range FurtherRanges[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template<size_t N>
bool isIn(const Range (&ranges)[N], ushort code)
{
    return std::any_of(std::begin(ranges), std::end(ranges), [code](const Range &range) {
        return code >= range.first && code <= range.last;
    });
}

// Readers that follow older editions tell names by the category of a character, so a name holds
// only what all editions agree on.
bool isLetter(QChar c)
{
    return c.isLetter() || c.category() == QChar::Number_Letter || c == QLatin1Char('_') ||
           c == QLatin1Char(':');
}

bool startsName(QChar c)
{
    return isIn(StartRanges, c.unicode()) && isLetter(c);
}

bool continuesName(QChar c)
{
    if (c == QLatin1Char('-') || c == QLatin1Char('.'))
        return true;
    const bool allowed = isIn(StartRanges, c.unicode()) || isIn(FurtherRanges, c.unicode());
    return allowed && (isLetter(c) || c.isDigit() || c.isMark());
}

enum ByteClass : unsigned char { Plain, Forbidden, Escaped, MayBeForbidden };

constexpr std::array<unsigned char, 256> makeByteClasses()
{
    std::array<unsigned char, 256> classes{};
    for (unsigned i = 0; i < 0x20; ++i)
        classes[i] = Forbidden;
    for (const char c : {'\t', '\n', '\r', '<', '>', '&', '"'})
        classes[static_cast<unsigned char>(c)] = Escaped;
    classes[0xEF] = MayBeForbidden; // U+FFFE and U+FFFF are EF BF BE and EF BF BF
    return classes;
}
constexpr std::array<unsigned char, 256> ByteClasses = makeByteClasses();

bool isNonCharacter(const char *at, const char *end)
{
    return end - at >= 3 && at[1] == '\xBF' && (at[2] == '\xBE' || at[2] == '\xBF');
}

/// What to write for a character of class Escaped, `written` being what stands before it; null
/// where it may stand as it is.
const char *escapeOf(char c, const QByteArray &written, XmlText::Place place)
{
    const bool inAttribute = place == XmlText::Place::Attribute;
    switch (c) {
    case '<':
        return "&lt;";
    case '&':
        return "&amp;";
    case '>': // only the end of a CDATA section may not stand in text
        return written.endsWith("]]") ? "&gt;" : nullptr;
    case '"':
        return inAttribute ? "&quot;" : nullptr;
    case '\n':
        return inAttribute ? "&#xa;" : nullptr;
    case '\t':
        return inAttribute ? "&#x9;" : nullptr;
    default:
        return "&#xd;";
    }
}

/// Appends the text, runs that need no work as wholes. `escape` gives what to write for a
/// character of class Escaped, or null to keep it.
template<class Escape>
void appendRuns(QByteArray &target, const QByteArray &text, Escape escape)
{
    const char *const end = text.constData() + text.size();
    const char *run = text.constData();
    const char *at = run;
    const auto flush = [&] {
        target.append(run, static_cast<int>(at - run));
        run = at;
    };
    while (at != end) {
        const unsigned char byteClass = ByteClasses[static_cast<unsigned char>(*at)];
        if (byteClass == Forbidden || (byteClass == MayBeForbidden && isNonCharacter(at, end))) {
            flush();
            run += byteClass == Forbidden ? 1 : 3;
            at = run;
            continue;
        }
        if (byteClass == Escaped) {
            flush();
            if (const char *replacement = escape(*at)) {
                target.append(replacement);
                ++run;
            }
        }
        ++at;
    }
    flush();
}
} // namespace

bool XmlText::isName(const QString &text)
{
    return !text.isEmpty() && startsName(text.front()) &&
           std::all_of(text.begin() + 1, text.end(), continuesName);
}

bool XmlText::isAsciiName(const QByteArray &text)
{
    const auto isAsciiLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    return !text.isEmpty() && isAsciiLetter(text.front()) &&
           std::all_of(text.begin() + 1, text.end(), [&](char c) {
               return isAsciiLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
           });
}

void XmlText::appendEscaped(QByteArray &target, const QByteArray &text, Place place)
{
    appendRuns(target, text, [&target, place](char c) { return escapeOf(c, target, place); });
}

void XmlText::appendCleaned(QByteArray &target, const QByteArray &text)
{
    appendRuns(target, text, [](char) -> const char * { return nullptr; });
}
