#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

class CFolder;

/// Writes whole files. The one road for everything that the programs write themselves.
/// The bytes go to a file without a name in the target's folder (or called ".name.XXXXXX", where
/// there are no such files), on to the disk, and only then take the target's name: whatever
/// happens, the target holds the old bytes or the new ones. Where the folder forbids a second file,
/// an existing target is written directly, unless it has other names; when that fails, its old
/// bytes are put back as far as the disk allows.
///
/// Links:   the folder is resolved once. A link in the target's place is replaced by the file and
///          never written through, wherever it leads; so is a file's other name (a hard link),
///          which keeps its bytes. That holds for exports too: who names a link gets a file there.
///          A project that was opened through a link is written where it lies, see linkedFile().
/// Errors:  a missing folder, a target that is no regular file or a link to a device, a pipe or a
///          folder, missing rights, a full disk.
class CFileWriter
{
    Q_DECLARE_TR_FUNCTIONS(CFileWriter)

public:
    /// Empty when all bytes are in the file, otherwise the reason, with the path.
    static QString write(const QString &path, const QByteArray &bytes);
    /// The same, into a folder that is open.
    static QString write(const CFolder &folder, const QString &name, const QByteArray &bytes);
    /// Empty, or why write() would write nothing; without the path. Nothing is touched.
    static QString whyNot(const QString &path);
};
