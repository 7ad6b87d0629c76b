#pragma once

#include <clocale>

namespace kivemu {

/// The "C" locale for this thread while the object lives: a program's own locale would change
/// decimal points and the order of texts, and with them the frame.
class CPlainLocale
{
public:
    CPlainLocale() : m_plain(newlocale(LC_ALL_MASK, "C", nullptr)), m_outside(uselocale(m_plain)) {}
    ~CPlainLocale()
    {
        uselocale(m_outside);
        freelocale(m_plain);
    }
    CPlainLocale(const CPlainLocale &) = delete;
    CPlainLocale &operator=(const CPlainLocale &) = delete;

private:
    locale_t m_plain;
    locale_t m_outside;
};

} // namespace kivemu
