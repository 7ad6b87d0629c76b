#pragma once

#include "QxKivEmuLib.h"

#include <algorithm>
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
    static CAnswers &instance()
    {
        static CAnswers answers;
        return answers;
    }

    void clear()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_answers.clear();
        m_next = {};
        m_hook = nullptr;
        m_mostInside = 0;
    }
    void registerCallbacks() { Emu_Register(onFrame, onDisplayList); }
    /// Called from the frame callback, after the answer is complete.
    void setFrameHook(std::function<void()> hook)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_hook = std::move(hook);
    }

    /// All answers, as soon as there are at least `count` complete ones.
    std::vector<SAnswer> wait(size_t count)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [&] { return m_answers.size() >= count; });
        return m_answers;
    }
    size_t count()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_answers.size();
    }
    /// The most callbacks that ever ran at once.
    int concurrent()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_mostInside;
    }

private:
    static int onFrame(bool output, const argb8888 *buffer, uint32_t hsize, uint32_t vsize,
                       void *observer, uint32_t flags, size_t ramDlUsage)
    {
        CAnswers &self = instance();
        std::unique_lock<std::mutex> lock(self.m_mutex);
        self.enter();
        SAnswer answer = std::move(self.m_next);
        self.m_next = {};
        answer.order += 'F';
        answer.pixels.assign(buffer, buffer + static_cast<size_t>(hsize) * vsize);
        answer.width = hsize;
        answer.height = vsize;
        answer.observer = observer;
        answer.output = output;
        answer.flags = flags;
        answer.ramDlUsage = ramDlUsage;
        self.m_answers.push_back(std::move(answer));
        const std::function<void()> hook = self.m_hook;
        lock.unlock();
        self.m_changed.notify_all();
        if (hook)
            hook();
        lock.lock();
        self.leave();
        return 1;
    }
    static int onDisplayList(const char *text, const unsigned char *bytes, int size,
                             size_t ramGUsage, char *errors)
    {
        CAnswers &self = instance();
        const std::lock_guard<std::mutex> lock(self.m_mutex);
        self.enter();
        self.m_next.order += 'D';
        self.m_next.text = text;
        self.m_next.list.assign(bytes, bytes + size);
        self.m_next.ramGUsage = ramGUsage;
        self.m_next.errors = errors;
        self.leave();
        return 1;
    }
    void enter() { m_mostInside = std::max(m_mostInside, ++m_inside); }
    void leave() { --m_inside; }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<SAnswer> m_answers;
    SAnswer m_next;
    std::function<void()> m_hook;
    int m_inside = 0;
    int m_mostInside = 0;
};
