#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

class QLockFile;

/// The hidden lock file beside an open project, against a second copy of the program.
/// Owner:   at most one process at a time. Taking, taking over and releasing are each one step
///          towards other copies on this machine. Who was ousted finds out by isOusted(), to be
///          asked before each write.
/// Dead:    the lock of a process that has ended is taken silently, also one that it had no time to
///          write; nothing else is, however old.
/// Release: on destruction; removes the lock file only while it is this one's.
class CProjectLock
{
public:
    enum class EResult {
        Taken,
        HeldElsewhere, ///< by another program, or by nobody knows whom
        Unavailable,   ///< the folder cannot hold a lock file
        NotAFile       ///< a folder, a pipe or a link stands in its place; it is left alone
    };

    explicit CProjectLock(const QString &projectFile);
    ~CProjectLock();
    CProjectLock(const CProjectLock &) = delete;
    CProjectLock &operator=(const CProjectLock &) = delete;

    /// "/folder/.name.nyx.lock" for "/folder/name.nyx". Beside the file itself, through whatever
    /// links it is reached.
    static QString lockPath(const QString &projectFile);

    EResult tryLock();
    /// Makes the lock that tryLock() found held this one's own. HeldElsewhere when meanwhile
    /// another process did so.
    EResult takeOver();
    /// False when it was never taken, when another process took it over, or when its file is gone.
    bool isStillOwned() const;
    /// Whether another process took it over.
    bool isOusted() const;
    bool isTaken() const { return m_lock != nullptr; }
    /// Whether its owner of before may still be at work.
    bool isTakenOver() const { return m_lock && m_foreign; }
    /// When the process ended whose dead lock was taken over silently had begun its session.
    std::optional<QDateTime> deadSession() const { return m_deadSession; }

private:
    struct SIdentity; ///< tells a lock file from one that has replaced it

    bool isBlocked() const;
    EResult lock();
    void release();
    static std::optional<SIdentity> identityOf(const QString &path);

    QString m_path;
    std::unique_ptr<QLockFile> m_lock; ///< null unless taken
    std::unique_ptr<SIdentity> m_own;
    std::unique_ptr<SIdentity> m_foreign; ///< the lock file that was in the way of tryLock()
    std::optional<QDateTime> m_deadSession;
};
