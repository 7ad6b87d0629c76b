#include "ChunkAssignments.h"

#include "CChunkScanner.h"

#include <algorithm>

namespace kivemu {

namespace {

using Token = CChunkScanner::SToken;
using EToken = CChunkScanner::EToken;

bool isSign(const Token &token, std::string_view signs)
{
    return token.kind == EToken::Sign && token.text.size() == 1 &&
           signs.find(token.text[0]) != std::string_view::npos;
}

bool isKeyword(const Token &token, std::string_view word)
{
    return token.kind == EToken::Keyword && token.text == word;
}

void add(SChunkAssignments &found, std::string_view name)
{
    if (std::find(found.names.begin(), found.names.end(), name) == found.names.end())
        found.names.emplace_back(name);
}

/// Goes back from the "=" at `equals` over what can stand on its left: names, fields, calls and
/// indices, separated by commas. Brackets are passed whole, whatever is in them.
void addTargets(SChunkAssignments &found, const std::vector<Token> &tokens, size_t equals)
{
    std::vector<std::string_view> names;
    int depth = 0;
    for (size_t i = equals; i-- > 0;) {
        const Token &token = tokens[i];
        if (isSign(token, ")]}")) {
            ++depth;
        } else if (isSign(token, "([{")) {
            if (--depth < 0)
                break;
        } else if (depth > 0) {
            continue;
        } else if (token.kind == EToken::Name) {
            const Token *before = i > 0 ? &tokens[i - 1] : nullptr;
            if (before && isSign(*before, ".:"))
                continue; // a field
            names.push_back(token.text);
            if (before && (isKeyword(*before, "local") || isKeyword(*before, "for")))
                return; // a declaration
            if (!before || !isSign(*before, ","))
                break;
        } else if (token.kind != EToken::Text && !isSign(token, ",.:")) {
            break; // belongs to the statement before
        }
    }
    for (const std::string_view name : names)
        add(found, name);
}

/// Tells the fields of tables from assignments: an "=" right inside of braces is a field's, unless
/// a function has begun there.
class CBrackets
{
public:
    void pass(const Token &token)
    {
        if (isSign(token, "([{"))
            m_open.push_back({token.text[0], false});
        else if (isSign(token, ")]}") && !m_open.empty())
            m_open.pop_back();
        else if (isKeyword(token, "function") && !m_open.empty())
            m_open.back().hasFunction = true;
    }
    bool isField() const
    {
        return !m_open.empty() && m_open.back().sign == '{' && !m_open.back().hasFunction;
    }

private:
    struct SOpen
    {
        char sign;
        bool hasFunction;
    };
    std::vector<SOpen> m_open;
};

} // namespace

SChunkAssignments findAssignments(std::string_view chunk)
{
    SChunkAssignments found;
    const std::vector<Token> tokens = CChunkScanner(chunk).scan();
    CBrackets brackets;
    for (size_t i = 0; i < tokens.size(); ++i) {
        const Token &token = tokens[i];
        brackets.pass(token);
        if (token.kind == EToken::Name && token.text == "_ENV")
            found.isUnbounded = true;
        if (isSign(token, "=") && !brackets.isField())
            addTargets(found, tokens, i);
        const bool isNamedFunction = isKeyword(token, "function") && i + 1 < tokens.size() &&
                                     tokens[i + 1].kind == EToken::Name;
        if (isNamedFunction && (i == 0 || !isKeyword(tokens[i - 1], "local")))
            add(found, tokens[i + 1].text);
    }
    return found;
}

} // namespace kivemu
