#pragma once

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>

/// A process that does not outlive the test, not even when the test is killed.
class CChildProcess final : public QProcess
{
protected:
    void setupChildProcess() override { prctl(PR_SET_PDEATHSIG, SIGKILL); }
};
