#include "CFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace {
constexpr int AsPlace = O_PATH | O_DIRECTORY | O_CLOEXEC; // needs no right to list it

/// A folder that the user has named, and those that hold it. What fails is met when it is opened.
void makeNamed(const QString &path, QStringList *made)
{
    const QString parent = QFileInfo(path).path();
    if (QFileInfo::exists(path) || parent == path)
        return;
    makeNamed(parent, made);
    if (QDir().mkdir(path))
        made->append(path);
}
} // namespace

CFolder CFolder::failed(const QString &error)
{
    CFolder folder;
    folder.m_error = error;
    return folder;
}

CFolder CFolder::named(const QString &path)
{
    if (path.contains(QChar(u'\0')))
        return failed(qt_error_string(EINVAL));
    CFolder folder;
    folder.m_path = path;
    folder.m_folder = CDescriptor(::open(QFile::encodeName(path).constData(), AsPlace));
    if (!folder.isOpen())
        folder.m_error = qt_error_string(errno);
    return folder;
}

CFolder CFolder::below(const QString &root, const QString &path)
{
    return walk(root, path, nullptr);
}

CFolder CFolder::madeBelow(const QString &root, const QString &path, QStringList *made)
{
    return walk(root, path, made);
}

CFolder CFolder::walk(const QString &root, const QString &path, QStringList *made)
{
    const QString start = QDir::cleanPath(root);
    const QString end = QDir::cleanPath(path);
    const QString prefix = start.endsWith(QLatin1Char('/')) ? start : start + QLatin1Char('/');
    if (end != start && !end.startsWith(prefix))
        return failed(tr("%1 lies outside of %2").arg(path, root));
    if (end.contains(QChar(u'\0')))
        return failed(qt_error_string(EINVAL));
    if (made)
        makeNamed(start, made);
    CFolder folder = named(start);
    if (!folder.isOpen())
        return failed(QStringLiteral("%1: %2").arg(root, folder.error()));
    const QStringList names = end.mid(prefix.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &name : names)
        folder.enter(name, made);
    return folder;
}

void CFolder::enter(const QString &name, QStringList *made)
{
    if (!isOpen())
        return;
    const QString path = QDir(m_path).filePath(name);
    const QByteArray native = QFile::encodeName(name);
    if (made && entry(name) == EEntry::None) {
        if (mkdirat(descriptor(), native.constData(), 0777) == 0) {
            made->append(path);
        } else if (errno != EEXIST) {
            *this = failed(tr("The folder %1 could not be made: %2").arg(path, qt_error_string()));
            return;
        }
    }
    CDescriptor inner(openat(descriptor(), native.constData(), AsPlace | O_NOFOLLOW));
    const int problem = errno;
    if (inner.isOpen()) {
        m_folder = std::move(inner);
        m_path = path;
    } else if (entry(name) == EEntry::Link) {
        *this = failed(tr("%1 is a link, and nothing is written through links").arg(path));
    } else {
        *this = failed(QStringLiteral("%1: %2").arg(path, qt_error_string(problem)));
    }
}

CFolder::EEntry CFolder::entry(const QString &name) const
{
    struct stat status = {};
    if (fstatat(descriptor(), QFile::encodeName(name).constData(), &status, AT_SYMLINK_NOFOLLOW) !=
        0)
        return EEntry::None;
    if (S_ISREG(status.st_mode))
        return status.st_nlink > 1 ? EEntry::SharedFile : EEntry::File;
    if (S_ISDIR(status.st_mode))
        return EEntry::Folder;
    return S_ISLNK(status.st_mode) ? EEntry::Link : EEntry::Other;
}

bool CFolder::remove(const QString &name) const
{
    return unlinkat(descriptor(), QFile::encodeName(name).constData(), 0) == 0 || errno == ENOENT;
}

bool CFolder::rename(const QString &from, const QString &to) const
{
    return renameat(descriptor(), QFile::encodeName(from).constData(), descriptor(),
                    QFile::encodeName(to).constData()) == 0;
}
