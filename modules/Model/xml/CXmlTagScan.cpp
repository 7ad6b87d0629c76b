#include "CXmlTagScan.h"

#include <algorithm>
#include <cstring>

namespace {
const char *find(const char *from, const char *end, char wanted)
{
    const void *found = std::memchr(from, wanted, static_cast<size_t>(end - from));
    return found ? static_cast<const char *>(found) : end;
}

bool startsWith(const char *from, const char *end, const char *text)
{
    const size_t length = std::strlen(text);
    return static_cast<size_t>(end - from) >= length && std::memcmp(from, text, length) == 0;
}
} // namespace

CXmlTagScan::CXmlTagScan(const QByteArray &xml) : m_end(xml.constData() + xml.size())
{
    const char *at = find(xml.constData(), m_end, '<');
    while (at != m_end)
        at = find(scanMarkup(at), m_end, '<');
}

/// What lies behind the next `text`, or the end.
const char *CXmlTagScan::skipPast(const char *from, const char *text) const
{
    const char *found = std::search(from, m_end, text, text + std::strlen(text));
    return found == m_end ? m_end : found + std::strlen(text);
}

/// Takes the markup that begins with the "<" at `open`; gives what lies behind it.
const char *CXmlTagScan::scanMarkup(const char *open)
{
    if (startsWith(open, m_end, "<!--"))
        return skipPast(open + 4, "-->");
    if (startsWith(open, m_end, "<![CDATA["))
        return skipPast(open + 9, "]]>");
    if (startsWith(open, m_end, "<?"))
        return skipPast(open + 2, "?>");
    return scanTag(open + 1);
}

const char *CXmlTagScan::scanTag(const char *from)
{
    qint64 count = 0;
    const char *at = from;
    while (at != m_end && *at != '>') {
        if (*at == '"' || *at == '\'')
            at = find(at + 1, m_end, *at);
        else if (*at == '=')
            ++count;
        if (at != m_end)
            ++at;
    }
    m_attributes += count;
    m_mostInOneElement = std::max(m_mostInOneElement, count);
    return at;
}
