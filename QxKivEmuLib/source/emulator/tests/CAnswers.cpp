#include "CAnswers.h"

#include <algorithm>

CAnswers &CAnswers::instance()
{
    static CAnswers answers;
    return answers;
}

void CAnswers::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_answers.clear();
    m_next = {};
    m_hook = nullptr;
    m_mostInside = 0;
}

void CAnswers::registerCallbacks()
{
    Emu_Register(onFrame, onDisplayList);
}

void CAnswers::setFrameHook(std::function<void()> hook)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_hook = std::move(hook);
}

std::vector<SAnswer> CAnswers::wait(size_t count)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [&] { return m_answers.size() >= count; });
    return m_answers;
}

size_t CAnswers::count()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_answers.size();
}

int CAnswers::concurrent()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_mostInside;
}

void CAnswers::enter()
{
    m_mostInside = std::max(m_mostInside, ++m_inside);
}

int CAnswers::onDisplayList(const char *text, const unsigned char *bytes, int size,
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

int CAnswers::onFrame(bool output, const argb8888 *buffer, uint32_t hsize, uint32_t vsize,
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
