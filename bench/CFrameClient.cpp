#include "CFrameClient.h"

#include "CModelIterator.h"
#include "CScreenModel.h"

namespace bench {

CFrameClient &CFrameClient::instance()
{
    static CFrameClient client;
    return client;
}

bool CFrameClient::start(const std::string &scriptPath, uint32_t chipCode)
{
    Emu_Register(onFrame, onDisplayList);
    return Emu_Start(scriptPath.c_str(), chipCode) != 0;
}

void CFrameClient::stop()
{
    Emu_Stop();
}

void CFrameClient::render(CScreenModel *screen)
{
    m_isWaiting = true; // nothing is under way
    CModelIterator iterator(screen);
    Emu_RenderObjects(&iterator, nullptr, 0);
    std::unique_lock<std::mutex> lock(m_mutex);
    m_arrived.wait(lock, [this] { return !m_isWaiting; });
}

int CFrameClient::onDisplayList(const char *, const unsigned char *, int size, size_t, char *errors)
{
    CFrameClient &client = instance();
    const std::lock_guard<std::mutex> lock(client.m_mutex);
    client.m_displayListBytes = static_cast<size_t>(size);
    client.m_errors = errors;
    return 1;
}

int CFrameClient::onFrame(bool, const argb8888 *, uint32_t, uint32_t, void *, uint32_t, size_t)
{
    CFrameClient &client = instance();
    {
        const std::lock_guard<std::mutex> lock(client.m_mutex);
        client.m_isWaiting = false;
    }
    client.m_arrived.notify_one();
    return 1;
}

} // namespace bench
