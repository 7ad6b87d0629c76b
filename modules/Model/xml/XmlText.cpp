#include "XmlText.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <iterator>

namespace {
struct Range
{
    ushort first;
    ushort last;
};

// What begins and what continues a name in XML 1.0, fifth edition, up to U+FFFF.
constexpr Range StartRanges[] = {
    {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F},
    {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}};
constexpr Range FurtherRanges[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template<size_t N>
bool isIn(const Range (&ranges)[N], QChar c)
{
    return std::any_of(std::begin(ranges), std::end(ranges), [c](const Range &range) {
        return c.unicode() >= range.first && c.unicode() <= range.last;
    });
}

bool startsName(QChar c)
{
    return isIn(StartRanges, c);
}

bool continuesName(QChar c)
{
    return isIn(StartRanges, c) || isIn(FurtherRanges, c);
}

bool isName(QStringView text)
{
    const auto isPart = [](QStringView part) {
        return !part.isEmpty() && startsName(part.front()) &&
               std::all_of(part.begin() + 1, part.end(), continuesName);
    };
    const auto colon = std::find(text.begin(), text.end(), QLatin1Char(':')); // behind a prefix
    if (colon == text.end())
        return isPart(text);
    const qsizetype prefix = colon - text.begin();
    return isPart(text.left(prefix)) && isPart(text.mid(prefix + 1));
}

/// The usual case, quickly.
bool isAsciiName(const QByteArray &text)
{
    const auto isLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    return !text.isEmpty() && isLetter(text.front()) &&
           std::all_of(text.begin() + 1, text.end(), [&](char c) {
               return isLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
           });
}

enum ByteClass : unsigned char { Plain, Forbidden, Escaped, MayBeForbidden };

constexpr std::array<unsigned char, 256> makeByteClasses()
{
    std::array<unsigned char, 256> classes{};
    for (unsigned i = 0; i < 0x20; ++i)
        classes[i] = Forbidden;
    for (const char c : {'\t', '\n', '\r', '<', '&', '"'})
        classes[static_cast<unsigned char>(c)] = Escaped;
    classes[0xEF] = MayBeForbidden; // U+FFFE and U+FFFF are EF BF BE and EF BF BF
    return classes;
}
constexpr std::array<unsigned char, 256> ByteClasses = makeByteClasses();

bool isNonCharacter(const char *at, const char *end)
{
    return end - at >= 3 && at[1] == '\xBF' && (at[2] == '\xBE' || at[2] == '\xBF');
}

const char *escapeOf(char c)
{
    switch (c) {
    case '<':
        return "&lt;";
    case '&':
        return "&amp;";
    case '"':
        return "&quot;";
    case '\n':
        return "&#xa;";
    case '\t':
        return "&#x9;";
    default:
        return "&#xd;";
    }
}
} // namespace

bool XmlText::isElementName(const QString &text)
{
    if (isAsciiName(text.toUtf8()))
        return true;
    if (!isName(text))
        return false;
    // Which letters of the world older editions allow, the reader knows best.
    QXmlStreamReader reader(QStringLiteral("<%1/>").arg(text));
    reader.setNamespaceProcessing(false);
    return reader.readNextStartElement() && reader.qualifiedName() == text;
}

bool XmlText::isAttributeName(const QByteArray &text)
{
    return isAsciiName(text) || isName(QString::fromUtf8(text.constData(), text.size()));
}

void XmlText::appendEscaped(QByteArray &target, const QByteArray &text)
{
    const char *const end = text.constData() + text.size();
    const char *run = text.constData(); // what needs no work is appended as a whole
    for (const char *at = run; at != end;) {
        const unsigned char byteClass = ByteClasses[static_cast<unsigned char>(*at)];
        if (byteClass == Plain || (byteClass == MayBeForbidden && !isNonCharacter(at, end))) {
            ++at;
            continue;
        }
        target.append(run, static_cast<int>(at - run));
        if (byteClass == Escaped)
            target.append(escapeOf(*at));
        at += byteClass == MayBeForbidden ? 3 : 1;
        run = at;
    }
    target.append(run, static_cast<int>(end - run));
}

int XmlText::escapedSize(const QByteArray &text)
{
    constexpr int longest = 6; // "&quot;"
    const auto escaped = std::count_if(text.begin(), text.end(), [](char c) {
        return ByteClasses[static_cast<unsigned char>(c)] == Escaped;
    });
    return text.size() + static_cast<int>(escaped) * (longest - 1);
}
