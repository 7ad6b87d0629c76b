#include "CommandOutput.h"

#include "CFileWriter.h"
#include "CMessages.h"
#include "StreamFile.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace CommandOutput {

void print(const QByteArray &bytes, CMessages &messages)
{
    const auto size = static_cast<size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0)
        messages.fail(QStringLiteral("The standard output could not be written to."));
}

void write(const QString &path, const QByteArray &bytes, CMessages &messages)
{
    if (path == QLatin1String("-")) {
        print(bytes, messages);
        return;
    }
    QString problem;
    if (StreamFile::isOne(path))
        problem = StreamFile::write(path, bytes);
    else if (!QDir().mkpath(QFileInfo(path).path()))
        problem = QStringLiteral("%1: The folder could not be made.").arg(path);
    else
        problem = CFileWriter::write(path, bytes);
    if (!problem.isEmpty())
        messages.fail(problem);
}

} // namespace CommandOutput
