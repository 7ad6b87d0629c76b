#pragma once

#include "QxKivEmuLib.h"
#include "host/items/CSnapshot.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kivemu {

class CFrameMaker;
class CRun;
struct SFrame;

/// The emulator behind the C functions. Requests are begun and answered in their order, one answer
/// at a time: display list first, complete frame last, always both. As many are worked on at once
/// as there are cores, so whoever waits for each answer has one worker, and always the same caches.
/// A worker that does not end, because a disk does not answer for instance, is left behind by
/// stop(): it owns all that it uses together with others, and calls nobody back.
/// Threads: the operations may be called from any thread; callbacks come from the workers. A
/// callback may call render(), but neither start() nor stop(), which would wait for itself.
class CEmulator
{
public:
    /// How long stop() and the end of the process wait for workers, which look at short intervals
    /// whether they are still wanted.
    static constexpr std::chrono::milliseconds LongestStop{400};

    static CEmulator &instance();
    /// At the end of the process: drops what is queued and ends the workers.
    void endWorkers();

    CEmulator();
    ~CEmulator() = delete; // see instance()
    CEmulator(const CEmulator &) = delete;
    CEmulator &operator=(const CEmulator &) = delete;

    void setCallbacks(EmuFrameCallback frame, EmuDisplayListCallback displayList);
    void setMemoryCallback(EmuMemoryCallback memory);
    void setCutTextsCallback(EmuCutTextsCallback texts);
    /// False when the script cannot be used (the emulator then runs, and every frame says so), and
    /// in a callback.
    bool start(const std::string &scriptPath, uint32_t chipCode);
    void configure(uint32_t width, uint32_t height);
    void render(IModelIterator *iterator, void *observer, bool isForeground);
    /// False in a callback, and when a worker was left behind.
    bool stop();
    size_t mostWorkers() const { return m_mostWorkers; }

private:
    struct SRequest
    {
        CSnapshot snapshot;
        std::shared_ptr<CRun> run;
        void *observer = nullptr;
        bool isForeground = true;
        bool isDropped = false;
        uint32_t width = 0;
        uint32_t height = 0;
        EmuFrameCallback frame = nullptr;
        EmuDisplayListCallback displayList = nullptr;
        EmuMemoryCallback memory = nullptr;
        EmuCutTextsCallback cutTexts = nullptr;
    };
    using RequestPtr = std::shared_ptr<SRequest>;
    struct SWorker
    {
        std::thread thread;
        std::shared_ptr<CRun> run; ///< that it serves; null while it has nothing to do
        bool isLeftBehind = false;
        bool hasEnded = false;
    };
    using WorkerPtr = std::shared_ptr<SWorker>;
    using Lock = std::unique_lock<std::mutex>;

    RequestPtr newRequest();
    void drop();
    bool waitForWorkers(Lock &lock, const std::function<bool(const SWorker &)> &hasDone);
    void startWorker();
    void work(const WorkerPtr &self);
    void serve(Lock &lock, const RequestPtr &request, CRun &run);
    void deliver(Lock &lock, const RequestPtr &request, const CFrameMaker &maker,
                 const SFrame &frame);
    static void callBack(const SRequest &request, const CFrameMaker &maker, const SFrame &frame);
    bool isInCallback() const { return m_deliverer == std::this_thread::get_id(); }

    const size_t m_mostWorkers;
    mutable std::mutex m_mutex;     ///< guards all below
    std::condition_variable m_wake; ///< a request waits, or the workers are to end
    std::condition_variable m_turn; ///< the oldest request has been answered or dropped
    std::condition_variable m_idle; ///< a worker has done, or a callback
    EmuFrameCallback m_frame = nullptr;
    EmuDisplayListCallback m_displayList = nullptr;
    EmuMemoryCallback m_memory = nullptr;
    EmuCutTextsCallback m_cutTexts = nullptr;
    uint32_t m_width = 480;
    uint32_t m_height = 272;
    std::shared_ptr<CRun> m_run;
    std::deque<RequestPtr> m_waiting;    ///< not begun
    std::deque<RequestPtr> m_unanswered; ///< all, in their order
    std::vector<RequestPtr> m_spare;     ///< answered ones, whose buffers are used again
    std::vector<WorkerPtr> m_workers;
    std::thread::id m_deliverer; ///< the worker that calls back now
    bool m_quit = false;
};

} // namespace kivemu
