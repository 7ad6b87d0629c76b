#pragma once

#include "QxKivEmuLib.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

/// What the two callbacks have brought for one request.
struct SAnswer
{
    std::string order; ///< D for a display list, F for a frame
    std::string text;
    std::vector<unsigned char> list;
    std::string errors;
    std::vector<argb8888> pixels;
    uint32_t width = 0;
    uint32_t height = 0;
    void *observer = nullptr;
    bool output = false;
    uint32_t flags = 0;
    size_t ramDlUsage = 0;
    size_t ramGUsage = 0;

    argb8888 pixel(uint32_t x, uint32_t y) const { return pixels.at(y * width + x); }
};

/// Collects the answers of the emulator's worker thread.
class CAnswers
{
public:
    static CAnswers &instance();

    void clear();
    void registerCallbacks();
    /// Called from the frame callback, after the answer is complete.
    void setFrameHook(std::function<void()> hook);

    /// All answers, as soon as there are at least `count` complete ones.
    std::vector<SAnswer> wait(size_t count);
    size_t count();
    /// The most callbacks that ever ran at once.
    int concurrent();

private:
    static int onFrame(bool output, const argb8888 *buffer, uint32_t hsize, uint32_t vsize,
                       void *observer, uint32_t flags, size_t ramDlUsage);
    static int onDisplayList(const char *text, const unsigned char *bytes, int size,
                             size_t ramGUsage, char *errors);
    void enter();
    void leave() { --m_inside; }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<SAnswer> m_answers;
    SAnswer m_next;
    std::function<void()> m_hook;
    int m_inside = 0;
    int m_mostInside = 0;
};
