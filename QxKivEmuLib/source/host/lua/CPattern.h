#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>

struct lua_State;

namespace kivemu {

/// A Lua pattern, compiled, and the matching of it. Stands in for the library's own matcher, which
/// can run for minutes on a short text and cannot be stopped: this one looks at the clock.
/// Errors are Lua errors; an object holds nothing that a destructor would have to free.
class CPattern
{
public:
    static constexpr int MaxCaptures = 32;
    static constexpr size_t MaxItems = 256;

    struct SCapture
    {
        const char *from = nullptr;
        ptrdiff_t length = 0; ///< PositionCapture: only the place counts
    };
    static constexpr ptrdiff_t PositionCapture = -2;

    /// `isAnchorAllowed`: whether a "^" at the start is an anchor or a character.
    CPattern(lua_State *state, std::string_view pattern, bool isAnchorAllowed);

    void setSubject(std::string_view subject);
    bool isAnchored() const { return m_isAnchored; }
    /// Where a match that starts at `from` ends; null when there is none.
    const char *match(const char *from);

    /// Pushes a capture of the last match; number 0 is the whole match, and so is 1 when the
    /// pattern has no captures.
    void pushCapture(int number, const char *from, const char *to) const;
    /// Pushes all captures, or the whole match when there are none and `from` is given. How many.
    int pushCaptures(const char *from, const char *to) const;

private:
    enum class EKind : uint8_t {
        Single,
        Open,
        OpenPosition,
        Close,
        End,
        Balance,
        Frontier,
        Back,
    };
    enum class ERepeat : uint8_t { Once, Optional, Any, Some, Least };
    using Set = std::bitset<256>;
    struct SItem
    {
        EKind kind = EKind::Single;
        ERepeat repeat = ERepeat::Once;
        uint8_t first = 0; ///< of a balance; the number of a back reference
        uint8_t last = 0;
        Set set;
    };
    /// An item that nobody has begun: most patterns have a few of them, and are compiled often.
    union URoom {
        URoom() {} // NOLINT(modernize-use-equals-default): the item is left out
        SItem item;
    };
    static constexpr ptrdiff_t OpenCapture = -1;

    // Compiling: `m_at` moves through the pattern.
    SItem &addItem();
    void compileItem(SItem &item);
    void compileEscape(SItem &item);
    void compileSet(Set &set);
    void addSetMember(Set &set);
    uint8_t take();
    [[noreturn]] void fail(const char *message) const;

    // Matching.
    const char *matchFrom(const char *at, size_t index);
    const char *matchMost(const char *at, size_t index);
    const char *matchLeast(const char *at, size_t index);
    const char *matchCapture(const char *at, size_t index);
    const char *matchBalance(const char *at, const SItem &item);
    const char *matchBack(const char *at, const SItem &item);
    bool isFrontier(const char *at, const SItem &item) const;
    bool isSingle(const char *at, const SItem &item) const
    {
        return at != m_end && item.set[static_cast<uint8_t>(*at)];
    }
    void countStep();

    lua_State *m_state;
    std::string_view m_pattern;
    size_t m_at = 0;
    bool m_isAnchored = false;
    std::array<URoom, MaxItems> m_items; ///< as many as are counted
    size_t m_itemCount = 0;
    const char *m_begin = nullptr;
    const char *m_end = nullptr;
    std::array<SCapture, MaxCaptures> m_captures;
    int m_captureCount = 0;
    int m_depth = 0;
    unsigned m_steps = 0;
};

} // namespace kivemu
