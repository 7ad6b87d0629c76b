#include "StreamFile.h"

#include <QFile>

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A project's folder may hold links to devices, and pipes, that nobody meant.
bool isSystems(const QString &path)
{
    return path.startsWith(QLatin1String("/dev/")) ||
           path.startsWith(QLatin1String("/proc/self/fd/"));
}

bool statusOf(const QString &path, struct stat &status)
{
    return isSystems(path) && stat(QFile::encodeName(path).constData(), &status) == 0;
}

} // namespace

bool StreamFile::isOne(const QString &path)
{
    struct stat status = {};
    return statusOf(path, status) &&
           (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode) || isStandardOutput(path));
}

bool StreamFile::isStandardOutput(const QString &path)
{
    struct stat status = {};
    struct stat output = {};
    return statusOf(path, status) && fstat(STDOUT_FILENO, &output) == 0 &&
           status.st_dev == output.st_dev && status.st_ino == output.st_ino;
}

QString StreamFile::write(const QString &path, const QByteArray &bytes)
{
    const bool isOutput = isStandardOutput(path);
    std::fflush(stdout);
    const int descriptor =
        isOutput ? STDOUT_FILENO
                 : open(QFile::encodeName(path).constData(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    QFile file;
    const bool isWritten =
        descriptor >= 0 &&
        file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                  isOutput ? QFileDevice::DontCloseHandle : QFileDevice::AutoCloseHandle) &&
        file.write(bytes) == bytes.size();
    if (isWritten)
        return {};
    const QString reason = descriptor < 0 ? qt_error_string() : file.errorString();
    return QStringLiteral("%1 could not be written: %2").arg(path, reason);
}
