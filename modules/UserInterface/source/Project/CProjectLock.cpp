#include "CProjectLock.h"

#include "CFolderGuard.h"
#include "HiddenFile.h"
#include "RegularFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QVector>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {
constexpr qint64 MaxLockBytes = 4096;

constexpr qint64 WritingTime = 5; ///< s; far longer than a lock is there without saying whose it is

/// Whether a process has the file open and locked, as the owner of a lock has; yes when in doubt.
bool isHeld(const QString &path)
{
#ifdef Q_OS_UNIX
    const int file =
        open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0)
        return true;
    struct flock others = {};
    others.l_type = F_WRLCK;
    const bool isFree = flock(file, LOCK_EX | LOCK_NB) == 0 && fcntl(file, F_GETLK, &others) == 0 &&
                        others.l_type == F_UNLCK;
    close(file);
    return !isFree;
#else
    Q_UNUSED(path)
    return true;
#endif
}

/// Whether a lock was made by a process that ended before it was written, as all of it is zero.
bool isNeverWritten(const QString &path, const QByteArray &content, const QDateTime &made)
{
    return content.count('\0') == content.size() &&
           made.secsTo(QDateTime::currentDateTime()) >= WritingTime && !isHeld(path);
}

/// Locks whose file is no longer there, or another process's. Destroying them would remove the file
/// of a new owner, so they are kept to the end of the process.
void abandon(std::unique_ptr<QLockFile> lock)
{
    static auto *const abandoned = new QVector<QLockFile *>;
    abandoned->append(lock.release());
}
} // namespace

struct CProjectLock::SIdentity
{
    quint64 device;
    quint64 inode;
    QByteArray content;

    bool operator==(const SIdentity &other) const
    {
        return device == other.device && inode == other.inode && content == other.content;
    }
};

CProjectLock::CProjectLock(const QString &projectFile) : m_path(lockPath(projectFile))
{
}

CProjectLock::~CProjectLock()
{
    release();
}

QString CProjectLock::lockPath(const QString &projectFile)
{
    const QFileInfo named(projectFile);
    const QString file = named.canonicalFilePath(); // empty while there is none
    const QString folder = QFileInfo(named.absolutePath()).canonicalFilePath();
    const QFileInfo info(!file.isEmpty()     ? file
                         : !folder.isEmpty() ? folder + QLatin1Char('/') + named.fileName()
                                             : projectFile);
    return info.absolutePath() + QStringLiteral("/.") + info.fileName() + QStringLiteral(".lock");
}

/// Nothing when there is no file to be seen.
std::optional<CProjectLock::SIdentity> CProjectLock::identityOf(const QString &path)
{
    SIdentity identity{0, 0, {}};
#ifdef Q_OS_UNIX
    struct stat status = {};
    if (lstat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    identity.device = status.st_dev;
    identity.inode = status.st_ino;
    if (!S_ISREG(status.st_mode))
        return identity;
#endif
    QFile file(path);
    if (openRegularFile(file, path))
        identity.content = file.read(MaxLockBytes);
    else if (!file.exists())
        return std::nullopt;
    return identity;
}

CProjectLock::EResult CProjectLock::tryLock()
{
    const CFolderGuard guard(QFileInfo(m_path).path());
    const auto before = identityOf(m_path);
    const QDateTime begun = QFileInfo(m_path).lastModified();
    if (before && !isBlocked() && isNeverWritten(m_path, before->content, begun))
        QFile::remove(m_path);
    const EResult result = lock();
    if (result == EResult::Taken && before)
        m_deadSession = begun;
    if (result == EResult::HeldElsewhere && before)
        m_foreign = std::make_unique<SIdentity>(*before);
    return result;
}

CProjectLock::EResult CProjectLock::takeOver()
{
    const CFolderGuard guard(QFileInfo(m_path).path());
    const auto found = identityOf(m_path);
    if (found && (!m_foreign || !(*found == *m_foreign)))
        return EResult::HeldElsewhere; // not the lock that the user was asked about
    if (found && !QFile::remove(m_path))
        return EResult::Unavailable;
    return lock();
}

/// Whether something stands there that must not be read: a pipe would never end, and a link leads
/// into another's file.
bool CProjectLock::isBlocked() const
{
    const QFileInfo info(m_path);
    return info.isSymLink() || (info.exists() && !info.isFile());
}

CProjectLock::EResult CProjectLock::lock()
{
    if (isBlocked())
        return EResult::NotAFile;
    auto lock = std::make_unique<QLockFile>(m_path);
    lock->setStaleLockTime(0); // age proves nothing: a project may stay open for days
    if (!lock->tryLock(0))
        return lock->error() == QLockFile::LockFailedError ? EResult::HeldElsewhere
                                                           : EResult::Unavailable;
    const auto own = identityOf(m_path);
    qint64 pid = 0;
    QString host;
    QString program;
    const bool isOwn = own && lock->getLockInfo(&pid, &host, &program) &&
                       pid == QCoreApplication::applicationPid();
    if (!isOwn) {
        abandon(std::move(lock));
        return EResult::HeldElsewhere;
    }
    hideFile(m_path);
    m_own = std::make_unique<SIdentity>(*own);
    m_lock = std::move(lock);
    return EResult::Taken;
}

bool CProjectLock::isStillOwned() const
{
    if (!m_lock)
        return false;
    const auto found = identityOf(m_path);
    return found && *found == *m_own;
}

bool CProjectLock::isOusted() const
{
    const auto found = identityOf(m_path);
    return m_lock && found && !(*found == *m_own);
}

void CProjectLock::release()
{
    if (!m_lock)
        return;
    const CFolderGuard guard(QFileInfo(m_path).path());
    if (isStillOwned())
        m_lock.reset();
    else
        abandon(std::move(m_lock));
}
