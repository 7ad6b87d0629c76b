#include "PackageFiles.h"

#include "CFileWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <cstring>

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
        if (target.isSymLink() || (target.exists() && !target.isFile()))
            return text(QT_TRANSLATE_NOOP("PackageFiles", "%1 is not a regular file"))
                .arg(target.filePath());
        if (target.exists() && !QFile::copy(target.filePath(), oldPath(name)))
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
            if (!QFile::exists(oldPath(each)) || !moveOver(oldPath(each), m_folder.filePath(each)))
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
    const QTemporaryDir aside(QDir(folder).filePath(QStringLiteral(".package-XXXXXX")));
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
