#pragma once

#include <string_view>
#include <vector>

namespace kivemu {

/// Splits valid Lua text into tokens, as far as assignments need it told apart.
class CChunkScanner
{
public:
    enum class EToken { Name, Keyword, Text, Number, Sign };
    struct SToken
    {
        EToken kind;
        std::string_view text; ///< of a sign: one character, a comparison, or "::"
    };

    explicit CChunkScanner(std::string_view chunk) : m_rest(chunk) {}
    std::vector<SToken> scan();

private:
    bool skipBlank();
    size_t longBracketLength() const;
    std::string_view take(size_t length);
    SToken next();
    size_t quotedLength() const;

    std::string_view m_rest;
};

} // namespace kivemu
