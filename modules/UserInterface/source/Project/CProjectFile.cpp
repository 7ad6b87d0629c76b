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
const QByteArray RecordStart = "\n<!-- saved last; automatically since then: ";
const QByteArray RecordEnd = " -->\n";

struct SBackup
{
    QByteArray bytes;             ///< what the user saved
    QList<QByteArray> successors; ///< hashes of what the file may hold in its place
};

QByteArray hashOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

QByteArray bytesOf(const QString &path)
{
    return CXmlGuard::readFile(path).value_or(QByteArray());
}
std::optional<SBackup> readBackup(const QString &path)
{
    const QByteArray all = bytesOf(path);
    const int record = all.lastIndexOf(RecordStart);
    if (record < 0 || !all.endsWith(RecordEnd))
        return std::nullopt;
    const int hashes = record + RecordStart.size();
    return SBackup{all.left(record),
                   all.mid(hashes, all.size() - hashes - RecordEnd.size()).split(' ')};
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

QString CProjectFile::withSuffix(const QString &chosen)
{
    const QString suffix = QFileInfo(chosen).suffix();
    const bool isThere = suffix.compare(QLatin1String("nyx"), Qt::CaseInsensitive) == 0 ||
                         suffix.compare(QLatin1String("xml"), Qt::CaseInsensitive) == 0;
    return isThere || chosen.isEmpty() ? chosen : chosen + QStringLiteral(".nyx");
}

QString CProjectFile::projectName(const QString &path)
{
    return QFileInfo(path).completeBaseName().trimmed();
}

std::optional<QByteArray> CProjectFile::read(QString *error)
{
    auto bytes = CXmlGuard::readFile(m_path, error);
    if (bytes)
        m_knownHash = hashOf(*bytes);
    return bytes;
}

std::optional<QByteArray> CProjectFile::savedVersion() const
{
    const auto backup = readBackup(backupPath());
    if (!backup)
        return std::nullopt;
    const auto bytes = CXmlGuard::readFile(m_path);
    if (!bytes || *bytes == backup->bytes || !backup->successors.contains(hashOf(*bytes)))
        return std::nullopt;
    return backup->bytes;
}

std::optional<QByteArray> CProjectFile::leftBackup() const
{
    const auto backup = readBackup(backupPath());
    if (!backup || savedVersion() || bytesOf(m_path) == backup->bytes)
        return std::nullopt;
    return backup->bytes;
}

QString CProjectFile::write(const QByteArray &bytes, EWrite kind)
{
    if (kind == EWrite::Automatic) {
        const QString reason = keepBackup(bytes);
        if (!reason.isEmpty())
            return reason;
    }
    const QString reason = CFileWriter::write(m_path, bytes);
    if (!reason.isEmpty())
        return reason;
    m_knownHash = hashOf(bytes);
    if (kind == EWrite::ByUser)
        dropBackup();
    return {};
}

/// The backup names both, what lies there and what comes next: whichever of the two a crash leaves,
/// it belongs to it.
QString CProjectFile::keepBackup(const QByteArray &next) const
{
    if (!QFileInfo::exists(m_path))
        return {};
    QString reason;
    const auto current = CXmlGuard::readFile(m_path, &reason);
    if (!current)
        return reason;
    const QByteArray record = RecordStart + hashOf(*current) + ' ' + hashOf(next) + RecordEnd;
    reason = CFileWriter::write(backupPath(), savedVersion().value_or(*current) + record);
    if (reason.isEmpty())
        hideFile(backupPath());
    return reason;
}

void CProjectFile::dropBackup() const
{
    QFile::remove(backupPath());
}

void CProjectFile::putBackSaved()
{
    const auto saved = savedVersion();
    if (saved && !isChangedByOthers())
        write(*saved, EWrite::ByUser);
}

bool CProjectFile::isChangedByOthers() const
{
    if (m_knownHash.isEmpty() || !QFileInfo(m_path).isFile())
        return false;
    const auto bytes = CXmlGuard::readFile(m_path);
    return !bytes || hashOf(*bytes) != m_knownHash;
}

/// A temporary file has the name of its target, maybe behind a dot, and behind it a dot and six
/// letters at random. A file that a user has named so by hand, say "demo.nyx.backup", must stay:
/// what is removed was written by the process that crashed, after its last whole save, and copies
/// nothing that has a word as its suffix.
void CProjectFile::removeOrphans(const QDateTime &begun) const
{
    const QDateTime saved = QFileInfo(m_path).lastModified();
    const QRegularExpression word(QStringLiteral("^([a-z]{6}|[A-Z]{6}|[A-Z][a-z]{5})$"));
    QStringList targets = {m_path, backupPath(), QFileInfo(m_path).canonicalFilePath()};
    targets.removeDuplicates();
    for (const QString &target : qAsConst(targets)) {
        const QString name = QRegularExpression::escape(QFileInfo(target).fileName());
        const QRegularExpression temporary(QStringLiteral("^(\\.?)%1\\.[A-Za-z]{6}$").arg(name));
        const auto entries = QDir(QFileInfo(target).path())
                                 .entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
        for (const QFileInfo &each : entries) {
            const auto match = temporary.match(each.fileName());
            const QDateTime written = each.lastModified();
            if (!match.hasMatch() || written < begun || written < saved)
                continue;
            const bool mayBeCopy = match.capturedLength(1) == 0 &&
                                   word.match(each.suffix()).hasMatch() &&
                                   bytesOf(each.absoluteFilePath()) == bytesOf(m_path);
            if (!mayBeCopy)
                QFile::remove(each.absoluteFilePath());
        }
    }
}
