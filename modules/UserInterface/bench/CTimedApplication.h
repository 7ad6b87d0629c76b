#pragma once

#include <QApplication>

#include <vector>

/// An application that times what the GUI thread does: each event from its delivery by the event
/// loop until its handler, with all that it calls, returns.
class CTimedApplication final : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    struct Handler
    {
        double milliseconds;
        double processor; ///< milliseconds of the thread's processor time
        QByteArray what;  ///< class and object name of the receiver, type of the event
    };

    bool notify(QObject *receiver, QEvent *event) override;

    /// Milliseconds of processor time that the calling thread has used.
    static double threadTime();
    /// The same of all threads of the process.
    static double processTime();
    /// All handlers since the last call.
    std::vector<Handler> takeHandlers();

    /// From now on waits for `widget` to be painted; see isPainted().
    void awaitPaintOf(const QWidget *widget);
    /// Whether it has been painted, and the handler that did it has returned: the window is shown.
    bool isPainted() const { return m_awaited && m_painted && m_depth == 0; }

private:
    std::vector<Handler> m_handlers;
    const QWidget *m_awaited = nullptr;
    bool m_painted = false;
    int m_depth = 0;
};
