#include "CEmulator.h"

#include "CFrameMaker.h"

#include <exception>

namespace kivemu {

namespace {

constexpr uint32_t LargestChip = 0x113;
constexpr uint32_t CompleteFrame = 1;
constexpr size_t MostSpare = 4;

void tellMemory(const CFrameMaker &maker, EmuMemoryCallback callback)
{
    const std::vector<SPlacedAsset> placed = maker.assets();
    std::vector<EmuAsset> assets;
    assets.reserve(placed.size());
    for (const SPlacedAsset &asset : placed)
        assets.push_back({asset.file.c_str(), asset.source.format, asset.source.width,
                          asset.source.height, asset.source.stride, asset.source.address,
                          asset.bytes, asset.source.palette, asset.paletteBytes});
    callback(maker.memory().data(), maker.memory().used(), assets.data(), assets.size());
}

} // namespace

/// The emulator itself is never destroyed: when a callback ends the process, the caller's thread
/// may still be inside it. Only its worker is ended.
CEmulator &CEmulator::instance()
{
    struct SEnd
    {
        CEmulator &emulator;
        ~SEnd() { emulator.endWorker(); }
    };
    static SEnd end{*new CEmulator};
    return end.emulator;
}

CEmulator::CEmulator() = default;

void CEmulator::endWorker()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_quit = true;
        m_isCancelled = true;
        m_queue.clear();
        m_wake.notify_all();
    }
    if (!m_worker.joinable())
        return;
    // A callback that ends the process must not wait for its own thread.
    if (isWorker())
        m_worker.detach();
    else
        m_worker.join();
}

bool CEmulator::isWorker() const
{
    return m_worker.get_id() == std::this_thread::get_id();
}

void CEmulator::setCallbacks(EmuFrameCallback frame, EmuDisplayListCallback displayList)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_frame = frame;
    m_displayList = displayList;
}

void CEmulator::setMemoryCallback(EmuMemoryCallback memory)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_memory = memory;
}

void CEmulator::configure(uint32_t width, uint32_t height)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_width = width;
    m_height = height;
}

bool CEmulator::start(const std::string &scriptPath, uint32_t chipCode)
{
    if (!finishRequests())
        return false;
    auto maker = std::make_unique<CFrameMaker>(chipCode, m_isCancelled);
    const bool isLoaded = maker->loadScript(scriptPath);
    std::unique_lock<std::mutex> lock(m_mutex);
    m_idle.wait(lock, [this] { return !m_isServing; });
    m_maker = std::move(maker);
    return isLoaded;
}

/// Requests to a started emulator are dropped, as stop() does; those that were made before a start
/// are answered.
bool CEmulator::finishRequests()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (isWorker())
        return false;
    if (!m_maker) {
        const uint64_t last = m_accepted;
        m_idle.wait(lock, [&] { return m_answered >= last; });
        return true;
    }
    lock.unlock();
    return stop();
}

bool CEmulator::stop()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (isWorker())
        return false;
    m_isStopping = true;
    m_isCancelled = true;
    m_idle.wait(lock, [this] { return !m_isServing; });
    m_isCancelled = m_quit;
    m_answered += m_queue.size();
    m_queue.clear(); // what the last callbacks have asked for, too
    m_maker.reset();
    m_isStopping = false;
    return true;
}

CEmulator::RequestPtr CEmulator::newRequest()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_spare.empty())
        return std::make_unique<SRequest>();
    RequestPtr request = std::move(m_spare.back());
    m_spare.pop_back();
    return request;
}

void CEmulator::render(IModelIterator *iterator, void *observer, bool isForeground)
{
    RequestPtr request = newRequest();
    request->snapshot.take(iterator);
    request->observer = observer;
    request->isForeground = isForeground;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        request->width = m_width;
        request->height = m_height;
        request->frame = m_frame;
        request->displayList = m_displayList;
        request->memory = m_memory;
        m_queue.push_back(std::move(request));
        ++m_accepted;
        if (!m_worker.joinable())
            m_worker = std::thread(&CEmulator::work, this);
        m_wake.notify_one(); // under the lock: a callback may end the process, and with it this
                             // object
    }
}

void CEmulator::work()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_quit || (!m_queue.empty() && !m_isStopping); });
        if (m_quit)
            return;
        RequestPtr request = std::move(m_queue.front());
        m_queue.pop_front();
        m_isServing = true;
        lock.unlock();
        serve(*request);
        lock.lock();
        m_isServing = false;
        ++m_answered;
        if (m_spare.size() < MostSpare)
            m_spare.push_back(std::move(request));
        m_idle.notify_all();
    }
}

/// Runs without the lock: start() and stop() leave the makers alone while something is served.
void CEmulator::serve(const SRequest &request)
{
    if (!m_maker && !m_blackMaker)
        m_blackMaker = std::make_unique<CFrameMaker>(LargestChip, m_isCancelled);
    const SFrame &frame = m_maker ? m_maker->make(request.snapshot, request.width, request.height)
                                  : m_blackMaker->makeBlack(request.width, request.height,
                                                            "the emulator is not started");
    if (m_isCancelled)
        return; // the frame may have ended anywhere
    std::string errors = frame.errors;
    if (request.memory)
        tellMemory(*(m_maker ? m_maker : m_blackMaker), request.memory);
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
