#include "PackageFiles.h"

#include "CDescriptor.h"
#include "CFileWriter.h"
#include "CFolderGuard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("PackageFiles", source);
}

/// In one step, also over a file that is there.
bool moveOver(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

bool isThere(const QFileInfo &file)
{
    return file.isSymLink() || file.exists();
}

/// A link is kept as the link that it is.
bool copyEntry(const QString &from, const QString &to)
{
    char target[PATH_MAX] = {};
    if (::readlink(QFile::encodeName(from).constData(), target, sizeof target - 1) < 0)
        return QFile::copy(from, to);
    return ::symlink(target, QFile::encodeName(to).constData()) == 0;
}

/// A folder beside the files, held by the system's lock on it as long as its process lives:
/// whatever is not held was left behind by one that was killed.
class CAside
{
public:
    explicit CAside(const QDir &folder)
    {
        const CFolderGuard guard(folder.path()); // until the new one is held
        removeLeftOver(folder);
        m_folder =
            std::make_unique<QTemporaryDir>(folder.filePath(QStringLiteral(".package-XXXXXX")));
        m_hold = hold(m_folder->path());
    }

    const QTemporaryDir &folder() const { return *m_folder; }

private:
    static CDescriptor hold(const QString &folder)
    {
        CDescriptor held(::open(QFile::encodeName(folder).constData(),
                                O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        return held.isOpen() && flock(held.get(), LOCK_EX | LOCK_NB) == 0 ? std::move(held)
                                                                          : CDescriptor();
    }
    static void removeLeftOver(const QDir &folder)
    {
        for (const QString &name : folder.entryList({QStringLiteral(".package-??????")},
                                                    QDir::Dirs | QDir::Hidden | QDir::NoSymLinks)) {
            const QString path = folder.filePath(name);
            if (hold(path).isOpen())
                QDir(path).removeRecursively();
        }
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    CDescriptor m_hold;
};

class CReplacement
{
public:
    CReplacement(const QString &folder, const QTemporaryDir &aside)
        : m_folder(folder), m_aside(aside)
    {
    }

    QString prepare(const QString &name, const QByteArray &bytes)
    {
        const QFileInfo target(m_folder.filePath(name));
        const bool leadsToNoFile =
            target.isSymLink() && !CFileWriter::whyNot(target.filePath()).isEmpty();
        if (leadsToNoFile || (target.exists() && !target.isFile()))
            return text(QT_TRANSLATE_NOOP("PackageFiles", "%1 is not a regular file"))
                .arg(target.filePath());
        if (isThere(target) && !copyEntry(target.filePath(), oldPath(name)))
            return text(QT_TRANSLATE_NOOP("PackageFiles", "%1 could not be kept aside"))
                .arg(target.filePath());
        return CFileWriter::write(newPath(name), bytes)
            .replace(newPath(name), target.filePath()); // where it lies until then helps nobody
    }
    QString replace(const QString &name)
    {
        const QString target = m_folder.filePath(name);
        if (moveOver(newPath(name), target)) {
            m_replaced.append(name);
            return {};
        }
        const QString reason = qt_error_string(errno);
        for (const QString &each : m_replaced)
            if (!isThere(QFileInfo(oldPath(each))) ||
                !moveOver(oldPath(each), m_folder.filePath(each)))
                QFile::remove(m_folder.filePath(each));
        return text(QT_TRANSLATE_NOOP("PackageFiles", "%1 could not be written: %2"))
            .arg(target, reason);
    }

private:
    QString newPath(const QString &name) const { return m_aside.filePath(name + ".new"); }
    QString oldPath(const QString &name) const { return m_aside.filePath(name + ".old"); }

    const QDir m_folder;
    const QTemporaryDir &m_aside;
    QStringList m_replaced;
};

} // namespace

QString writeTogether(const QString &folder, const QVector<QPair<QString, QByteArray>> &files)
{
    QString emptyIfFailed = QFileInfo::exists(folder) ? QString() : folder;
    const auto tidy = qScopeGuard([&] {
        if (!emptyIfFailed.isEmpty())
            QDir().rmdir(emptyIfFailed);
    });
    if (!QDir().mkpath(folder))
        return text(QT_TRANSLATE_NOOP("PackageFiles", "The folder %1 could not be made."))
            .arg(folder);
    const CAside held{QDir(folder)};
    const QTemporaryDir &aside = held.folder();
    if (!aside.isValid())
        return text(QT_TRANSLATE_NOOP("PackageFiles", "%1 could not be written: %2"))
            .arg(folder, aside.errorString());
    CReplacement replacement(folder, aside);
    for (const auto &[name, bytes] : files)
        if (const QString reason = replacement.prepare(name, bytes); !reason.isEmpty())
            return reason;
    for (const auto &[name, bytes] : files)
        if (const QString reason = replacement.replace(name); !reason.isEmpty())
            return reason;
    emptyIfFailed.clear();
    return {};
}
