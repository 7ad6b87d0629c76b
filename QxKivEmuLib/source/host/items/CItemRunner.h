#pragma once

#include "CItemTables.h"
#include "host/lua/ChunkAssignments.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace kivemu {

class CErrorList;
class CLuaSandbox;

/// Runs the render commands of items: compiles each distinct text once, gives it the item's
/// properties as variables, and keeps its errors and its drawing state to the item.
class CItemRunner
{
public:
    /// The sandbox must outlive the runner.
    CItemRunner(CLuaSandbox &sandbox, uint64_t itemWork);

    /// Snapshot and errors must live until endFrame().
    void beginFrame(const CSnapshot &snapshot, CErrorList &errors);
    void endFrame();
    /// Lua's part of beginFrame(); may raise Lua errors.
    CItemTables &tables() { return m_tables; }

    /// Adds a message that concerns the item that is being drawn, or the script when there is none.
    void noteCurrent(std::string_view message);
    /// Characters that were drawn as "?"; reported once for each item, and for the script.
    std::u32string &missingCharacters() { return m_missing; }
    /// Characters that a font of the project and its fallbacks lack; reported in the same way.
    void noteMissing(const std::string &font, const std::u32string &characters);

    /// A text of the item that is being drawn was cut, since there is no more room for it.
    void noteCutText();
    /// Ids of the items of the last frame for which that was noted, each once.
    const std::vector<uint32_t> &cutTexts() const { return m_cutTexts; }

    /// Adds draw_item to the globals.
    static void addFunctions(lua_State *state);

private:
    struct SChunk
    {
        int function = 0;  ///< reference in the registry; 0: not compiled
        std::string error; ///< why it could not be compiled
        SChunkAssignments assignments;
        size_t longestText = 0; ///< bytes, of its constants
        int overruns = 0;       ///< items of this frame that were stopped in it
    };
    static constexpr size_t NoItem = static_cast<size_t>(-1);
    static int drawItem(lua_State *state);
    void draw(lua_State *state, size_t item);
    enum class EOutcome { Drawn, Failed, Stopped };
    EOutcome run(lua_State *state, size_t item);
    uint64_t shareOf(const SChunk &chunk) const;
    void reportMissing();
    SChunk &chunkOf(lua_State *state, size_t item);
    bool leavesProperties(lua_State *state, const SChunk &chunk) const;
    void pushEnvironment(lua_State *state, size_t item);
    void clearEnvironment(lua_State *state);

    CLuaSandbox &m_sandbox;
    const uint64_t m_itemWork;
    CItemTables m_tables;
    const CSnapshot *m_snapshot = nullptr;
    CErrorList *m_errors = nullptr;
    size_t m_current = NoItem;
    int m_overruns = 0;       ///< items of this frame that were stopped
    std::u32string m_missing; ///< of the item that is drawn, or of the script; so the next
    std::vector<std::pair<std::string, std::u32string>> m_missingInFonts;
    std::vector<uint32_t> m_cutTexts;
    std::unordered_map<std::string, SChunk> m_chunks; ///< by text
    std::vector<SChunk *> m_frameChunks;              ///< by the snapshot's index of the text
};

} // namespace kivemu
