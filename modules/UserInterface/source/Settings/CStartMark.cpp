#include "CStartMark.h"

#include "CFolderGuard.h"

#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QTimer>
#include <QUuid>
#include <QWidget>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {
const QString Suffix = QStringLiteral(".starting-");
constexpr int LongestPaint = 3000; ///< ms after which a window that nobody sees counts as shown

#ifdef Q_OS_UNIX
/// A descriptor of the file that no other process has locked; -1 when there is none to be had.
int lockedFile(const QString &path, int flags)
{
    constexpr int mode = 0600;
    const int file = open(QFile::encodeName(path).constData(),
                          O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | flags, mode);
    struct stat status = {};
    const bool isLocked = file >= 0 && fstat(file, &status) == 0 && S_ISREG(status.st_mode) &&
                          flock(file, LOCK_EX | LOCK_NB) == 0;
    if (isLocked || file < 0)
        return file;
    close(file);
    return -1;
}

void closeFile(int file)
{
    close(file);
}
#else
int lockedFile(const QString &, int)
{
    return -1;
}

void closeFile(int)
{
}
constexpr int O_CREAT = 0;
constexpr int O_EXCL = 0;
#endif
} // namespace

CStartMark::CStartMark(const QString &settingsFile, QWidget *window)
{
    const CFolderGuard guard(QFileInfo(settingsFile).path()); // a mark is made, then locked
    removeLeft(settingsFile);
    const QString path = settingsFile + Suffix + QUuid::createUuid().toString(QUuid::Id128);
    m_file = lockedFile(path, O_CREAT | O_EXCL);
    if (m_file >= 0)
        m_path = path;
    else
        QFile::remove(path); // where files cannot be locked, it would tell nothing
    window->installEventFilter(this);
}

CStartMark::~CStartMark()
{
    remove();
}

/// A mark whose process has ended is not locked any more, however that ended.
void CStartMark::removeLeft(const QString &settingsFile)
{
    const QFileInfo settings(settingsFile);
    const QStringList marks =
        settings.dir().entryList({settings.fileName() + Suffix + QLatin1Char('*')}, QDir::Files);
    for (const QString &each : marks) {
        const QString path = settings.dir().filePath(each);
        const int file = lockedFile(path, 0);
        if (file < 0)
            continue;
        m_isAfterFailure = QFile::remove(path) || m_isAfterFailure;
        closeFile(file);
    }
}

void CStartMark::remove()
{
    if (m_path.isEmpty())
        return;
    QFile::remove(m_path);
    closeFile(m_file);
    m_path.clear();
}

/// Laying out and painting is where a window comes to grief over what it was given, so the mark
/// stays for the first of both.
bool CStartMark::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show)
        QTimer::singleShot(LongestPaint, this, &CStartMark::remove);
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        QMetaObject::invokeMethod(this, &CStartMark::remove, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}
