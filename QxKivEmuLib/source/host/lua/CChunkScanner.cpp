#include "CChunkScanner.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

namespace kivemu {

namespace {

constexpr std::string_view Keywords[] = {"and",   "break", "do",       "else", "elseif", "end",
                                         "false", "for",   "function", "goto", "if",     "in",
                                         "local", "nil",   "not",      "or",   "repeat", "return",
                                         "then",  "true",  "until",    "while"};

bool isNameStart(char c)
{
    return std::isalpha(static_cast<unsigned char>(c)) || c == '_';
}

bool isNamePart(char c)
{
    return isNameStart(c) || std::isdigit(static_cast<unsigned char>(c));
}

size_t lengthWhile(std::string_view text, bool (*isPart)(char))
{
    return static_cast<size_t>(std::find_if_not(text.begin(), text.end(), isPart) - text.begin());
}

} // namespace

std::vector<CChunkScanner::SToken> CChunkScanner::scan()
{
    std::vector<SToken> tokens;
    while (skipBlank())
        tokens.push_back(next());
    return tokens;
}

std::string_view CChunkScanner::take(size_t length)
{
    length = std::min(length, m_rest.size());
    const std::string_view taken = m_rest.substr(0, length);
    m_rest.remove_prefix(length);
    return taken;
}

/// Skips blanks and comments. False at the end.
bool CChunkScanner::skipBlank()
{
    for (;;) {
        take(lengthWhile(m_rest,
                         [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }));
        if (m_rest.substr(0, 2) != "--")
            return !m_rest.empty();
        take(2);
        const size_t bracket = longBracketLength();
        take(bracket > 0 ? bracket : m_rest.find('\n'));
    }
}

/// Length of a text or comment such as [[…]] or [==[…]==] that starts here; 0 when none does.
size_t CChunkScanner::longBracketLength() const
{
    if (m_rest.empty() || m_rest[0] != '[')
        return 0;
    const size_t level = lengthWhile(m_rest.substr(1), [](char c) { return c == '='; });
    if (level + 1 >= m_rest.size() || m_rest[level + 1] != '[')
        return 0;
    const std::string close = ']' + std::string(level, '=') + ']';
    const size_t end = m_rest.find(close, level + 2);
    return end == std::string_view::npos ? m_rest.size() : end + close.size();
}

size_t CChunkScanner::quotedLength() const
{
    size_t at = 1;
    while (at < m_rest.size() && m_rest[at] != m_rest[0])
        at += m_rest[at] == '\\' ? 2 : 1;
    return at + 1;
}

CChunkScanner::SToken CChunkScanner::next()
{
    const char c = m_rest[0];
    if (isNameStart(c)) {
        const std::string_view word = take(lengthWhile(m_rest, isNamePart));
        const bool isKeyword =
            std::find(std::begin(Keywords), std::end(Keywords), word) != std::end(Keywords);
        return {isKeyword ? EToken::Keyword : EToken::Name, word};
    }
    if (std::isdigit(static_cast<unsigned char>(c)))
        return {EToken::Number, take(lengthWhile(m_rest, [](char part) {
                    return isNamePart(part) || part == '.';
                }))};
    if (c == '"' || c == '\'')
        return {EToken::Text, take(quotedLength())};
    if (const size_t bracket = longBracketLength())
        return {EToken::Text, take(bracket)};
    const bool isComparison =
        m_rest.size() > 1 && m_rest[1] == '=' && (c == '=' || c == '<' || c == '>' || c == '~');
    const bool isLabel = m_rest.substr(0, 2) == "::";
    return {EToken::Sign, take(isComparison || isLabel ? 2 : 1)};
}

} // namespace kivemu
