#include "CEmulator.h"

#include "CFrameMaker.h"
#include "CRun.h"

#include <algorithm>
#include <exception>
#include <utility>

#if defined(__linux__)
#include <sched.h>
#endif

namespace kivemu {

namespace {

constexpr uint32_t CompleteFrame = 1;
constexpr size_t MostSpare = 4;

void tellMemory(const CFrameMaker &maker, EmuMemoryCallback callback)
{
    const std::vector<SPlacedAsset> placed = maker.assets();
    std::vector<EmuAsset> assets;
    assets.reserve(placed.size());
    for (const SPlacedAsset &asset : placed)
        assets.push_back({asset.file.c_str(), asset.format, asset.width, asset.height, asset.stride,
                          asset.address, asset.bytes, asset.paletteAddress, asset.paletteBytes});
    callback(maker.memory().data(), maker.memory().used(), assets.data(), assets.size());
}

/// Those that this process may use.
size_t coreCount()
{
#if defined(__linux__)
    cpu_set_t cores;
    if (sched_getaffinity(0, sizeof(cores), &cores) == 0)
        return static_cast<size_t>(std::max(1, CPU_COUNT(&cores)));
#endif
    return std::max(1U, std::thread::hardware_concurrency());
}

} // namespace

/// The emulator itself is never destroyed: when a callback ends the process, the caller's thread
/// may still be inside it, and a worker that was left behind may come back. Only its workers are
/// ended.
CEmulator &CEmulator::instance()
{
    struct SEnd
    {
        CEmulator &emulator;
        ~SEnd() { emulator.endWorkers(); }
    };
    static SEnd end{*new CEmulator};
    return end.emulator;
}

CEmulator::CEmulator() : m_mostWorkers(coreCount()), m_run(std::make_shared<CRun>())
{
}

void CEmulator::endWorkers()
{
    Lock lock(m_mutex);
    m_quit = true;
    m_run->cancel();
    for (const RequestPtr &request : m_unanswered)
        request->isDropped = true;
    m_waiting.clear();
    m_wake.notify_all();
    m_turn.notify_all();
    // A callback that ends the process must not wait for its own thread.
    const auto isOwn = [](const SWorker &worker) {
        return worker.thread.get_id() == std::this_thread::get_id();
    };
    waitForWorkers(lock, [&](const SWorker &worker) { return worker.hasEnded || isOwn(worker); });
    for (const WorkerPtr &worker : m_workers) {
        if (worker->hasEnded)
            worker->thread.join();
        else
            worker->thread.detach();
    }
    m_workers.clear();
}

void CEmulator::setCallbacks(EmuFrameCallback frame, EmuDisplayListCallback displayList)
{
    const Lock lock(m_mutex);
    m_frame = frame;
    m_displayList = displayList;
}

void CEmulator::setMemoryCallback(EmuMemoryCallback memory)
{
    const Lock lock(m_mutex);
    m_memory = memory;
}

void CEmulator::setCutTextsCallback(EmuCutTextsCallback texts)
{
    const Lock lock(m_mutex);
    m_cutTexts = texts;
}

void CEmulator::configure(uint32_t width, uint32_t height)
{
    const Lock lock(m_mutex);
    m_width = width;
    m_height = height;
}

/// Requests to a started emulator are dropped, as stop() does; those that were made before a start
/// are answered.
bool CEmulator::start(const std::string &scriptPath, uint32_t chipCode)
{
    {
        Lock lock(m_mutex);
        if (isInCallback())
            return false;
        const bool isStarted = m_run->isStarted();
        lock.unlock();
        if (isStarted)
            stop();
    }
    const auto run = std::make_shared<CRun>(SScriptText::read(scriptPath), chipCode);
    bool isLoaded = false;
    run->giveBack(run->newMaker(&isLoaded));
    const Lock lock(m_mutex);
    m_run = run;
    return isLoaded;
}

/// A callback that is under way is waited for however long it takes: its caller may free what it
/// uses as soon as this returns.
bool CEmulator::stop()
{
    auto next = std::make_shared<CRun>(); // and then the old one, let go without the lock
    Lock lock(m_mutex);
    if (isInCallback())
        return false;
    m_run->cancel();
    drop();
    m_idle.wait(lock, [this] { return m_deliverer == std::thread::id(); });
    drop(); // what the last callbacks have asked for, too
    m_run.swap(next);
    if (waitForWorkers(lock, [](const SWorker &worker) { return !worker.run; }))
        return true;
    for (const WorkerPtr &worker : m_workers)
        if (worker->run) {
            worker->isLeftBehind = true;
            worker->thread.detach();
        }
    m_workers.erase(std::remove_if(m_workers.begin(), m_workers.end(),
                                   [](const WorkerPtr &worker) { return worker->isLeftBehind; }),
                    m_workers.end());
    return false;
}

/// All requests but the one that is being answered.
void CEmulator::drop()
{
    m_waiting.clear();
    const bool isDelivering = m_deliverer != std::thread::id();
    const auto first = m_unanswered.begin() + (isDelivering ? 1 : 0);
    std::for_each(first, m_unanswered.end(),
                  [](const RequestPtr &request) { request->isDropped = true; });
    m_unanswered.erase(first, m_unanswered.end());
    m_turn.notify_all();
}

/// True when all have done in time.
bool CEmulator::waitForWorkers(Lock &lock, const std::function<bool(const SWorker &)> &hasDone)
{
    return m_idle.wait_for(lock, LongestStop, [&] {
        return std::all_of(m_workers.begin(), m_workers.end(),
                           [&](const WorkerPtr &worker) { return hasDone(*worker); });
    });
}

CEmulator::RequestPtr CEmulator::newRequest()
{
    const Lock lock(m_mutex);
    if (m_spare.empty())
        return std::make_shared<SRequest>();
    RequestPtr request = std::move(m_spare.back());
    m_spare.pop_back();
    return request;
}

void CEmulator::render(IModelIterator *iterator, void *observer, bool isForeground)
{
    const RequestPtr request = newRequest();
    request->snapshot.take(iterator);
    request->observer = observer;
    request->isForeground = isForeground;
    request->isDropped = false;
    const Lock lock(m_mutex);
    request->run = m_run;
    request->width = m_width;
    request->height = m_height;
    request->frame = m_frame;
    request->displayList = m_displayList;
    request->memory = m_memory;
    request->cutTexts = m_cutTexts;
    m_waiting.push_back(request);
    m_unanswered.push_back(request);
    // One whose answer is being given does not need its worker any more.
    const size_t needed = m_unanswered.size() - (m_deliverer != std::thread::id() ? 1 : 0);
    if (m_workers.size() < std::min(needed, m_mostWorkers) && !m_quit)
        startWorker();
    m_wake.notify_one(); // under the lock: a callback may end the process, and with it this object
}

void CEmulator::startWorker()
{
    const auto worker = std::make_shared<SWorker>();
    worker->thread = std::thread(&CEmulator::work, this, worker);
    m_workers.push_back(worker);
}

void CEmulator::work(const WorkerPtr &self)
{
    Lock lock(m_mutex);
    while (!self->isLeftBehind) {
        m_wake.wait(lock, [this] { return m_quit || !m_waiting.empty(); });
        if (m_quit)
            break;
        const RequestPtr request = std::move(m_waiting.front());
        m_waiting.pop_front();
        std::shared_ptr<CRun> run = std::move(request->run);
        self->run = run;
        serve(lock, request, *run);
        self->run.reset();
        if (m_spare.size() < MostSpare)
            m_spare.push_back(request);
        m_idle.notify_all();
        lock.unlock();
        run.reset(); // which may take a while
        lock.lock();
    }
    self->hasEnded = true;
    m_idle.notify_all();
}

void CEmulator::serve(Lock &lock, const RequestPtr &request, CRun &run)
{
    CRun::MakerPtr maker = run.takeMaker();
    lock.unlock();
    if (!maker)
        maker = run.newMaker();
    const SFrame &frame = run.make(*maker, request->snapshot, request->width, request->height);
    lock.lock();
    deliver(lock, request, *maker, frame);
    run.giveBack(std::move(maker));
}

void CEmulator::deliver(Lock &lock, const RequestPtr &request, const CFrameMaker &maker,
                        const SFrame &frame)
{
    m_turn.wait(lock, [&] { return request->isDropped || m_unanswered.front() == request; });
    if (request->isDropped)
        return; // the frame may have ended anywhere
    m_deliverer = std::this_thread::get_id();
    lock.unlock();
    callBack(*request, maker, frame);
    lock.lock();
    m_deliverer = {};
    m_unanswered.pop_front();
    m_turn.notify_all();
    m_idle.notify_all();
}

/// Runs without the lock; nobody else does meanwhile.
void CEmulator::callBack(const SRequest &request, const CFrameMaker &maker, const SFrame &frame)
{
    std::string errors = frame.errors;
    if (request.memory)
        tellMemory(maker, request.memory);
    if (request.cutTexts)
        request.cutTexts(frame.cutTexts.data(), frame.cutTexts.size());
    if (request.displayList)
        request.displayList(frame.displayListText.c_str(), frame.displayList.data(),
                            static_cast<int>(frame.displayList.size()), frame.ramGUsage,
                            errors.data());
    // An empty frame still has an address.
    static const argb8888 NoPixel = 0;
    if (request.frame)
        request.frame(request.isForeground, frame.pixels.empty() ? &NoPixel : frame.pixels.data(),
                      frame.width, frame.height, request.observer, CompleteFrame, frame.ramDlUsage);
}

} // namespace kivemu
