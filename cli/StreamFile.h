#pragma once

#include <QByteArray>
#include <QString>

/// Outputs that the caller names by the path of a pipe or a device, such as /dev/stdout, /dev/null
/// or a FIFO: they are written into, whereas a file is replaced as a whole.
namespace StreamFile {

/// Also what this program's standard output is, by whatever name.
bool isOne(const QString &path);
bool isStandardOutput(const QString &path);
/// Waits for whoever reads. Empty when all is written, otherwise the reason, with the path.
QString write(const QString &path, const QByteArray &bytes);

} // namespace StreamFile
