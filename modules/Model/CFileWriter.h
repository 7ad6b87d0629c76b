#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

/// Writes whole files. The one road for everything that the program writes itself.
/// The bytes go to a temporary file beside the target, on to the disk, and only then take the
/// target's name: whatever happens, the target holds the old bytes or the new ones. Where the
/// folder forbids a second file, an existing target is written directly; when that fails, its old
/// bytes are put back as far as the disk allows.
/// Errors:  a missing folder, a target that is no regular file, missing rights, a full disk.
class CFileWriter
{
    Q_DECLARE_TR_FUNCTIONS(CFileWriter)

public:
    /// Empty when all bytes are in the file, otherwise the reason, with the path.
    static QString write(const QString &path, const QByteArray &bytes);
};
