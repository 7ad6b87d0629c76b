#include "CTerminationSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
int pipeEnds[2] = {-1, -1};

/// Runs at any moment in any thread, so it does the one thing that is allowed there.
void tellTheLoop(int)
{
    const char byte = 0;
    const ssize_t written = write(pipeEnds[1], &byte, 1);
    (void)written;
}
} // namespace

CTerminationSignals::CTerminationSignals(QObject *parent) : QObject(parent)
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals end the program as they would have done anyway
    m_notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        Q_EMIT endWanted();
    });
    struct sigaction action = {};
    action.sa_handler = tellTheLoop;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        sigaction(number, &action, nullptr);
}

CTerminationSignals::~CTerminationSignals()
{
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        std::signal(number, SIG_DFL);
    for (int &end : pipeEnds) {
        close(end);
        end = -1;
    }
}
