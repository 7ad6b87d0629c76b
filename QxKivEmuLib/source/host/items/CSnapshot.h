#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class IModelItem;
class IModelIterator;

namespace kivemu {

/// Everything that one frame needs of the model, read in one walk. Keeps no pointer to the model.
/// All texts lie in one buffer, so that a snapshot that is taken again allocates nothing, and two
/// states of an item are compared by comparing bytes.
/// Threads: none; it is handed from the caller's thread to the worker.
class CSnapshot
{
public:
    static constexpr size_t MaxItems = 100'000;
    static constexpr int MaxProperties = 10'000;          ///< of one item
    static constexpr size_t MaxBytes = size_t{256} << 20; ///< of all texts

    enum class EKind { Widget, Group, Unknown };

    struct SProperty
    {
        std::string_view name;
        std::string_view text;
        int32_t number = 0;
        bool isNumber = false; ///< integers and booleans; `text` is then empty
    };

    /// Walks from the iterator's present position, the screen, to the end. Takes a null iterator
    /// and one without a screen too; problem() then says so.
    void take(IModelIterator *iterator);

    /// What is wrong with the walk itself; empty when nothing is.
    const std::string &problem() const { return m_problem; }
    bool hasScreen() const { return m_hasScreen; }

    size_t itemCount() const { return m_items.size(); }
    std::string_view typeName(size_t item) const { return text(m_items[item].typeName); }
    std::string_view idText(size_t item) const { return text(m_items[item].idText); }
    /// The id text as a number; 0 when it is none of 0 .. 0xFFFFFFFF.
    uint32_t id(size_t item) const { return m_items[item].id; }
    /// What messages call the item: "<type> <id> "<name>"", without the id or the name when it has
    /// none.
    std::string label(size_t item) const;
    EKind kind(size_t item) const { return m_items[item].kind; }
    /// Zero-terminated. Items of the same kind share one text.
    std::string_view renderCommands(size_t item) const { return text(m_items[item].commands); }
    /// Which of the distinct texts of render commands the item has.
    size_t commandsIndex(size_t item) const { return m_items[item].commandsIndex; }
    /// All bytes of the item's properties: equal bytes, equal properties.
    std::string_view propertyBytes(size_t item) const;

    /// Walks the properties of an item or, with screenProperties(), of the screen.
    class CProperties
    {
    public:
        CProperties(const char *from, const char *to) : m_at(from), m_end(to) {}
        bool next(SProperty &property);

    private:
        const char *m_at;
        const char *m_end;
    };
    CProperties properties(size_t item) const { return properties(m_items[item].properties); }
    CProperties screenProperties() const { return properties(m_screenProperties); }
    /// The first item with this id; nothing for 0 and unknown ones.
    std::optional<size_t> findItem(uint32_t id) const;
    /// The text of a screen's property; empty when it has none of that name.
    std::string_view screenText(std::string_view name) const;

private:
    struct SText
    {
        uint32_t offset = 0;
        uint32_t length = 0;
    };
    struct SItem
    {
        SText typeName;
        SText idText;
        SText commands;
        SText properties;
        size_t commandsIndex = 0;
        uint32_t id = 0;
        EKind kind = EKind::Unknown;
    };
    /// Render commands, as the last item that had them gave them.
    struct SCommands
    {
        const char *pointer = nullptr;
        SText text;
    };
    void clear();
    char *room(size_t size);
    void addItem(IModelItem &item);
    void takeCommands(IModelItem &item, SItem &entry);
    SText takeProperties(IModelItem &item);
    SText add(const char *zeroTerminated);
    SText add(std::string_view text);
    std::string_view text(SText where) const
    {
        return {m_bytes.data() + where.offset, where.length};
    }
    CProperties properties(SText where) const
    {
        const char *from = m_bytes.data() + where.offset;
        return {from, from + where.length};
    }

    std::string m_problem;
    bool m_hasScreen = false;
    SText m_screenProperties;
    std::vector<SItem> m_items;
    std::vector<char> m_bytes; ///< the first m_used of them hold something
    size_t m_used = 0;
    std::vector<SCommands> m_commands; ///< distinct texts
};

} // namespace kivemu
