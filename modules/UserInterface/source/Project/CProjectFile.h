#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

/// The file of the open project on the disk, and what lies beside it: the version that the user
/// saved last, for as long as the file itself holds one that was saved automatically.
/// Errors: a text for people; then the file holds its old bytes.
class CProjectFile
{
public:
    enum class EWrite { ByUser, Automatic };

    explicit CProjectFile(const QString &path);

    const QString &path() const { return m_path; }
    /// "/folder/.name.nyx.saved"
    QString backupPath() const;
    bool hasBackup() const;

    /// The bytes of the file, which is from now on known.
    std::optional<QByteArray> read(QString *error);
    std::optional<QByteArray> readBackup(QString *error) const;
    /// Empty, or why nothing was written. What the user saves drops the backup; the first
    /// automatic write after that keeps the bytes that it replaces.
    QString write(const QByteArray &bytes, EWrite kind);
    /// Whether the file has other bytes than were last read or written here. A file that is gone
    /// has not.
    bool isChangedByOthers() const;

    /// Removes temporary files of a save that ended with its process. `begun`: when that process
    /// had opened the project. To be called by the lock's owner only.
    void removeOrphans(const QDateTime &begun) const;

private:
    QString keepBackup() const;

    QString m_path;
    QByteArray m_knownHash; ///< empty before the first read or write
};
