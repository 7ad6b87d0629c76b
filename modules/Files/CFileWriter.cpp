#include "CFileWriter.h"

#include "CFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace {
constexpr int MostNameBytes = 255;
constexpr int Tries = 100; // for a temporary name that nobody has

/// Writes until all is written or the device says why not: a disk that gets full takes a part of
/// the bytes first, without an error.
bool writeAll(int file, const QByteArray &bytes)
{
    int written = 0;
    while (written < bytes.size()) {
        const ssize_t step =
            ::write(file, bytes.constData() + written, static_cast<size_t>(bytes.size() - written));
        if (step < 0 && errno != EINTR)
            return false;
        if (step == 0) {
            errno = ENOSPC;
            return false;
        }
        written += static_cast<int>(qMax<ssize_t>(step, 0));
    }
    return true;
}

/// One that gives out its space late, or is reached over a network, says only here that it is full.
bool flushToDisk(int file)
{
    while (fsync(file) != 0) {
        if (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP)
            return true; // cannot say
        if (errno != EINTR)
            return false;
    }
    return true;
}

/// One file in one folder, to be written.
class CTarget
{
public:
    CTarget(const CFolder &folder, const QString &name)
        : m_folder(folder), m_name(name), m_native(QFile::encodeName(name))
    {
        m_isThere =
            fstatat(folder.descriptor(), m_native.constData(), &m_status, AT_SYMLINK_NOFOLLOW) == 0;
    }

    /// These give the reason when they fail.
    QString whyNoFile() const;
    QString write(const QByteArray &bytes);
    QString probe();

private:
    bool isFile() const { return m_isThere && S_ISREG(m_status.st_mode); }
    bool leadsToNoFile() const;
    bool isForbiddenBesides() const;
    mode_t mode() const;
    QByteArray makeTemporaryName();
    CDescriptor openUnnamed() const;
    CDescriptor openNamed();
    bool fill(const CDescriptor &file, const QByteArray &bytes) const;
    bool link(const CDescriptor &unnamed);
    bool takeName();
    QString writeDirectly(const QByteArray &bytes) const;
    CDescriptor openDirectly() const;

    const CFolder &m_folder;
    const QString m_name;
    const QByteArray m_native;
    QString m_temporary;
    struct stat m_status = {};
    bool m_isThere = false;
};

QString CTarget::whyNoFile() const
{
    if (m_name.isEmpty() || m_name.contains(QChar(u'\0')))
        return CFileWriter::tr("this is not the name of a file");
    const bool isLink = m_isThere && S_ISLNK(m_status.st_mode);
    const bool isOther = m_isThere && !isLink && !isFile();
    if (isOther || (isLink && leadsToNoFile()))
        return CFileWriter::tr("this is not a regular file");
    return {};
}

/// The system's own links, such as /dev/stdout, lead to where no path leads; they must stay.
bool CTarget::leadsToNoFile() const
{
    const QByteArray system = QByteArrayLiteral("/proc/");
    char start[16] = {};
    const ssize_t length =
        readlinkat(m_folder.descriptor(), m_native.constData(), start, sizeof start);
    if (length > 0 && QByteArray(start, static_cast<int>(length)).startsWith(system))
        return true;
    struct stat status = {};
    return fstatat(m_folder.descriptor(), m_native.constData(), &status, 0) == 0 &&
           !S_ISREG(status.st_mode);
}

mode_t CTarget::mode() const
{
    return isFile() ? m_status.st_mode & 0777 : 0666;
}

/// A name beside the target that is not taken, or not yet.
QByteArray CTarget::makeTemporaryName()
{
    QString ending(QLatin1Char('.'));
    while (ending.size() < 7)
        ending.append(QLatin1Char(char('a' + QRandomGenerator::global()->bounded(26))));
    QString start = QLatin1Char('.') + m_name;
    while (QFile::encodeName(start + ending).size() > MostNameBytes)
        start.chop(1);
    m_temporary = start + ending;
    return QFile::encodeName(m_temporary);
}

/// Without a name it goes with its process, however that ends.
CDescriptor CTarget::openUnnamed() const
{
    return CDescriptor(
        openat(m_folder.descriptor(), ".", O_WRONLY | O_TMPFILE | O_CLOEXEC, mode()));
}

CDescriptor CTarget::openNamed()
{
    for (int i = 0; i < Tries; ++i) {
        CDescriptor file(openat(m_folder.descriptor(), makeTemporaryName().constData(),
                                O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode()));
        if (file.isOpen() || errno != EEXIST)
            return file;
    }
    return CDescriptor();
}

bool CTarget::fill(const CDescriptor &file, const QByteArray &bytes) const
{
    if (isFile())
        fchmod(file.get(), m_status.st_mode & 07777); // where there are such rights
    return writeAll(file.get(), bytes) && flushToDisk(file.get());
}

/// Only a new file can take the target's name at once.
bool CTarget::link(const CDescriptor &unnamed)
{
    const QByteArray itself = "/proc/self/fd/" + QByteArray::number(unnamed.get());
    const auto linkAs = [&](const QByteArray &name) {
        return linkat(AT_FDCWD, itself.constData(), m_folder.descriptor(), name.constData(),
                      AT_SYMLINK_FOLLOW) == 0;
    };
    return m_isThere ? linkAs(makeTemporaryName()) && takeName() : linkAs(m_native);
}

bool CTarget::takeName()
{
    if (m_folder.rename(m_temporary, m_name))
        return true;
    const int problem = errno;
    m_folder.remove(m_temporary);
    errno = problem;
    return false;
}

QString CTarget::write(const QByteArray &bytes)
{
    const CDescriptor unnamed = openUnnamed();
    if (unnamed.isOpen() && fill(unnamed, bytes) && link(unnamed))
        return {};
    const CDescriptor named = openNamed(); // not all file systems have the former
    if (!named.isOpen())
        return isForbiddenBesides() ? writeDirectly(bytes) : qt_error_string();
    if (fill(named, bytes))
        return takeName() ? QString() : qt_error_string();
    const QString reason = qt_error_string();
    m_folder.remove(m_temporary);
    return reason;
}

QString CTarget::probe()
{
    if (openUnnamed().isOpen())
        return {};
    if (openNamed().isOpen()) {
        m_folder.remove(m_temporary);
        return {};
    }
    const QString reason = qt_error_string();
    return isForbiddenBesides() && openDirectly().isOpen() ? QString() : reason;
}

/// Keeps the error number.
bool CTarget::isForbiddenBesides() const
{
    const int problem = errno;
    const bool isForbidden = faccessat(m_folder.descriptor(), ".", W_OK, 0) != 0;
    errno = problem;
    return isFile() && m_status.st_nlink == 1 && isForbidden;
}

CDescriptor CTarget::openDirectly() const
{
    return CDescriptor(openat(m_folder.descriptor(), m_native.constData(),
                              O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

/// For a target in a folder that takes no second file; it stays torn only if the disk refuses its
/// old bytes too.
QString CTarget::writeDirectly(const QByteArray &bytes) const
{
    CDescriptor opened = openDirectly();
    struct stat status = {};
    if (!opened.isOpen() || fstat(opened.get(), &status) != 0)
        return qt_error_string();
    if (status.st_ino != m_status.st_ino || status.st_dev != m_status.st_dev)
        return CFileWriter::tr("this is not a regular file"); // replaced in between
    QFile file;
    if (!file.open(opened.take(), QIODevice::ReadWrite | QIODevice::Unbuffered,
                   QFileDevice::AutoCloseHandle))
        return file.errorString();
    const QByteArray old = file.readAll();
    const auto rewrite = [&file](const QByteArray &content) {
        return lseek(file.handle(), 0, SEEK_SET) == 0 && writeAll(file.handle(), content) &&
               ftruncate(file.handle(), content.size()) == 0 && flushToDisk(file.handle());
    };
    if (rewrite(bytes))
        return {};
    const QString reason = qt_error_string();
    rewrite(old);
    return reason;
}

struct SPlace
{
    QString folder;
    QString name;
};

SPlace placeOf(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return {slash < 0 ? QStringLiteral(".") : path.left(qMax(1, slash)), path.mid(slash + 1)};
}

template<typename Work>
QString inFolderOf(const QString &path, Work work)
{
    const SPlace place = placeOf(path);
    const CFolder folder = CFolder::named(place.folder);
    if (!folder.isOpen())
        return folder.error();
    CTarget target(folder, place.name);
    const QString reason = target.whyNoFile();
    return reason.isEmpty() ? work(target) : reason;
}
} // namespace

QString CFileWriter::write(const QString &path, const QByteArray &bytes)
{
    const QString reason =
        inFolderOf(path, [&bytes](CTarget &target) { return target.write(bytes); });
    return reason.isEmpty() ? QString() : tr("%1 could not be written: %2").arg(path, reason);
}

QString CFileWriter::write(const CFolder &folder, const QString &name, const QByteArray &bytes)
{
    if (!folder.isOpen())
        return folder.error();
    CTarget target(folder, name);
    QString reason = target.whyNoFile();
    if (reason.isEmpty())
        reason = target.write(bytes);
    const QString path = QDir(folder.path()).filePath(name);
    return reason.isEmpty() ? QString() : tr("%1 could not be written: %2").arg(path, reason);
}

QString CFileWriter::whyNot(const QString &path)
{
    return inFolderOf(path, [](CTarget &target) { return target.probe(); });
}
