#include "CItemTables.h"

#include "host/lua/CLuaAllocator.h"
#include "host/lua/SLuaContext.h"

#include <algorithm>
#include <cstring>

namespace kivemu {

namespace {

constexpr char ItemType[] = "kiv.item";
constexpr int PropertiesValue = 1; ///< user values of an item object
constexpr int ViewValue = 2;
constexpr size_t LongestShownName = 60;
constexpr size_t MostProperties = 2000; ///< well within the keys of a Lua table

const char *kindName(CSnapshot::EKind kind)
{
    switch (kind) {
    case CSnapshot::EKind::Widget:
        return "widget";
    case CSnapshot::EKind::Group:
        return "group";
    default:
        return "unknown";
    }
}

void pushText(lua_State *state, std::string_view text)
{
    lua_pushlstring(state, text.data(), text.size());
}

/// Sets the properties in the table at the top of the stack. Says why when one was left out; empty
/// when all are there.
std::string setProperties(lua_State *state, CSnapshot::CProperties properties,
                          size_t *longest = nullptr)
{
    std::string problem;
    size_t count = 0;
    for (CSnapshot::SProperty property; properties.next(property);) {
        if (property.text.find('\0') != std::string_view::npos) {
            problem = "the property '" + std::string(property.name.substr(0, LongestShownName)) +
                      "' holds a zero byte";
            continue;
        }
        if (std::max(property.name.size(), property.text.size()) > CLuaAllocator::MaxString) {
            problem = "the property '" + std::string(property.name.substr(0, LongestShownName)) +
                      "' is longer than " + std::to_string(CLuaAllocator::MaxString) + " bytes";
            continue;
        }
        if (++count > MostProperties)
            return "it has more than " + std::to_string(MostProperties) + " properties";
        if (longest)
            *longest = std::max(*longest, property.text.size());
        pushText(state, property.name);
        if (property.isNumber)
            lua_pushinteger(state, property.number);
        else
            pushText(state, property.text);
        lua_rawset(state, -3);
    }
    return problem;
}

int readOnlyItem(lua_State *state)
{
    return luaL_error(state, "an item cannot be changed");
}

/// Reads a property, and nothing of what lies behind the table.
int viewField(lua_State *state)
{
    lua_pushvalue(state, 2);
    if (lua_rawget(state, lua_upvalueindex(1)) == LUA_TSTRING)
        contextOf(state).watchdog.reachText(lua_rawlen(state, -1));
    if (lua_isuserdata(state, -1))
        lua_pushnil(state); // the item itself, which is a variable but no property
    return 1;
}

/// pairs of a view: of a copy of the properties.
int viewPairs(lua_State *state)
{
    lua_newtable(state);
    lua_pushnil(state);
    while (lua_next(state, lua_upvalueindex(1))) {
        if (lua_isuserdata(state, -1)) {
            lua_pop(state, 1);
            continue;
        }
        lua_pushvalue(state, -2);
        lua_insert(state, -2);
        lua_rawset(state, -4);
    }
    lua_getglobal(state, "pairs");
    lua_insert(state, -2);
    lua_call(state, 1, 3);
    return 3;
}

/// Pushes the read-only view of the property table at the top of the stack.
void pushView(lua_State *state)
{
    lua_newtable(state);
    lua_newtable(state);
    lua_pushvalue(state, -3);
    lua_pushcclosure(state, viewField, 1);
    lua_setfield(state, -2, "__index");
    lua_pushvalue(state, -3);
    lua_pushcclosure(state, viewPairs, 1);
    lua_setfield(state, -2, "__pairs");
    lua_pushcfunction(state, readOnlyItem);
    lua_setfield(state, -2, "__newindex");
    lua_pushboolean(state, false);
    lua_setfield(state, -2, "__metatable");
    lua_setmetatable(state, -2);
}

} // namespace

void CItemTables::beginFrame(const CSnapshot &snapshot)
{
    m_snapshot = &snapshot;
    ++m_frame;
    m_ofItem.clear();
}

CItemTables::SEntry &CItemTables::entryOf(size_t item)
{
    m_key = m_snapshot->idText(item);
    SEntry *entry = &m_entries[m_key];
    if (entry->handle && entry->handle->frame == m_frame) {
        m_key += '#';
        m_key += std::to_string(item);
        entry = &m_entries[m_key];
    }
    return *entry;
}

void CItemTables::pushItems(lua_State *state)
{
    const size_t count = m_snapshot->itemCount();
    // An odd number, so that it cannot be taken for a table of keys.
    lua_createtable(state, static_cast<int>(count | 1), 0);
    for (size_t item = 0; item < count; ++item) {
        SEntry &entry = entryOf(item);
        pushObject(state, item, entry);
        m_ofItem.push_back(&entry);
        lua_rawseti(state, -2, static_cast<lua_Integer>(item) + 1);
    }
}

void CItemTables::pushObject(lua_State *state, size_t item, SEntry &entry)
{
    if (!entry.handle || entry.properties != m_snapshot->propertyBytes(item) ||
        entry.type != m_snapshot->typeName(item))
        build(state, item, entry);
    entry.handle->frame = m_frame;
    entry.handle->item = item;
    lua_rawgeti(state, LUA_REGISTRYINDEX, entry.object);
}

void CItemTables::build(lua_State *state, size_t item, SEntry &entry)
{
    // The entry is valid only when everything is in place: each step may run out of memory.
    if (entry.handle) {
        entry.handle = nullptr;
        luaL_unref(state, LUA_REGISTRYINDEX, entry.object);
        luaL_unref(state, LUA_REGISTRYINDEX, entry.table);
    }
    auto *handle = static_cast<SHandle *>(lua_newuserdatauv(state, sizeof(SHandle), 2));
    *handle = {0, 0};
    if (luaL_newmetatable(state, ItemType)) {
        lua_pushcfunction(state, field);
        lua_setfield(state, -2, "__index");
        lua_pushcfunction(state, readOnlyItem);
        lua_setfield(state, -2, "__newindex");
        lua_pushboolean(state, false);
        lua_setfield(state, -2, "__metatable");
    }
    lua_setmetatable(state, -2);
    lua_newtable(state);
    entry.longestText = 0;
    std::string problem = setProperties(state, m_snapshot->properties(item), &entry.longestText);
    lua_pushvalue(state, -2);
    lua_setfield(state, -2, "item");
    if (luaL_newmetatable(state, "kiv.properties")) {
        lua_pushglobaltable(state);
        lua_setfield(state, -2, "__index");
    }
    lua_setmetatable(state, -2);
    lua_pushvalue(state, -1);
    lua_setiuservalue(state, -3, PropertiesValue);
    entry.properties = m_snapshot->propertyBytes(item);
    entry.type = m_snapshot->typeName(item);
    entry.problem = std::move(problem);
    entry.table = luaL_ref(state, LUA_REGISTRYINDEX);
    entry.object = luaL_ref(state, LUA_REGISTRYINDEX);
    entry.handle = handle;
}

void CItemTables::dropUnused(lua_State *state)
{
    for (auto entry = m_entries.begin(); entry != m_entries.end();) {
        const bool isUsed = entry->second.handle && entry->second.handle->frame == m_frame;
        if (!isUsed && entry->second.handle) {
            luaL_unref(state, LUA_REGISTRYINDEX, entry->second.object);
            luaL_unref(state, LUA_REGISTRYINDEX, entry->second.table);
        }
        entry = isUsed ? std::next(entry) : m_entries.erase(entry);
    }
}

void CItemTables::pushScreen(lua_State *state, int width, int height)
{
    lua_newtable(state);
    setProperties(state, m_snapshot->screenProperties());
    lua_pushinteger(state, width);
    lua_setfield(state, -2, "width");
    lua_pushinteger(state, height);
    lua_setfield(state, -2, "height");
}

size_t CItemTables::checkItem(lua_State *state, int argument) const
{
    const auto *handle = static_cast<const SHandle *>(luaL_checkudata(state, argument, ItemType));
    if (handle->frame != m_frame)
        luaL_error(state, "the item belongs to another frame");
    return handle->item;
}

void CItemTables::pushProperties(lua_State *state, size_t item) const
{
    lua_rawgeti(state, LUA_REGISTRYINDEX, m_ofItem[item]->table);
}

/// item.type and so on.
int CItemTables::field(lua_State *state)
{
    const CItemTables &tables = *contextOf(state).itemTables;
    const size_t item = tables.checkItem(state, 1);
    const char *name = luaL_checkstring(state, 2);
    if (std::strcmp(name, "properties") == 0) {
        if (lua_getiuservalue(state, 1, ViewValue) == LUA_TNIL) {
            lua_getiuservalue(state, 1, PropertiesValue);
            pushView(state);
            lua_pushvalue(state, -1);
            lua_setiuservalue(state, 1, ViewValue);
        }
    } else if (std::strcmp(name, "type") == 0) {
        pushText(state, tables.m_snapshot->typeName(item));
    } else if (std::strcmp(name, "id") == 0) {
        lua_pushinteger(state, tables.m_snapshot->id(item));
    } else if (std::strcmp(name, "kind") == 0) {
        lua_pushstring(state, kindName(tables.m_snapshot->kind(item)));
    } else {
        lua_pushnil(state);
    }
    return 1;
}

} // namespace kivemu
