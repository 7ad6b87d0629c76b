#include "CFileCopies.h"

#include "CFileWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace {
bool isThere(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}
} // namespace

bool CFileCopies::areEqual(const QString &one, const QString &other)
{
    const QFileInfo first(one);
    const QFileInfo second(other);
    if (!first.isFile() || !second.isFile() || first.size() != second.size())
        return false;
    if (first.canonicalFilePath() == second.canonicalFilePath())
        return true;
    QFile a(one);
    QFile b(other);
    if (!a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly))
        return false;
    constexpr qint64 piece = 1 << 16;
    while (!a.atEnd()) {
        const QByteArray bytes = a.read(piece);
        if (bytes.isEmpty() || bytes != b.read(piece))
            return false;
    }
    return b.atEnd();
}

void CFileCopies::add(const QString &from, const QString &to)
{
    m_copies.append({QDir::cleanPath(from), QDir::cleanPath(to)});
}

void CFileCopies::add(const CFileCopies &others)
{
    m_copies += others.m_copies;
    m_madeFiles += others.m_madeFiles;
    m_madeFolders += others.m_madeFolders;
}

bool CFileCopies::meetOthers() const
{
    QHash<QString, QString> sources;
    for (const SCopy &each : m_copies) {
        const QString before = sources.value(each.to, each.to);
        sources.insert(each.to, each.from);
        if (each.from != before && isThere(before) && !areEqual(each.from, before))
            return true;
    }
    return false;
}

QString CFileCopies::copy()
{
    for (const SCopy &each : qAsConst(m_copies)) {
        const QString reason = copyOne(each);
        if (!reason.isEmpty()) {
            takeBack();
            return reason;
        }
    }
    return {};
}

QString CFileCopies::copyOne(const SCopy &copy)
{
    if (!QFileInfo(copy.from).isFile() || areEqual(copy.from, copy.to))
        return {};
    if (isThere(copy.to))
        return tr("%1 holds something else already").arg(copy.to);
    const QString obstacle = makeFolder(QFileInfo(copy.to).path());
    if (!obstacle.isEmpty())
        return obstacle;
    QFile file(copy.from);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError || bytes.size() != file.size())
        return tr("%1 could not be copied: %2").arg(copy.from, file.errorString());
    const QString reason = CFileWriter::write(copy.to, bytes);
    if (reason.isEmpty())
        m_madeFiles.append(copy.to);
    return reason;
}

/// Empty, or the reason.
QString CFileCopies::makeFolder(const QString &path)
{
    if (QFileInfo(path).isDir())
        return {};
    if (isThere(path))
        return tr("%1 holds something else already").arg(path);
    QString reason = makeFolder(QFileInfo(path).path());
    if (!reason.isEmpty())
        return reason;
    if (!QDir().mkdir(path))
        return tr("The folder %1 could not be made: %2").arg(path, qt_error_string());
    m_madeFolders.append(path);
    return {};
}

void CFileCopies::takeBack()
{
    for (const QString &each : qAsConst(m_madeFiles))
        QFile::remove(each);
    while (!m_madeFolders.isEmpty())
        QDir().rmdir(m_madeFolders.takeLast()); // unless somebody has put something into it
    m_madeFiles.clear();
}
