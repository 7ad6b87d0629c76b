#pragma once

#include "QxKivEmuLib.h"

#include <condition_variable>
#include <mutex>
#include <string>

class CScreenModel;

namespace bench {

/// Asks the emulator library for frames through its five functions and waits for each answer.
/// The callbacks name no receiver, so there is one for the process.
class CFrameClient
{
public:
    static CFrameClient &instance();

    /// False when the script cannot be used.
    bool start(const std::string &scriptPath, uint32_t chipCode);
    void stop();

    /// The walk, the request, and the wait for its frame.
    void render(CScreenModel *screen);
    /// Of the last frame.
    const std::string &errors() const { return m_errors; }
    size_t displayListBytes() const { return m_displayListBytes; }

private:
    static int onFrame(bool, const argb8888 *, uint32_t, uint32_t, void *, uint32_t flags, size_t);
    static int onDisplayList(const char *, const unsigned char *, int size, size_t, char *errors);

    std::mutex m_mutex;
    std::condition_variable m_arrived;
    bool m_isWaiting = false;
    std::string m_errors;
    size_t m_displayListBytes = 0;
};

} // namespace bench
