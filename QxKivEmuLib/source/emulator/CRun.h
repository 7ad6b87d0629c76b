#pragma once

#include "host/lua/CLuaHost.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace kivemu {

class CFrameMaker;
class CSnapshot;
struct SFrame;

/// What lies between a start of the emulator and its stop, or between a stop and a start: the
/// script, the chip, and a frame maker for each worker that is at work.
/// Threads: takeMaker() and giveBack() under the emulator's lock, the rest from any thread.
class CRun
{
public:
    using MakerPtr = std::unique_ptr<CFrameMaker>;

    CRun(); ///< of an emulator that is not started: black frames that say so
    CRun(SScriptText script, uint32_t chipCode);
    ~CRun();

    bool isStarted() const { return m_script.has_value(); }
    /// A maker with the script; `isLoaded` tells whether that can be used.
    MakerPtr newMaker(bool *isLoaded = nullptr) const;
    /// The one that was used last, whose caches fit best; null when all are at work.
    MakerPtr takeMaker();
    void giveBack(MakerPtr maker);

    const SFrame &make(CFrameMaker &maker, const CSnapshot &snapshot, uint32_t width,
                       uint32_t height) const;
    /// Ends what is being made, wherever it then is.
    void cancel() { m_isCancelled = true; }

private:
    const std::optional<SScriptText> m_script;
    const uint32_t m_chipCode;
    std::atomic<bool> m_isCancelled{false}; ///< the makers look at it
    std::vector<MakerPtr> m_makers;         ///< those that are not at work
};

} // namespace kivemu
