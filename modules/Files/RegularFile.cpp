#include "RegularFile.h"

#include "CDescriptor.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

bool openRegularFile(QFile &file, const QString &path, QString *reason)
{
    const auto refuse = [reason](const QString &why) {
        if (reason)
            *reason = why;
        return false;
    };
    if (path.contains(QChar(u'\0')))
        return refuse(qt_error_string(EINVAL));
    CDescriptor found(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status = {};
    if (!found.isOpen() || fstat(found.get(), &status) != 0)
        return refuse(qt_error_string());
    if (!S_ISREG(status.st_mode))
        return refuse(QCoreApplication::translate("CFileWriter", "this is not a regular file"));
    return file.open(found.take(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
}

QString linkedFile(const QString &path)
{
    const QFileInfo info(path);
    return info.isSymLink() && info.isFile() ? info.canonicalFilePath() : info.absoluteFilePath();
}
