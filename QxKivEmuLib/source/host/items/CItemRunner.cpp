#include "CItemRunner.h"

#include "CErrorList.h"
#include "host/assets/CAssetLoader.h"
#include "host/draw/CDrawContext.h"
#include "host/draw/ItemBox.h"
#include "host/draw/UnknownCharacters.h"
#include "host/lua/CLuaAllocator.h"
#include "host/lua/CLuaSandbox.h"
#include "text/CTexts.h"

#include <algorithm>

namespace kivemu {

namespace {

constexpr char EnvironmentKey[] = "kiv.environment";
constexpr size_t MostChunks = 2000; ///< texts that are kept; far more than any widget library has
constexpr size_t MaxCommands = size_t{64} << 10; ///< bytes; the compiler cannot be stopped
constexpr uint64_t WorkPerItem = 1000;
constexpr int MostVariables = 200; ///< of a chunk, before its table is thrown away

/// Makes the table that a chunk's own variables go into, the properties and globals behind it.
void makeEnvironment(lua_State *state)
{
    lua_newtable(state);
    lua_newtable(state);
    lua_pushboolean(state, false);
    lua_setfield(state, -2, "__metatable");
    lua_setmetatable(state, -2);
    lua_setfield(state, LUA_REGISTRYINDEX, EnvironmentKey);
}

} // namespace

CItemRunner::CItemRunner(CLuaSandbox &sandbox, uint64_t itemWork)
    : m_sandbox(sandbox), m_itemWork(itemWork)
{
}

void CItemRunner::beginFrame(const CSnapshot &snapshot, CErrorList &errors)
{
    m_snapshot = &snapshot;
    m_errors = &errors;
    m_current = NoItem;
    m_overruns = 0;
    m_cutTexts.clear();
    m_tables.beginFrame(snapshot);
    m_frameChunks.clear();
}

void CItemRunner::endFrame()
{
    reportMissing();
    m_snapshot = nullptr;
    m_errors = nullptr;
    m_frameChunks.clear();
    if (m_chunks.size() > MostChunks) {
        for (const auto &chunk : m_chunks)
            luaL_unref(m_sandbox.state(), LUA_REGISTRYINDEX, chunk.second.function);
        m_chunks.clear();
    }
}

void CItemRunner::noteCurrent(std::string_view message)
{
    if (m_current == NoItem)
        m_errors->add("render", message);
    else
        m_errors->add(m_snapshot->label(m_current), message);
}

void CItemRunner::addFunctions(lua_State *state)
{
    lua_pushcfunction(state, drawItem);
    lua_setglobal(state, "draw_item");
    makeEnvironment(state);
}

int CItemRunner::drawItem(lua_State *state)
{
    CItemRunner *runner = contextOf(state).items;
    if (!runner || !contextOf(state).drawing)
        return luaL_error(state, "items can be drawn only while a frame is drawn");
    const size_t item = runner->m_tables.checkItem(state, 1);
    if (runner->m_current != NoItem)
        luaL_error(state, "draw_item cannot be used in render commands");
    lua_settop(state, 0);
    luaL_checkstack(state, LUA_MINSTACK, nullptr);
    runner->draw(state, item);
    // An item that used up what the frame has ends the frame.
    if (CWatchdog &watchdog = contextOf(state).watchdog; watchdog.add(WorkPerItem))
        luaL_error(state, "%s; the items from here on are not drawn", watchdog.reason());
    return 0;
}

void CItemRunner::draw(lua_State *state, size_t item)
{
    CDrawContext &drawing = *contextOf(state).drawing;
    if (m_snapshot->kind(item) == CSnapshot::EKind::Group)
        return;
    reportMissing(); // what the script drew itself
    m_current = item;
    const CDrawContext::SMark drawn = drawing.mark();
    CAssetLoader &assets = *contextOf(state).assets;
    const CAssetLoader::SMark loaded = assets.mark();
    const CTexts::SMark written = contextOf(state).texts->mark();
    drawing.beginItem(m_snapshot->id(item));
    const EOutcome outcome = run(state, item);
    drawing.endItem();
    if (outcome == EOutcome::Stopped) {
        drawing.takeBack(drawn);
        assets.takeBack(loaded);
        contextOf(state).texts->takeBack(written);
    }
    if (outcome != EOutcome::Drawn) {
        const SItemBox box = itemBox(*m_snapshot, item);
        drawing.beginItem(m_snapshot->id(item));
        drawing.hatchedBox(box.x, box.y, box.width, box.height);
        drawing.endItem();
    }
    reportMissing();
    m_current = NoItem;
}

void CItemRunner::reportMissing()
{
    if (!m_missing.empty())
        noteCurrent(messageOfUnknown(m_missing));
    m_missing.clear();
    for (const auto &[font, characters] : m_missingInFonts)
        noteCurrent(messageOfMissing(font, characters));
    m_missingInFonts.clear();
}

void CItemRunner::noteMissing(const std::string &font, const std::u32string &characters)
{
    constexpr size_t MostMissing = 32;
    auto known = std::find_if(m_missingInFonts.begin(), m_missingInFonts.end(),
                              [&](const auto &missing) { return missing.first == font; });
    if (known == m_missingInFonts.end())
        known = m_missingInFonts.insert(known, {font, {}});
    for (const char32_t c : characters) {
        if (known->second.size() < MostMissing && known->second.find(c) == std::u32string::npos)
            known->second += c;
    }
}

void CItemRunner::noteCutText()
{
    const uint32_t id = m_current == NoItem ? 0 : m_snapshot->id(m_current);
    if (id != 0 && (m_cutTexts.empty() || m_cutTexts.back() != id))
        m_cutTexts.push_back(id);
}

/// Work that an item may do. Those that overrun take less and less of the frame, so that many of
/// them leave the others drawn: each halves what is left to an item, down to a sixteenth, and to
/// one of the same commands an eighth, down to a 256th.
uint64_t CItemRunner::shareOf(const SChunk &chunk) const
{
    constexpr int MostHalvings = 4;
    constexpr int HalvingsOfOwn = 3;
    constexpr int MostOfOwn = 8;
    const int others = std::min(m_overruns, MostHalvings);
    const int own = std::min(chunk.overruns * HalvingsOfOwn, MostOfOwn);
    return m_itemWork >> std::max(others, own);
}

/// When the commands fail, the message is noted. Stopped is what did too much, in time or memory.
CItemRunner::EOutcome CItemRunner::run(lua_State *state, size_t item)
{
    if (m_snapshot->kind(item) == CSnapshot::EKind::Unknown) {
        m_errors->add(m_snapshot->label(item),
                      "the widget library has no such kind, or no render commands for it");
        return EOutcome::Failed;
    }
    SChunk &chunk = chunkOf(state, item);
    if (chunk.function == 0) {
        m_errors->add(m_snapshot->label(item), chunk.error);
        return EOutcome::Failed;
    }
    if (const std::string &problem = m_tables.problem(item); !problem.empty()) {
        m_errors->add(m_snapshot->label(item), problem);
        return EOutcome::Failed;
    }
    SLuaContext &context = contextOf(state);
    m_tables.pushProperties(state, item);
    const int properties = lua_gettop(state);
    const bool isDirect = leavesProperties(state, chunk);
    lua_rawgeti(state, LUA_REGISTRYINDEX, chunk.function);
    if (isDirect)
        lua_pushvalue(state, properties);
    else
        pushEnvironment(state, item);
    lua_setupvalue(state, -2, 1);
    context.watchdog.beginPart(shareOf(chunk),
                               std::max(chunk.longestText, m_tables.longestText(item)));
    const int status = lua_pcall(state, 0, 0, 0);
    if (status != LUA_OK)
        m_errors->add(m_snapshot->label(item), m_sandbox.popError(status));
    const bool wasStopped = context.watchdog.endPart();
    chunk.overruns += wasStopped ? 1 : 0;
    m_overruns += wasStopped ? 1 : 0;
    if (isDirect) {
        for (const std::string &name : chunk.assignments.names) {
            lua_pushlstring(state, name.data(), name.size());
            lua_pushnil(state);
            lua_rawset(state, properties);
        }
    } else {
        clearEnvironment(state);
    }
    lua_settop(state, properties - 1);
    if (wasStopped || status == LUA_ERRMEM)
        return EOutcome::Stopped;
    return status == LUA_OK ? EOutcome::Drawn : EOutcome::Failed;
}

/// True when a chunk can run right in the table of properties, which is at the top: that saves a
/// step with every variable that it reads. It must not assign a property then, and what else it
/// assigns is known and can be taken out again.
bool CItemRunner::leavesProperties(lua_State *state, const SChunk &chunk) const
{
    if (chunk.assignments.isUnbounded)
        return false;
    for (const std::string &name : chunk.assignments.names) {
        lua_pushlstring(state, name.data(), name.size());
        const bool isProperty = lua_rawget(state, -2) != LUA_TNIL;
        lua_pop(state, 1);
        if (isProperty)
            return false;
    }
    return true;
}

CItemRunner::SChunk &CItemRunner::chunkOf(lua_State *state, size_t item)
{
    const size_t index = m_snapshot->commandsIndex(item);
    if (index >= m_frameChunks.size())
        m_frameChunks.resize(index + 1, nullptr);
    if (m_frameChunks[index])
        return *m_frameChunks[index];
    const std::string_view text = m_snapshot->renderCommands(item);
    SChunk &chunk = m_chunks[std::string(text)];
    m_frameChunks[index] = &chunk;
    chunk.overruns = 0;
    if (chunk.function == 0 && chunk.error.empty()) {
        CWatchdog &watchdog = contextOf(state).watchdog;
        const CReach outside = watchdog.reach();
        watchdog.resetReach({});
        chunk.error = text.size() > MaxCommands ? "the render commands are longer than " +
                                                      std::to_string(MaxCommands) + " bytes"
                                                : m_sandbox.compile(text, "line");
        if (chunk.error.empty()) {
            chunk.assignments = findAssignments(text);
            chunk.function = luaL_ref(state, LUA_REGISTRYINDEX);
        }
        chunk.longestText = watchdog.reach().text();
        watchdog.resetReach(outside);
    }
    return chunk;
}

void CItemRunner::pushEnvironment(lua_State *state, size_t item)
{
    lua_getfield(state, LUA_REGISTRYINDEX, EnvironmentKey);
    lua_getmetatable(state, -1);
    m_tables.pushProperties(state, item);
    lua_setfield(state, -2, "__index");
    lua_pop(state, 1);
}

/// Takes the chunk's variables out again.
void CItemRunner::clearEnvironment(lua_State *state)
{
    int count = 0;
    lua_getfield(state, LUA_REGISTRYINDEX, EnvironmentKey);
    lua_pushnil(state);
    while (lua_next(state, -2)) {
        lua_pop(state, 1);
        if (++count == MostVariables) {
            // The emptied table would stay large, and slow to look through for every item.
            lua_pop(state, 2);
            makeEnvironment(state);
            return;
        }
        lua_pushvalue(state, -1);
        lua_pushnil(state);
        lua_rawset(state, -4);
    }
    lua_pop(state, 1);
}

} // namespace kivemu
