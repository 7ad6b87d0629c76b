#include "CFileCopies.h"

#include "CFileWriter.h"
#include "CFolder.h"
#include "RegularFile.h"

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
    if (!openRegularFile(a, one) || !openRegularFile(b, other))
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
    const QFileInfo place(copy.to);
    const CFolder folder = CFolder::madeBelow(m_root, place.path(), &m_madeFolders);
    if (!folder.isOpen())
        return folder.error();
    QFile file(copy.from);
    QString reason;
    const QByteArray bytes =
        openRegularFile(file, copy.from, &reason) ? file.readAll() : QByteArray();
    if (reason.isEmpty() && (file.error() != QFileDevice::NoError || bytes.size() != file.size()))
        reason = file.errorString();
    if (!reason.isEmpty())
        return tr("%1 could not be copied: %2").arg(copy.from, reason);
    reason = CFileWriter::write(folder, place.fileName(), bytes);
    if (reason.isEmpty())
        m_madeFiles.append(copy.to);
    return reason;
}

void CFileCopies::takeBack()
{
    while (!m_madeFiles.isEmpty()) {
        const QFileInfo file(m_madeFiles.takeLast());
        CFolder::below(m_root, file.path()).remove(file.fileName());
    }
    while (!m_madeFolders.isEmpty())
        QDir().rmdir(m_madeFolders.takeLast()); // unless somebody has put something into it
}
