#pragma once

#include <QByteArray>
#include <QString>

class CMessages;

/// Where a command's results go.
namespace CommandOutput {
/// All of it on the standard output; otherwise that is told as a failure.
void print(const QByteArray &bytes, CMessages &messages);
/// Into a file, which is replaced and whose folder is made; "-" is the standard output.
void write(const QString &path, const QByteArray &bytes, CMessages &messages);
} // namespace CommandOutput
