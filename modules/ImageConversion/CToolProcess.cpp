#include "CToolProcess.h"

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

void CToolProcess::startGroup(const QString &program, const QStringList &arguments)
{
    start(program, arguments);
    m_group = processId(); // it is gone from QProcess as soon as the program has ended
}

void CToolProcess::killGroup()
{
    if (m_group <= 0)
        return;
    const auto group = static_cast<pid_t>(m_group);
    // Before the child has made its group there is only the child itself.
    if (::kill(-group, SIGKILL) != 0 && state() != QProcess::NotRunning)
        kill();
}

void CToolProcess::setupChildProcess()
{
    // Runs between fork and exec: nothing but system calls.
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}
