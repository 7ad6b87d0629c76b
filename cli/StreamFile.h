#pragma once

#include <QByteArray>
#include <QString>

/// Outputs that the caller names by a path of the system, such as /dev/stdout, /dev/null or the
/// /dev/fd/63 of a shell: they are written into, whereas a file is replaced as a whole. Pipes and
/// devices anywhere else are refused.
namespace StreamFile {

/// Also what this program's standard output is, by whatever name.
bool isOne(const QString &path);
bool isStandardOutput(const QString &path);
/// Waits for whoever reads. Empty when all is written, otherwise the reason, with the path.
QString write(const QString &path, const QByteArray &bytes);

} // namespace StreamFile
