#include "CFolderGuard.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QString>
#include <QThread>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {
constexpr unsigned long PauseTime = 2; // ms
}

CFolderGuard::CFolderGuard(const QString &folder)
    : m_folder(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_folder < 0)
        return;
    const QDeadlineTimer deadline(MaxWait);
    while (flock(m_folder, LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || deadline.hasExpired())
            return;
        QThread::msleep(PauseTime);
    }
}

CFolderGuard::~CFolderGuard()
{
    if (m_folder >= 0)
        close(m_folder);
}
#else
CFolderGuard::CFolderGuard(const QString &)
{
}

CFolderGuard::~CFolderGuard()
{
    Q_UNUSED(m_folder)
}
#endif
