#include "CFileWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

namespace {
/// Writes until all is written or the device says why not: a disk that gets full takes a part of
/// the bytes first, without an error.
bool writeAll(QIODevice &device, const QByteArray &bytes)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 step = device.write(bytes.constData() + written, bytes.size() - written);
        if (step <= 0)
            return false;
        written += step;
    }
    return true;
}

/// Empty when the bytes are on the disk. One that gives out its space late, or is reached over a
/// network, says only here that it is full; QSaveFile does not listen to it.
QString flushToDisk(const QFileDevice &file)
{
#ifdef Q_OS_UNIX
    while (fsync(file.handle()) != 0) {
        if (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP)
            return {}; // cannot say
        if (errno != EINTR)
            return qt_error_string(errno);
    }
#else
    Q_UNUSED(file)
#endif
    return {};
}

/// For a target in a folder that takes no second file; it stays torn only if the disk refuses its
/// old bytes too.
QString writeDirectly(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return file.errorString();
    const QByteArray old = file.readAll();
    const bool written = file.seek(0) && writeAll(file, bytes) && file.resize(bytes.size());
    const QString reason = written ? flushToDisk(file) : file.errorString();
    if (reason.isEmpty())
        return {};
    if (file.seek(0) && writeAll(file, old))
        file.resize(old.size());
    return reason;
}

QString writeBeside(const QString &path, const QByteArray &bytes, bool *couldBegin)
{
    QSaveFile file(path);
    *couldBegin = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    if (!*couldBegin)
        return file.errorString();
    const QString reason = writeAll(file, bytes) ? flushToDisk(file) : file.errorString();
    if (!reason.isEmpty()) {
        file.cancelWriting();
        return reason;
    }
    return file.commit() ? QString() : file.errorString();
}

QString writeFile(const QString &path, const QByteArray &bytes)
{
    if (path.isEmpty() || path.contains(QChar(u'\0')))
        return CFileWriter::tr("this is not the name of a file");
    const QFileInfo target(path);
    if (target.exists() && !target.isFile()) // a folder, or a device that would be replaced
        return CFileWriter::tr("this is not a regular file");
    bool couldBegin = false;
    const QString reason = writeBeside(path, bytes, &couldBegin);
    const bool folderForbids =
        !couldBegin && target.isFile() && !QFileInfo(target.absolutePath()).isWritable();
    return folderForbids ? writeDirectly(path, bytes) : reason;
}
} // namespace

QString CFileWriter::write(const QString &path, const QByteArray &bytes)
{
    const QString reason = writeFile(path, bytes);
    return reason.isEmpty() ? QString() : tr("%1 could not be written: %2").arg(path, reason);
}
