#pragma once

#include "executor/CExecutor.h"
#include "host/lua/CLuaHost.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kivemu {

class CSnapshot;
class CSurface;

/// Everything that the two callbacks hand out.
struct SFrame
{
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<uint32_t> pixels; ///< rows packed
    std::vector<uint8_t> displayList;
    std::string displayListText;
    std::string errors;             ///< a line each
    size_t ramGUsage = 0;           ///< bytes that all assets need
    size_t ramDlUsage = 0;          ///< bytes that the whole list needs
    std::vector<uint32_t> cutTexts; ///< ids of items
};

/// Makes frames for one chip: snapshot, script, display list, execution. A frame whose display list
/// and graphics memory are those of the one before is not drawn again.
/// Threads: one thread at a time.
class CFrameMaker
{
public:
    /// `cancelled` ends the frame that is being made when it becomes true; it must outlive the
    /// maker.
    CFrameMaker(uint32_t chipCode, const std::atomic<bool> &cancelled);
    ~CFrameMaker();

    /// False when the script cannot be used; every frame then says so and is black.
    bool load(const SScriptText &script) { return m_host.load(script); }

    /// The result is valid until the next call.
    const SFrame &make(const CSnapshot &snapshot, uint32_t width, uint32_t height);
    /// A black frame with an error text, made without a script.
    const SFrame &makeBlack(uint32_t width, uint32_t height, const std::string &error);

    /// What the last frame's display list was made for.
    const CRamG &memory() const { return m_host.memory(); }
    std::vector<SPlacedAsset> assets() const { return m_host.assets(); }

private:
    void execute(const std::vector<uint32_t> &words, const CSnapshot *snapshot);
    void copyPixels();

    CLuaHost m_host;
    CExecutor m_executor;
    std::unique_ptr<CSurface> m_surface; ///< null before the first frame
    SFrame m_frame;
    std::vector<uint32_t> m_words; ///< what the surface shows
    uint64_t m_generation = 0;
    std::string m_executionErrors;
};

} // namespace kivemu
