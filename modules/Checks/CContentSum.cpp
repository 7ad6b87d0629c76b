#include "CContentSum.h"

#include <cstring>

void CContentSum::add(uint64_t number)
{
    // Each step can be undone, so a difference never gets lost; the two lose no bit in the same
    // way.
    m_first = (m_first ^ number) * 0x9E3779B97F4A7C15U;
    m_first ^= m_first >> 32;
    m_second = (m_second + number) * 0xC2B2AE3D27D4EB4FU;
    m_second ^= m_second >> 29;
}

void CContentSum::add(const char *bytes, size_t count)
{
    uint64_t number = 0;
    size_t at = 0;
    for (; at + sizeof(number) <= count; at += sizeof(number)) {
        std::memcpy(&number, bytes + at, sizeof(number));
        add(number);
    }
    number = 0;
    std::memcpy(&number, bytes + at, count - at);
    add(number);
    add(count);
}

QByteArray CContentSum::result() const
{
    QByteArray sum(reinterpret_cast<const char *>(&m_first), sizeof(m_first));
    return sum.append(reinterpret_cast<const char *>(&m_second), sizeof(m_second));
}
