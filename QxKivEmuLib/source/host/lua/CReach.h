#pragma once

#include <cstddef>
#include <cstdint>

namespace kivemu {

/// What a single instruction of Lua can touch at most, and what it counts for that reason: nothing
/// looks at the work in the midst of a comparison of two long texts, of a look-up among keys that
/// collide, or of the copying of arguments.
class CReach
{
public:
    static constexpr uint64_t PlainWork = 32; ///< most take less, a number made a text takes more

    /// True when this is more than was known.
    bool addText(size_t bytes) { return raise(m_text, bytes, FewBytes); }
    bool addKeys(size_t keys) { return raise(m_keys, keys, FewKeys); }
    bool addList(size_t elements) { return raise(m_list, elements, 0); }
    bool setStack(size_t slots)
    {
        m_stack = slots;
        return slots > FewSlots;
    }

    size_t text() const { return m_text; }
    /// Of an instruction.
    uint64_t work() const
    {
        return PlainWork + m_text / BytesPerWork + m_keys +
               (m_stack > FewSlots ? m_stack / SlotsPerWork : 0);
    }
    /// Of walking through a table, which may be an emptied one.
    uint64_t workOfWalk() const { return m_keys * 4 + m_list; }
    /// Forgets what `outer` did not know; the stack is what it is.
    void resetTo(const CReach &outer)
    {
        const size_t stack = m_stack;
        *this = outer;
        m_stack = stack;
    }

private:
    static constexpr size_t FewBytes = 512;
    static constexpr size_t FewKeys = 256;
    static constexpr size_t FewSlots = 1000;
    static constexpr size_t BytesPerWork = 16;
    static constexpr size_t SlotsPerWork = 8;
    static bool raise(size_t &known, size_t found, size_t few)
    {
        const bool isMore = found > known && found > few;
        known = isMore ? found : known;
        return isMore;
    }

    size_t m_text = 0;  ///< bytes of the longest
    size_t m_keys = 0;  ///< of the largest table, beside its list
    size_t m_list = 0;  ///< elements of the longest
    size_t m_stack = 0; ///< of the state
};

} // namespace kivemu
