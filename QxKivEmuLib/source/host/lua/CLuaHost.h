#pragma once

#include "ScriptLimits.h"
#include "executor/ChipLimits.h"
#include "host/assets/CAssetLoader.h"
#include "host/items/CErrorList.h"
#include "host/items/CSnapshot.h"
#include "text/CTexts.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

struct lua_State;

namespace kivemu {

class CDrawContext;
class CItemRunner;
class CLuaSandbox;

/// What a frame's script run gives: a whole display list in any case.
struct SDrawing
{
    std::vector<uint32_t> words;
    size_t ramDlNeeded = 0; ///< bytes of the whole list; more than those of `words` when it was cut
    size_t ramGNeeded =
        0; ///< bytes of all assets; more than the memory holds when some are missing
    std::vector<uint32_t> cutTexts; ///< ids of items that have no room for a text, each once
    CErrorList errors;
};

/// A render script as it was read from its file.
struct SScriptText
{
    std::string text;
    std::string name;    ///< what messages call it
    std::string problem; ///< why it could not be read; empty when it was

    static SScriptText read(const std::string &path);
};

/// Runs the render script: turns a snapshot into a display list and the contents of RAM_G.
/// A script that fails, hangs or eats memory ends in an error message, and the next frame starts
/// from a fresh state.
/// Threads: one thread at a time.
class CLuaHost
{
public:
    explicit CLuaHost(const SChipLimits &chip, const SScriptLimits &limits = {});
    ~CLuaHost();

    /// False and loadError() when the script could not be read or cannot be run. The error is then
    /// also reported with every frame, which is black.
    bool load(const SScriptText &script);
    bool loadFile(const std::string &path) { return load(SScriptText::read(path)); }
    bool loadText(const std::string &text, const std::string &name)
    {
        return load({text, name, {}});
    }
    const std::string &loadError() const { return m_loadError; }
    /// A flag that ends the frame that is being drawn when it becomes true; it must outlive the
    /// host. To be given before the script.
    void followCancel(const std::atomic<bool> &cancelled) { m_cancelled = &cancelled; }

    /// Width and height must be within the chip's largest screen.
    SDrawing draw(const CSnapshot &snapshot, int width, int height);
    const CRamG &memory() const { return m_assets.memory(); }
    std::vector<SPlacedAsset> assets() const { return m_assets.placed(); }
    const SChipLimits &chip() const { return m_chip; }

private:
    struct SFrame;
    bool startState();
    void runRender(const CSnapshot &snapshot, CDrawContext &drawing, int width, int height,
                   SDrawing &result);
    std::vector<uint32_t> placeFonts(CErrorList &errors);
    void tidyState();
    static int callRender(lua_State *state);
    static int finishLoading(lua_State *state);

    SChipLimits m_chip;
    SScriptLimits m_limits;
    const std::atomic<bool> *m_cancelled = nullptr;
    std::string m_script;
    std::string m_name;
    std::string m_loadError;
    CAssetLoader m_assets;
    CTexts m_texts;
    std::unique_ptr<CLuaSandbox> m_sandbox; ///< null when the next frame must start a fresh one
    std::unique_ptr<CItemRunner> m_items;
    size_t m_scriptText = 0; ///< bytes of the longest text that the script holds
    uint64_t m_frameNumber = 0;
};

} // namespace kivemu
