#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct UBreakIterator;

namespace kivemu {

/// Where texts may be taken apart, in every script. Threads: one at a time.
class CTextBreaks
{
public:
    CTextBreaks() = default;
    ~CTextBreaks();
    CTextBreaks(const CTextBreaks &) = delete;
    CTextBreaks &operator=(const CTextBreaks &) = delete;

    /// Both give, for each code point, whether something ends before it; the first is false.
    /// The ends of clusters: what a reader takes for one character.
    std::vector<bool> clusters(const std::u32string &text);
    /// Where a line may end.
    std::vector<bool> lines(const std::u32string &text);

private:
    std::vector<bool> find(UBreakIterator *&iterator, int kind, const std::u32string &text);

    UBreakIterator *m_clusters = nullptr;
    UBreakIterator *m_lines = nullptr;
};

} // namespace kivemu
