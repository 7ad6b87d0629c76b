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

    /// A file name that was chosen for a project, with the suffix of projects unless it has one.
    /// Dots in a name are part of it.
    static QString withSuffix(const QString &chosen);
    /// The name of the project in such a file; empty when only a suffix is there.
    static QString projectName(const QString &path);

    /// The bytes of the file, which is from now on known.
    std::optional<QByteArray> read(QString *error);
    /// The version that the user saved last, when the file holds another one that was saved
    /// automatically since.
    std::optional<QByteArray> savedVersion() const;
    /// What lies where savedVersion() does and belongs to another state of the file: a program
    /// that crashed left it, or the file was changed by others since.
    std::optional<QByteArray> leftBackup() const;
    /// Empty, or why nothing was written.
    QString write(const QByteArray &bytes, EWrite kind);
    void dropBackup() const;
    /// Puts the saved version back into the file, for what was saved automatically lies elsewhere
    /// now. A file that others have changed since stays as it is.
    void putBackSaved();
    /// Whether the file has other bytes than were last read or written here. A file that is gone
    /// has not.
    bool isChangedByOthers() const;

    /// Removes temporary files of a save that ended with its process. `begun`: when that process
    /// had opened the project. To be called by the lock's owner only.
    void removeOrphans(const QDateTime &begun) const;

private:
    QString keepBackup(const QByteArray &next) const;

    QString m_path;
    QByteArray m_knownHash; ///< empty before the first read or write
};
