#include "CTextBreaks.h"

#include <unicode/ubrk.h>

namespace kivemu {

CTextBreaks::~CTextBreaks()
{
    ubrk_close(m_clusters);
    ubrk_close(m_lines);
}

std::vector<bool> CTextBreaks::clusters(const std::u32string &text)
{
    return find(m_clusters, UBRK_CHARACTER, text);
}

std::vector<bool> CTextBreaks::lines(const std::u32string &text)
{
    return find(m_lines, UBRK_LINE, text);
}

std::vector<bool> CTextBreaks::find(UBreakIterator *&iterator, int kind, const std::u32string &text)
{
    std::vector<bool> breaks(text.size(), false);
    std::u16string units;
    std::vector<uint32_t> codePoints; // of each unit
    for (size_t at = 0; at < text.size(); ++at) {
        const char32_t c = text[at];
        if (c >= 0x10000) {
            units += static_cast<char16_t>(0xD7C0 + (c >> 10));
            codePoints.push_back(static_cast<uint32_t>(at));
        }
        units += static_cast<char16_t>(c >= 0x10000 ? 0xDC00 + (c & 0x3FF) : c);
        codePoints.push_back(static_cast<uint32_t>(at));
    }
    UErrorCode status = U_ZERO_ERROR;
    if (!iterator) // the locale is named, since the machine's own would make lines differ
        iterator = ubrk_open(static_cast<UBreakIteratorType>(kind), "en", nullptr, 0, &status);
    if (U_SUCCESS(status))
        ubrk_setText(iterator, units.data(), static_cast<int32_t>(units.size()), &status);
    if (U_FAILURE(status))
        return std::vector<bool>(text.size(), kind == UBRK_CHARACTER);
    for (int32_t at = ubrk_first(iterator); at != UBRK_DONE; at = ubrk_next(iterator)) {
        if (at > 0 && static_cast<size_t>(at) < units.size())
            breaks[codePoints[static_cast<size_t>(at)]] = true;
    }
    return breaks;
}

} // namespace kivemu
