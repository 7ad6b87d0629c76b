#include "CPattern.h"

#include "SLuaContext.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <new>

namespace kivemu {

namespace {

constexpr int MaxDepth = 200;
constexpr unsigned StepsPerCharge = 64;
constexpr size_t WorkPerStep = 6;
constexpr size_t WorkToCompile = 400;
constexpr size_t WorkPerPatternByte = 16;
constexpr size_t WorkPerCapture = 64;
constexpr char ClassLetters[] = "acdglpsuwx";

bool isInClass(char letter, int c)
{
    switch (letter) {
    case 'a':
        return std::isalpha(c);
    case 'c':
        return std::iscntrl(c);
    case 'd':
        return std::isdigit(c);
    case 'g':
        return std::isgraph(c);
    case 'l':
        return std::islower(c);
    case 'p':
        return std::ispunct(c);
    case 's':
        return std::isspace(c);
    case 'u':
        return std::isupper(c);
    case 'w':
        return std::isalnum(c);
    default:
        return std::isxdigit(c);
    }
}

/// The characters of a class such as %a; nothing special for the capital letter, its complement.
const std::bitset<256> &classSet(size_t index)
{
    static const auto sets = [] {
        std::array<std::bitset<256>, sizeof ClassLetters - 1> made;
        for (size_t i = 0; i < made.size(); ++i) {
            for (int c = 0; c < 128; ++c)
                made[i][static_cast<size_t>(c)] = isInClass(ClassLetters[i], c);
        }
        return made;
    }();
    return sets[index];
}

/// Adds what the escape "%c" means: a class, or the character itself.
void addEscape(std::bitset<256> &set, uint8_t c)
{
    const int lower = std::tolower(c);
    const char *letter = lower != 0 ? std::strchr(ClassLetters, lower) : nullptr;
    if (!letter) {
        set.set(c);
        return;
    }
    const std::bitset<256> &members = classSet(static_cast<size_t>(letter - ClassLetters));
    set |= lower == c ? members : ~members;
}

} // namespace

CPattern::CPattern(lua_State *state, std::string_view pattern, bool isAnchorAllowed)
    : m_state(state), m_pattern(pattern)
{
    contextOf(state).watchdog.charge(state, WorkToCompile + pattern.size() * WorkPerPatternByte);
    if (isAnchorAllowed && !pattern.empty() && pattern[0] == '^') {
        m_isAnchored = true;
        m_at = 1;
    }
    while (m_at < m_pattern.size()) {
        if (m_itemCount == MaxItems)
            fail("the pattern is too long");
        compileItem(addItem());
    }
}

CPattern::SItem &CPattern::addItem()
{
    return *new (&m_items[m_itemCount++].item) SItem;
}

void CPattern::fail(const char *message) const
{
    luaL_error(m_state, "%s", message);
    std::abort(); // not reached
}

uint8_t CPattern::take()
{
    if (m_at == m_pattern.size())
        fail("malformed pattern: it ends too early");
    return static_cast<uint8_t>(m_pattern[m_at++]);
}

void CPattern::compileItem(SItem &item)
{
    const uint8_t c = take();
    if (c == '(') {
        const bool isPosition = m_at < m_pattern.size() && m_pattern[m_at] == ')';
        m_at += isPosition ? 1 : 0;
        item.kind = isPosition ? EKind::OpenPosition : EKind::Open;
    } else if (c == ')') {
        item.kind = EKind::Close;
    } else if (c == '$' && m_at == m_pattern.size()) {
        item.kind = EKind::End;
    } else if (c == '%') {
        compileEscape(item);
    } else if (c == '[') {
        compileSet(item.set);
    } else if (c == '.') {
        item.set.set();
    } else {
        item.set.set(c);
    }
    if (item.kind != EKind::Single || m_at == m_pattern.size())
        return;
    constexpr std::string_view Suffixes = "?*+-";
    constexpr ERepeat Repeats[] = {ERepeat::Optional, ERepeat::Any, ERepeat::Some, ERepeat::Least};
    const size_t suffix = Suffixes.find(m_pattern[m_at]);
    if (suffix != Suffixes.npos) {
        item.repeat = Repeats[suffix];
        ++m_at;
    }
}

void CPattern::compileEscape(SItem &item)
{
    const uint8_t c = take();
    if (c == 'b') {
        item.kind = EKind::Balance;
        item.first = take();
        item.last = take();
    } else if (c == 'f') {
        item.kind = EKind::Frontier;
        if (take() != '[')
            fail("malformed pattern: '[' is missing after '%f'");
        compileSet(item.set);
    } else if (c >= '0' && c <= '9') {
        item.kind = EKind::Back;
        item.first = static_cast<uint8_t>(c - '1'); // "%0" becomes a number that no capture has
    } else {
        addEscape(item.set, c);
    }
}

/// The set after its "[".
void CPattern::compileSet(Set &set)
{
    const bool isComplement = m_at < m_pattern.size() && m_pattern[m_at] == '^';
    m_at += isComplement ? 1 : 0;
    do // a "]" in the first place is a member
        addSetMember(set);
    while (m_at < m_pattern.size() && m_pattern[m_at] != ']');
    if (take() != ']')
        fail("malformed pattern: ']' is missing");
    if (isComplement)
        set.flip();
}

void CPattern::addSetMember(Set &set)
{
    const uint8_t c = take();
    if (c == '%') {
        addEscape(set, take());
        return;
    }
    const bool isRange =
        m_at + 1 < m_pattern.size() && m_pattern[m_at] == '-' && m_pattern[m_at + 1] != ']';
    if (!isRange) {
        set.set(c);
        return;
    }
    ++m_at;
    const uint8_t last = take();
    for (unsigned member = c; member <= last; ++member)
        set.set(member);
}

void CPattern::setSubject(std::string_view subject)
{
    m_begin = subject.data();
    m_end = subject.data() + subject.size();
}

const char *CPattern::match(const char *from)
{
    m_captureCount = 0;
    m_depth = 0;
    countStep();
    return matchFrom(from, 0);
}

void CPattern::countStep()
{
    if (++m_steps < StepsPerCharge)
        return;
    m_steps = 0;
    contextOf(m_state).watchdog.charge(m_state, StepsPerCharge * WorkPerStep);
}

const char *CPattern::matchFrom(const char *at, size_t index)
{
    if (++m_depth > MaxDepth)
        fail("the pattern is too complex");
    for (; at && index < m_itemCount; ++index) {
        countStep();
        const SItem &item = m_items[index].item;
        bool isLast = true; // the rest was matched by the call
        if (item.kind == EKind::Open || item.kind == EKind::OpenPosition ||
            item.kind == EKind::Close)
            at = matchCapture(at, index);
        else if (item.repeat == ERepeat::Any || item.repeat == ERepeat::Some)
            at = matchMost(at, index);
        else if (item.repeat == ERepeat::Least)
            at = matchLeast(at, index);
        else
            isLast = false;
        if (isLast)
            break;
        if (item.kind == EKind::End) {
            at = at == m_end ? at : nullptr;
        } else if (item.kind == EKind::Balance) {
            at = matchBalance(at, item);
        } else if (item.kind == EKind::Frontier) {
            at = isFrontier(at, item) ? at : nullptr;
        } else if (item.kind == EKind::Back) {
            at = matchBack(at, item);
        } else if (item.repeat == ERepeat::Optional) {
            const char *with = isSingle(at, item) ? matchFrom(at + 1, index + 1) : nullptr;
            if (with) {
                at = with;
                break;
            }
        } else {
            at = isSingle(at, item) ? at + 1 : nullptr;
        }
    }
    --m_depth;
    return at;
}

const char *CPattern::matchMost(const char *at, size_t index)
{
    const SItem &item = m_items[index].item;
    const char *to = at;
    for (; isSingle(to, item); ++to)
        countStep();
    const char *least = at + (item.repeat == ERepeat::Some ? 1 : 0);
    for (; to >= least; --to) {
        if (const char *end = matchFrom(to, index + 1))
            return end;
    }
    return nullptr;
}

const char *CPattern::matchLeast(const char *at, size_t index)
{
    const SItem &item = m_items[index].item;
    for (;; ++at) {
        if (const char *end = matchFrom(at, index + 1))
            return end;
        if (!isSingle(at, item))
            return nullptr;
    }
}

/// Opens or closes a capture for what follows, and takes that back when it does not match.
const char *CPattern::matchCapture(const char *at, size_t index)
{
    const EKind kind = m_items[index].item.kind;
    if (kind != EKind::Close) {
        if (m_captureCount == MaxCaptures)
            fail("the pattern has too many captures");
        const ptrdiff_t length = kind == EKind::Open ? OpenCapture : PositionCapture;
        m_captures[static_cast<size_t>(m_captureCount++)] = {at, length};
        const char *end = matchFrom(at, index + 1);
        m_captureCount -= end ? 0 : 1;
        return end;
    }
    int open = m_captureCount - 1;
    while (open >= 0 && m_captures[static_cast<size_t>(open)].length != OpenCapture)
        --open;
    if (open < 0)
        fail("malformed pattern: ')' without '('");
    SCapture &capture = m_captures[static_cast<size_t>(open)];
    capture.length = at - capture.from;
    const char *end = matchFrom(at, index + 1);
    if (!end)
        capture.length = OpenCapture;
    return end;
}

const char *CPattern::matchBalance(const char *at, const SItem &item)
{
    if (at == m_end || static_cast<uint8_t>(*at) != item.first)
        return nullptr;
    int open = 1;
    for (++at; at != m_end; ++at) {
        countStep();
        const auto c = static_cast<uint8_t>(*at);
        if (c == item.last) {
            if (--open == 0)
                return at + 1;
        } else if (c == item.first) {
            ++open;
        }
    }
    return nullptr;
}

const char *CPattern::matchBack(const char *at, const SItem &item)
{
    if (item.first >= m_captureCount || m_captures[item.first].length < 0)
        fail("malformed pattern: a back reference to no capture");
    const SCapture &capture = m_captures[item.first];
    if (m_end - at < capture.length)
        return nullptr;
    contextOf(m_state).watchdog.charge(m_state, static_cast<size_t>(capture.length) / 16);
    const auto length = static_cast<size_t>(capture.length);
    return std::memcmp(capture.from, at, length) == 0 ? at + length : nullptr;
}

/// Both ends of the subject count as the character 0.
bool CPattern::isFrontier(const char *at, const SItem &item) const
{
    const uint8_t before = at == m_begin ? 0 : static_cast<uint8_t>(at[-1]);
    const uint8_t here = at == m_end ? 0 : static_cast<uint8_t>(*at);
    return !item.set[before] && item.set[here];
}

void CPattern::pushCapture(int number, const char *from, const char *to) const
{
    if (number == 0 || (number == 1 && m_captureCount == 0)) {
        lua_pushlstring(m_state, from, static_cast<size_t>(to - from));
        return;
    }
    if (number > m_captureCount)
        fail("the pattern has no such capture");
    const SCapture &capture = m_captures[static_cast<size_t>(number - 1)];
    if (capture.length == PositionCapture)
        lua_pushinteger(m_state, capture.from - m_begin + 1);
    else if (capture.length == OpenCapture)
        fail("malformed pattern: '(' without ')'");
    else
        lua_pushlstring(m_state, capture.from, static_cast<size_t>(capture.length));
}

int CPattern::pushCaptures(const char *from, const char *to) const
{
    const int count = m_captureCount == 0 && from ? 1 : m_captureCount;
    luaL_checkstack(m_state, count, "too many captures");
    contextOf(m_state).watchdog.charge(m_state, static_cast<size_t>(count) * WorkPerCapture);
    for (int number = 1; number <= count; ++number)
        pushCapture(number, from, to);
    return count;
}

} // namespace kivemu
