#include "CErrorList.h"

#include <algorithm>

namespace kivemu {

namespace {

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// Ids, type names and paths come from files and may hold anything, line ends as well.
void keepToOneLine(std::string &message)
{
    if (message.size() > CErrorList::MaxLength) {
        message.resize(CErrorList::MaxLength);
        message += "...";
    }
    std::replace_if(
        message.begin(), message.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; },
        ' ');
}

} // namespace

void CErrorList::clear()
{
    m_messages.clear();
    m_leftOut = 0;
}

void CErrorList::add(std::string message)
{
    keepToOneLine(message);
    if (m_messages.size() < MaxMessages)
        m_messages.push_back(std::move(message));
    else
        ++m_leftOut;
}

void CErrorList::add(std::string_view subject, std::string_view message)
{
    std::string prefix(subject);
    prefix += ": ";
    if (!m_messages.empty() && startsWith(m_messages.back(), prefix)) {
        const std::string_view last = std::string_view(m_messages.back()).substr(prefix.size());
        if (endsWith(message, last))
            return;
    }
    prefix += message;
    add(std::move(prefix));
}

std::string CErrorList::text() const
{
    std::string all;
    for (const std::string &message : m_messages) {
        if (!all.empty())
            all += '\n';
        all += message;
    }
    if (m_leftOut > 0)
        all += "\nand " + std::to_string(m_leftOut) + " more";
    return all;
}

} // namespace kivemu
