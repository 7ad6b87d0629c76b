#pragma once

#include "CSnapshot.h"

#include <string>
#include <unordered_map>

struct lua_State;

namespace kivemu {

/// The items as Lua sees them: a read-only object for each, and the table of its properties in
/// which its render commands find their variables. Both are kept from frame to frame while the
/// item's properties are unchanged. The functions that take a state may raise Lua errors.
class CItemTables
{
public:
    void beginFrame(const CSnapshot &snapshot);
    void pushItems(lua_State *state); ///< an array of all items
    void pushScreen(lua_State *state, int width, int height);
    /// Lets go of the items that this frame did not have.
    void dropUnused(lua_State *state);

    /// The item that is the argument; a Lua error for anything else.
    size_t checkItem(lua_State *state, int argument) const;
    /// Pushes the table that holds the properties of an item, and the item itself as "item". The
    /// globals lie behind it.
    void pushProperties(lua_State *state, size_t item) const;
    /// Why a property is missing (too long for Lua, or one too many); empty when all are there.
    const std::string &problem(size_t item) const { return m_ofItem[item]->problem; }
    /// Bytes of an item's longest text.
    size_t longestText(size_t item) const { return m_ofItem[item]->longestText; }

private:
    /// What an item object holds.
    struct SHandle
    {
        uint64_t frame; ///< the last one that had the item
        size_t item;    ///< its place there
    };
    struct SEntry
    {
        std::string type;
        std::string properties; ///< the bytes that the tables were made from
        std::string problem;    ///< why a property was left out; empty: none was
        size_t longestText = 0;
        SHandle *handle = nullptr; ///< null before the first complete build
        int object = 0;            ///< references in the registry
        int table = 0;
    };
    static int field(lua_State *state);
    SEntry &entryOf(size_t item);
    void build(lua_State *state, size_t item, SEntry &entry);
    void pushObject(lua_State *state, size_t item, SEntry &entry);

    const CSnapshot *m_snapshot = nullptr;
    uint64_t m_frame = 0;
    std::unordered_map<std::string, SEntry>
        m_entries;                  ///< by id text; by place too where ids repeat
    std::vector<SEntry *> m_ofItem; ///< of the present frame
    std::string m_key;
};

} // namespace kivemu
