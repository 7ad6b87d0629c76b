#include "CWatchdog.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QMetaEnum>
#include <QStringList>
#include <QThread>
#include <QtTest/qtestspontaneevent.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr double Moment = 1; ///< milliseconds that a quiet program may take at once
constexpr size_t Kept = 8;
CWatchdog *theWatchdog = nullptr;

double timeOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

QString named(const QMetaObject *type, const QString &name)
{
    return QLatin1String(type->className()) +
           (name.isEmpty() ? QString() : QLatin1Char('#') + name);
}
} // namespace

CWatchdog::SReceiver::SReceiver(const QObject *object, const QEvent *sent)
    : type(object->metaObject()),
      name(object->objectName()),
      parent(object->parent() ? object->parent()->metaObject() : nullptr),
      parentName(object->parent() ? object->parent()->objectName() : QString()),
      event(sent->type())
{
}

QString CWatchdog::SReceiver::text() const
{
    const char *kind = QMetaEnum::fromType<QEvent::Type>().valueToKey(event);
    return named(type, name) +
           (parent ? QStringLiteral(" of ") + named(parent, parentName) : QString()) +
           QLatin1Char(' ') + (kind ? QLatin1String(kind) : QString::number(event));
}

CWatchdog::CWatchdog(QObject *excepted)
    : m_excepted(excepted),
      m_thread(QThread::currentThreadId()),
      m_statistics(open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC)),
      m_lastBusy(timeOf(CLOCK_MONOTONIC))
{
    theWatchdog = this;
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, excepted, [this] {
        pause();
        if (!m_running.empty())
            m_running.back().isIdle = true;
    });
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, excepted, [this] { resume(); });
    QInternal::registerCallback(QInternal::EventNotifyCallback, &CWatchdog::notified);
}

CWatchdog::~CWatchdog()
{
    QInternal::unregisterCallback(QInternal::EventNotifyCallback, &CWatchdog::notified);
    theWatchdog = nullptr;
    if (m_statistics >= 0)
        close(m_statistics);
}

/// Qt asks before it delivers an event. The event is sent once more from here, so that its end is
/// seen too, and goes its usual way the second time.
bool CWatchdog::notified(void **data)
{
    CWatchdog *self = theWatchdog;
    if (!self || QThread::currentThreadId() != self->m_thread)
        return false;
    auto *receiver = static_cast<QObject *>(data[0]);
    auto *event = static_cast<QEvent *>(data[1]);
    if (self->m_isPassed) {
        self->m_isPassed = false;
        if (self->m_isSpontaneous)
            QSpontaneKeyEvent::setSpontaneous(event); // sending has taken that away
        return false;
    }
    if (receiver == self->m_excepted || receiver->parent() == self->m_excepted)
        return false;
    self->begin(receiver, event);
    self->m_isPassed = true;
    self->m_isSpontaneous = event->spontaneous();
    *static_cast<bool *>(data[2]) = QCoreApplication::sendEvent(receiver, event);
    if (theWatchdog)
        self->end();
    return true;
}

CWatchdog::STime CWatchdog::STime::since(const STime &start) const
{
    return {processor - start.processor, clock - start.clock, ready - start.ready};
}

CWatchdog::STime CWatchdog::now() const
{
    return {timeOf(CLOCK_THREAD_CPUTIME_ID), timeOf(CLOCK_MONOTONIC), readyTime()};
}

/// The second of three numbers, in nanoseconds.
double CWatchdog::readyTime() const
{
    char text[96] = {};
    if (m_statistics < 0 || pread(m_statistics, text, sizeof text - 1, 0) <= 0)
        return 0;
    char *second = nullptr;
    std::strtod(text, &second);
    return std::strtod(second, nullptr) / 1e6;
}

void CWatchdog::begin(const QObject *receiver, const QEvent *event)
{
    const int loop = QThread::currentThread()->loopLevel();
    if (!m_running.empty() && loop > m_running.back().loop)
        pause();
    m_running.push_back({SReceiver(receiver, event), loop, now()});
}

/// An inner loop goes on; the handler in which it runs has kept nobody waiting since it last did.
void CWatchdog::pause()
{
    if (m_running.empty() || m_running.back().isIdle)
        return;
    SRunning &outer = m_running.back();
    const STime taken = now().since(outer.start);
    if (taken.taken() > outer.longest.taken())
        outer.longest = taken;
}

void CWatchdog::resume()
{
    if (m_running.empty())
        return;
    m_running.back().isIdle = false;
    m_running.back().start = now();
}

void CWatchdog::end()
{
    const STime stop = now();
    const SRunning ended = m_running.back();
    m_running.pop_back();
    STime taken = stop.since(ended.start);
    if (ended.longest.taken() > taken.taken())
        taken = ended.longest;
    const bool isOutermost = m_running.empty() || ended.loop > m_running.back().loop;
    if (isOutermost && !m_running.empty())
        resume();
    if (taken.taken() <= Moment)
        return; // no text for the many short ones
    m_lastBusy = stop.clock;
    QString what = ended.receiver.text();
    if (ended.worst.taken.taken() > taken.taken() / 2)
        what += QStringLiteral(" > ") + ended.worst.what;
    if (isOutermost)
        keep({taken, what});
    else if (taken.taken() > m_running.back().worst.taken.taken())
        m_running.back().worst = {taken, what};
}

void CWatchdog::keep(const SHandler &handler)
{
    m_slowest.push_back(handler);
    std::sort(m_slowest.begin(), m_slowest.end(), [](const SHandler &one, const SHandler &other) {
        return one.taken.taken() > other.taken.taken();
    });
    if (m_slowest.size() > Kept)
        m_slowest.pop_back();
}

QStringList CWatchdog::takeSlowest()
{
    QStringList lines;
    for (const SHandler &each : m_slowest)
        lines.append(QStringLiteral("%1 %2 %3 %4")
                         .arg(each.taken.processor, 0, 'f', 1)
                         .arg(each.taken.slept(), 0, 'f', 1)
                         .arg(each.taken.clock, 0, 'f', 1)
                         .arg(each.what));
    m_slowest.clear();
    return lines;
}

qint64 CWatchdog::quietTime() const
{
    return static_cast<qint64>(timeOf(CLOCK_MONOTONIC) - m_lastBusy);
}
