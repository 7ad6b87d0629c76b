#include "CTimedApplication.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QMetaEnum>
#include <QWidget>

#include <ctime>
#include <utility>

namespace {
double timeOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}
} // namespace

bool CTimedApplication::notify(QObject *receiver, QEvent *event)
{
    if (event->type() == QEvent::Paint && receiver == m_awaited)
        m_painted = true;
    if (m_depth > 0)
        return QApplication::notify(receiver, event);

    const auto type = QMetaEnum::fromType<QEvent::Type>().valueToKey(event->type());
    const QByteArray what = QByteArray(receiver->metaObject()->className()) + ' ' +
                            receiver->objectName().toUtf8() + ' ' + type; // it may be deleted
    QElapsedTimer timer;
    timer.start();
    const double before = threadTime();
    ++m_depth;
    const bool isHandled = QApplication::notify(receiver, event);
    --m_depth;
    m_handlers.push_back(
        {static_cast<double>(timer.nsecsElapsed()) / 1e6, threadTime() - before, what});
    return isHandled;
}

double CTimedApplication::threadTime()
{
    return timeOf(CLOCK_THREAD_CPUTIME_ID);
}

double CTimedApplication::processTime()
{
    return timeOf(CLOCK_PROCESS_CPUTIME_ID);
}

std::vector<CTimedApplication::Handler> CTimedApplication::takeHandlers()
{
    return std::exchange(m_handlers, {});
}

void CTimedApplication::awaitPaintOf(const QWidget *widget)
{
    m_awaited = widget;
    m_painted = false;
}
