#pragma once

#include "QxKivEmuLib.h"
#include "host/CSnapshot.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kivemu {

class CFrameMaker;
struct SFrame;

/// The emulator behind the five functions: one worker thread that takes requests in order and calls
/// back, display list first, complete frame last, always both.
/// Threads: the operations may be called from any thread; all callbacks come from the worker. A
/// callback may call render(), but neither start() nor stop(), which would wait for itself.
class CEmulator
{
public:
    static CEmulator &instance();
    /// At the end of the process: drops what is queued and waits for what is under way.
    void endWorker();

    CEmulator();
    ~CEmulator() = delete; // see instance()
    CEmulator(const CEmulator &) = delete;
    CEmulator &operator=(const CEmulator &) = delete;

    void setCallbacks(EmuFrameCallback frame, EmuDisplayListCallback displayList);
    void setMemoryCallback(EmuMemoryCallback memory);
    /// False when the script cannot be used (the emulator then runs, and every frame says so), and
    /// in a callback.
    bool start(const std::string &scriptPath, uint32_t chipCode);
    void configure(uint32_t width, uint32_t height);
    void render(IModelIterator *iterator, void *observer, bool isForeground);
    /// False in a callback.
    bool stop();

private:
    struct SRequest
    {
        CSnapshot snapshot;
        void *observer = nullptr;
        bool isForeground = true;
        uint32_t width = 0;
        uint32_t height = 0;
        EmuFrameCallback frame = nullptr;
        EmuDisplayListCallback displayList = nullptr;
        EmuMemoryCallback memory = nullptr;
    };
    using RequestPtr = std::unique_ptr<SRequest>;

    RequestPtr newRequest();
    bool finishRequests();
    void work();
    void serve(const SRequest &request);
    bool isWorker() const;

    mutable std::mutex m_mutex; ///< guards all below; the frame makers while nothing is served
    std::condition_variable m_wake;
    std::condition_variable m_idle;
    EmuFrameCallback m_frame = nullptr;
    EmuDisplayListCallback m_displayList = nullptr;
    EmuMemoryCallback m_memory = nullptr;
    uint32_t m_width = 480;
    uint32_t m_height = 272;
    std::deque<RequestPtr> m_queue;
    std::vector<RequestPtr> m_spare;        ///< served ones, whose buffers are used again
    uint64_t m_accepted = 0;                ///< requests so far
    uint64_t m_answered = 0;                ///< of these, answered or dropped
    std::atomic<bool> m_isCancelled{false}; ///< what is being served is not wanted any more
    bool m_isServing = false;
    bool m_isStopping = false;
    bool m_quit = false;
    std::unique_ptr<CFrameMaker> m_maker;      ///< null while the emulator is stopped
    std::unique_ptr<CFrameMaker> m_blackMaker; ///< for requests to a stopped emulator
    std::thread m_worker;                      ///< started with the first request
};

} // namespace kivemu
