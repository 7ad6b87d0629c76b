#pragma once

#include <QMetaObject>
#include <QString>

#include <vector>

class QEvent;
class QObject;

/// Inside the program under test: times what the GUI thread does, each event from its delivery by
/// the event loop until its handler, with all that it calls, returns. A handler in which another
/// event loop runs (a dialog, a menu, a drag) is timed before and after that loop, whose own events
/// are timed each by itself.
/// Processor time is what does not depend on what else the machine does. Waiting for a file, a lock
/// or another thread is slept away; that and the processor time are what the program itself is to
/// blame for, the rest of the time by the clock the thread was ready and others had the processor.
class CWatchdog
{
public:
    /// One at a time in a process, made on the GUI thread. What `excepted` and its children receive
    /// is not timed.
    explicit CWatchdog(QObject *excepted);
    ~CWatchdog();

    /// The handlers that took longest since the last call, a line each, first the longest:
    /// "PROCESSOR SLEPT CLOCK RECEIVERS", milliseconds, and from the receiver of the loop down to
    /// the one that took most of the time: class, name and parent, and the type of the event.
    QStringList takeSlowest();
    /// Milliseconds by the clock since a handler last took more than a moment.
    qint64 quietTime() const;

private:
    struct STime
    {
        double processor; ///< milliseconds, like the others
        double clock;
        double ready; ///< without a processor

        double slept() const { return clock - processor - ready; }
        double taken() const { return clock - ready; }
        STime since(const STime &start) const;
    };
    struct SReceiver
    {
        explicit SReceiver(const QObject *object, const QEvent *event);
        QString text() const;

        const QMetaObject *type; ///< outlives the object, which the handler may delete
        QString name;
        const QMetaObject *parent;
        QString parentName;
        int event;
    };
    struct SHandler
    {
        STime taken;
        QString what;
    };
    struct SRunning
    {
        SReceiver receiver;
        int loop;                      ///< depth of the event loop that delivered it
        STime start;                   ///< of what is timed: moved on when an inner loop has run
        bool isIdle = false;           ///< its inner loop waits for events
        STime longest{0, 0, 0};        ///< before an inner loop ran
        SHandler worst{{0, 0, 0}, {}}; ///< of the events that it sent
    };

    static bool notified(void **data);
    STime now() const;
    double readyTime() const;
    void begin(const QObject *receiver, const QEvent *event);
    void end();
    void pause();
    void resume();
    void keep(const SHandler &handler);

    const QObject *const m_excepted;
    const Qt::HANDLE m_thread;
    const int m_statistics;  ///< what the system knows about the thread's times; -1: nothing
    bool m_isPassed = false; ///< the event that is delivered next is timed already
    bool m_isSpontaneous = false;
    std::vector<SRunning> m_running;
    std::vector<SHandler> m_slowest;
    double m_lastBusy;
};
