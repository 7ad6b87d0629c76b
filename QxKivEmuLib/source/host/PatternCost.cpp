#include "PatternCost.h"

#include <algorithm>

namespace kivemu {

namespace {

/// Length of the single-character item at the start of `pattern`: a character, an escape or a set.
size_t itemLength(std::string_view pattern)
{
    if (pattern[0] == '%')
        return std::min<size_t>(2, pattern.size());
    if (pattern[0] != '[')
        return 1;
    // A "]" in the first place stands for itself.
    size_t at = pattern.size() > 1 && pattern[1] == '^' ? 2 : 1;
    for (bool isFirst = true; at < pattern.size() && (isFirst || pattern[at] != ']');
         isFirst = false)
        at += pattern[at] == '%' ? 2 : 1;
    return std::min(at + 1, pattern.size());
}

bool isRepetition(char c)
{
    return c == '*' || c == '+' || c == '-';
}

/// Escapes that look through the subject by themselves: %b, and %1 to %9.
bool isSearch(std::string_view item)
{
    return item[0] == '%' && item.size() == 2 &&
           (item[1] == 'b' || (item[1] >= '0' && item[1] <= '9'));
}

} // namespace

double patternSteps(std::string_view pattern, size_t subjectLength)
{
    const bool isAnchored = !pattern.empty() && pattern[0] == '^';
    int places = isAnchored ? 0 : 1;
    double steps = 2;
    size_t longest = 1;
    for (size_t at = isAnchored ? 1 : 0; at < pattern.size();) {
        const std::string_view item = pattern.substr(at, itemLength(pattern.substr(at)));
        at += item.size();
        longest = std::max(longest, item.size());
        const char suffix = at < pattern.size() ? pattern[at] : '\0';
        if (isSearch(item) || isRepetition(suffix))
            ++places;
        else if (suffix == '?')
            steps *= 2;
    }
    const auto length = static_cast<double>(subjectLength);
    for (int i = 1; i <= places; ++i)
        steps *= (length + i) / i;
    return steps * static_cast<double>(longest);
}

} // namespace kivemu
