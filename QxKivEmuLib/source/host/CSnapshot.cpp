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

uint32_t parseId(std::string_view text)
{
    uint32_t id = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
    return error == std::errc() && end == text.data() + text.size() ? id : 0;
}

} // namespace

void CSnapshot::clear()
{
    m_problem.clear();
    m_hasScreen = false;
    m_screenProperties = {};
    m_items.clear();
    m_bytes.clear();
    m_commands.clear();
    m_commandsByPointer.clear();
    m_commandsByType.clear();
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
        if (m_bytes.size() > MaxBytes) {
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

/// The text is the same for all items of a kind: one that was seen at the same place, or as the
/// last of the same type, is not copied again.
void CSnapshot::takeCommands(IModelItem &item, SItem &entry)
{
    const char *commands = orEmpty(item.renderCommands());
    const auto [known, isNew] = m_commandsByPointer.try_emplace(commands, 0);
    if (isNew) {
        const std::string type(text(entry.typeName));
        const auto ofType = m_commandsByType.find(type);
        const size_t length = std::strlen(commands);
        if (ofType != m_commandsByType.end() &&
            text(m_commands[ofType->second]) == std::string_view(commands, length)) {
            known->second = ofType->second;
        } else {
            known->second = m_commands.size();
            m_commandsByType[type] = m_commands.size();
            m_commands.push_back(add(commands));
        }
    }
    entry.commandsIndex = known->second;
    entry.commands = m_commands[known->second];
}

CSnapshot::SText CSnapshot::takeProperties(IModelItem &item)
{
    SText where;
    where.offset = static_cast<uint32_t>(m_bytes.size());
    const int count = std::clamp(item.propertyCount(), 0, MaxProperties);
    for (int i = 0; i < count && m_bytes.size() <= MaxBytes; ++i) {
        IModelProperty *property = item.property(i);
        if (!property)
            continue;
        const bool isNumber = std::strcmp(orEmpty(property->storageTypeName()), "int") == 0;
        m_bytes.push_back(isNumber ? NumberTag : TextTag);
        add(property->name());
        if (isNumber) {
            const int32_t number = property->valueAsInteger();
            const auto *bytes = reinterpret_cast<const char *>(&number);
            m_bytes.insert(m_bytes.end(), bytes, bytes + sizeof number);
        } else {
            add(property->valueText());
        }
    }
    where.length = static_cast<uint32_t>(m_bytes.size() - where.offset);
    return where;
}

CSnapshot::SText CSnapshot::add(const char *zeroTerminated)
{
    zeroTerminated = orEmpty(zeroTerminated);
    SText where;
    where.offset = static_cast<uint32_t>(m_bytes.size());
    // One text over the limit is cut, so that no offset can leave 32 bits.
    where.length = static_cast<uint32_t>(strnlen(zeroTerminated, MaxBytes));
    m_bytes.insert(m_bytes.end(), zeroTerminated, zeroTerminated + where.length);
    m_bytes.push_back('\0');
    return where;
}

std::string_view CSnapshot::propertyBytes(size_t item) const
{
    return text(m_items[item].properties);
}

std::string CSnapshot::label(size_t item) const
{
    return std::string(typeName(item)) + ' ' + std::string(idText(item));
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
