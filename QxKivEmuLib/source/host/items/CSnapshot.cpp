#include "CSnapshot.h"

#include "IModelItem.h"
#include "IModelIterator.h"
#include "IModelProperty.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace kivemu {

namespace {

// A property in the buffer: a tag, the name with its zero, then the number's bytes or the text with
// its zero.
constexpr char NumberTag = 'i';
constexpr char TextTag = 's';

const char *orEmpty(const char *text)
{
    return text ? text : "";
}

bool isInteger(const char *storageType)
{
    return storageType[0] == 'i' && storageType[1] == 'n' && storageType[2] == 't' &&
           storageType[3] == '\0';
}

/// One text over the limit is cut, so that no offset can leave 32 bits.
std::string_view cut(const char *zeroTerminated)
{
    zeroTerminated = orEmpty(zeroTerminated);
    return {zeroTerminated, std::min(std::strlen(zeroTerminated), CSnapshot::MaxBytes)};
}

/// Writes a text with its zero; gives what is behind it.
char *write(char *at, std::string_view text)
{
    std::memcpy(at, text.data(), text.size());
    at[text.size()] = '\0';
    return at + text.size() + 1;
}

uint32_t parseId(std::string_view text)
{
    uint32_t id = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
    return error == std::errc() && end == text.data() + text.size() ? id : 0;
}

/// On one line and not longer than a message bears; a character of several bytes is not cut.
std::string shownName(std::string_view name)
{
    constexpr size_t MostBytes = 60;
    size_t length = std::min(name.size(), MostBytes);
    while (length > 0 && length < name.size() &&
           (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80)
        --length;
    std::string shown(name.substr(0, length));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; },
        ' ');
    return length < name.size() ? shown + "..." : shown;
}

} // namespace

void CSnapshot::clear()
{
    m_problem.clear();
    m_hasScreen = false;
    m_screenProperties = {};
    m_items.clear();
    m_used = 0;
    m_commands.clear();
}

void CSnapshot::take(IModelIterator *iterator)
{
    clear();
    IModelItem *screen = iterator ? iterator->current() : nullptr;
    if (!screen) {
        m_problem = "there is no screen to draw";
        return;
    }
    m_hasScreen = true;
    m_screenProperties = takeProperties(*screen);
    for (iterator->next(); IModelItem *item = iterator->current(); iterator->next()) {
        if (m_items.size() == MaxItems) {
            m_problem = "the screen has more than " + std::to_string(MaxItems) +
                        " items; the rest is not drawn";
            return;
        }
        addItem(*item);
        if (m_used > MaxBytes) {
            m_problem = "the screen's texts need more than " + std::to_string(MaxBytes) +
                        " bytes; the rest is not drawn";
            return;
        }
    }
}

void CSnapshot::addItem(IModelItem &item)
{
    SItem entry{};
    entry.typeName = add(item.typeName());
    entry.idText = add(item.idText());
    entry.id = parseId(text(entry.idText));
    takeCommands(item, entry);
    entry.properties = takeProperties(item);
    if (text(entry.typeName) == "Widget_Group_T")
        entry.kind = EKind::Group;
    else
        entry.kind = entry.commands.length == 0 ? EKind::Unknown : EKind::Widget;
    m_items.push_back(entry);
}

/// The text is the same for all items of a kind. Mostly it even lies at the same place, which
/// cannot have changed during the walk; otherwise it is compared with what the kind had before.
void CSnapshot::takeCommands(IModelItem &item, SItem &entry)
{
    const char *commands = orEmpty(item.renderCommands());
    const auto known =
        std::find_if(m_commands.begin(), m_commands.end(),
                     [&](const SCommands &candidate) { return candidate.pointer == commands; });
    auto same = known;
    if (known == m_commands.end()) {
        const std::string_view text(commands);
        same = std::find_if(m_commands.begin(), m_commands.end(), [&](const SCommands &candidate) {
            return candidate.text.length == text.size() && this->text(candidate.text) == text;
        });
        if (same == m_commands.end())
            same = m_commands.insert(same, {commands, add(text)});
        same->pointer = commands;
    }
    entry.commandsIndex = static_cast<size_t>(same - m_commands.begin());
    entry.commands = same->text;
}

CSnapshot::SText CSnapshot::takeProperties(IModelItem &item)
{
    const size_t start = m_used;
    const int count = std::clamp(item.propertyCount(), 0, MaxProperties);
    for (int i = 0; i < count && m_used <= MaxBytes; ++i) {
        IModelProperty *property = item.property(i);
        if (!property)
            continue;
        const bool isNumber = isInteger(orEmpty(property->storageTypeName()));
        const std::string_view name = cut(property->name());
        if (isNumber) {
            const int32_t number = property->valueAsInteger();
            char *at = room(1 + name.size() + 1 + sizeof number);
            *at = NumberTag;
            std::memcpy(write(at + 1, name), &number, sizeof number);
        } else {
            const std::string_view value = cut(property->valueText());
            char *at = room(1 + name.size() + 1 + value.size() + 1);
            *at = TextTag;
            write(write(at + 1, name), value);
        }
    }
    return {static_cast<uint32_t>(start), static_cast<uint32_t>(m_used - start)};
}

/// The next bytes of the buffer. It keeps its size from walk to walk.
char *CSnapshot::room(size_t size)
{
    if (m_bytes.size() - m_used < size)
        m_bytes.resize(2 * m_bytes.size() + size);
    char *bytes = m_bytes.data() + m_used;
    m_used += size;
    return bytes;
}

CSnapshot::SText CSnapshot::add(const char *zeroTerminated)
{
    return add(cut(zeroTerminated));
}

CSnapshot::SText CSnapshot::add(std::string_view text)
{
    const SText where{static_cast<uint32_t>(m_used), static_cast<uint32_t>(text.size())};
    write(room(text.size() + 1), text);
    return where;
}

std::string_view CSnapshot::propertyBytes(size_t item) const
{
    return text(m_items[item].properties);
}

std::string CSnapshot::label(size_t item) const
{
    std::string label(typeName(item));
    if (!idText(item).empty())
        label.append(1, ' ').append(idText(item));
    CProperties all = properties(item);
    for (SProperty property; all.next(property);) {
        if (property.name == "name" && !property.text.empty())
            label.append(" \"").append(shownName(property.text)).append(1, '"');
    }
    return label;
}

std::optional<size_t> CSnapshot::findItem(uint32_t id) const
{
    for (size_t item = 0; id != 0 && item < m_items.size(); ++item) {
        if (m_items[item].id == id)
            return item;
    }
    return std::nullopt;
}

std::string_view CSnapshot::screenText(std::string_view name) const
{
    CProperties properties = screenProperties();
    for (SProperty property; properties.next(property);) {
        if (property.name == name)
            return property.text;
    }
    return {};
}

bool CSnapshot::CProperties::next(SProperty &property)
{
    if (m_at == m_end)
        return false;
    property.isNumber = *m_at++ == NumberTag;
    property.name = m_at;
    m_at += property.name.size() + 1;
    if (property.isNumber) {
        property.text = {};
        std::memcpy(&property.number, m_at, sizeof property.number);
        m_at += sizeof property.number;
    } else {
        property.number = 0;
        property.text = m_at;
        m_at += property.text.size() + 1;
    }
    return true;
}

} // namespace kivemu
