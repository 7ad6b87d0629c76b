#include "CProjectFile.h"

#include "CFileWriter.h"
#include "CXmlGuard.h"
#include "HiddenFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {
QByteArray hashOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QByteArray bytesOf(const QString &path)
{
    return CXmlGuard::readFile(path).value_or(QByteArray());
}
} // namespace

CProjectFile::CProjectFile(const QString &path) : m_path(QFileInfo(path).absoluteFilePath())
{
}

QString CProjectFile::backupPath() const
{
    const QFileInfo info(m_path);
    return info.absolutePath() + QStringLiteral("/.") + info.fileName() + QStringLiteral(".saved");
}

bool CProjectFile::hasBackup() const
{
    return QFileInfo(backupPath()).isFile();
}

std::optional<QByteArray> CProjectFile::read(QString *error)
{
    auto bytes = CXmlGuard::readFile(m_path, error);
    if (bytes)
        m_knownHash = hashOf(*bytes);
    return bytes;
}

std::optional<QByteArray> CProjectFile::readBackup(QString *error) const
{
    return CXmlGuard::readFile(backupPath(), error);
}

QString CProjectFile::write(const QByteArray &bytes, EWrite kind)
{
    if (kind == EWrite::Automatic) {
        const QString reason = keepBackup();
        if (!reason.isEmpty())
            return reason;
    }
    const QString reason = CFileWriter::write(m_path, bytes);
    if (!reason.isEmpty())
        return reason;
    m_knownHash = hashOf(bytes);
    if (kind == EWrite::ByUser)
        QFile::remove(backupPath());
    return {};
}

/// A backup that is there already stays: it is what the user saved, the file is not.
QString CProjectFile::keepBackup() const
{
    if (hasBackup() || !QFileInfo::exists(m_path))
        return {};
    QString reason;
    const auto saved = CXmlGuard::readFile(m_path, &reason);
    if (!saved)
        return reason;
    reason = CFileWriter::write(backupPath(), *saved);
    if (reason.isEmpty())
        hideFile(backupPath());
    return reason;
}

bool CProjectFile::isChangedByOthers() const
{
    if (m_knownHash.isEmpty() || !QFileInfo(m_path).isFile())
        return false;
    const auto bytes = CXmlGuard::readFile(m_path);
    return !bytes || hashOf(*bytes) != m_knownHash;
}

/// A temporary file has the name of its target, a dot and six letters at random. A file that a user
/// has named so by hand, say "demo.nyx.backup", must stay: what is removed was written by the
/// process that crashed, after its last whole save, and copies nothing that has a word as its
/// suffix.
void CProjectFile::removeOrphans(const QDateTime &begun) const
{
    const QFileInfo project(m_path);
    const QRegularExpression word(QStringLiteral("^([a-z]{6}|[A-Z]{6}|[A-Z][a-z]{5})$"));
    for (const QString &target : {m_path, backupPath()}) {
        const QString name = QFileInfo(target).fileName();
        const QRegularExpression temporary(
            QStringLiteral("^%1\\.[A-Za-z]{6}$").arg(QRegularExpression::escape(name)));
        const auto entries = QDir(project.absolutePath())
                                 .entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
        for (const QFileInfo &each : entries) {
            const QDateTime written = each.lastModified();
            if (!temporary.match(each.fileName()).hasMatch() || written < begun ||
                written < project.lastModified())
                continue;
            const bool mayBeCopy = word.match(each.suffix()).hasMatch() &&
                                   bytesOf(each.absoluteFilePath()) == bytesOf(m_path);
            if (!mayBeCopy)
                QFile::remove(each.absoluteFilePath());
        }
    }
}
