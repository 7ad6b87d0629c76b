#include "Orientation.h"

#include <cstring>

namespace kivemu {

namespace {

constexpr size_t Start = 6; ///< bytes before what offsets count from
constexpr size_t EntryBytes = 12;
constexpr uint32_t OrientationTag = 0x0112;
constexpr uint32_t ShortType = 3;

/// Numbers in the order of bytes that the notes themselves name; 0 beyond their end.
class CNotes
{
public:
    CNotes(const uint8_t *bytes, size_t count)
        : m_bytes(bytes), m_count(count), m_isLittle(bytes[0] == 'I')
    {
    }
    uint32_t number(size_t at, size_t size) const
    {
        uint32_t value = 0;
        for (size_t i = 0; i < size && at < m_count && size <= m_count - at; ++i)
            value = value << 8 | m_bytes[at + (m_isLittle ? size - 1 - i : i)];
        return value;
    }

private:
    const uint8_t *m_bytes;
    size_t m_count;
    bool m_isLittle;
};

} // namespace

int exifOrientation(const uint8_t *bytes, size_t count)
{
    if (count < Start + 8 || std::memcmp(bytes, "Exif\0\0", Start) != 0)
        return 1;
    bytes += Start;
    count -= Start;
    const bool isOrdered = std::memcmp(bytes, "II", 2) == 0 || std::memcmp(bytes, "MM", 2) == 0;
    const CNotes notes(bytes, count);
    if (!isOrdered || notes.number(2, 2) != 42)
        return 1;
    // Lists lie one behind the other: what points back is damaged, and could go round.
    for (size_t last = 7, at = notes.number(4, 4); at > last && at < count;) {
        const uint32_t entries = notes.number(at, 2);
        last = at;
        at += 2;
        for (uint32_t i = 0; i < entries && at < count; ++i, at += EntryBytes) {
            if (notes.number(at, 2) != OrientationTag || notes.number(at + 4, 4) != 1)
                continue;
            const uint32_t turn = notes.number(at + 8, 2);
            const bool isTurn = notes.number(at + 2, 2) == ShortType && turn >= 1 && turn <= 8;
            return isTurn ? static_cast<int>(turn) : 1;
        }
        at = notes.number(at, 4);
    }
    return 1;
}

} // namespace kivemu
