#include "CMessages.h"

#include "CProjectExporter.h"

#include <cstdio>

namespace {

void print(FILE *stream, const QString &line)
{
    std::fprintf(stream, "%s\n", line.toUtf8().constData());
}

} // namespace

void CMessages::fail(const QString &message)
{
    warn(message);
    m_hasFailed = true;
}

void CMessages::warn(const QString &message) const
{
    print(stderr, QStringLiteral("panel-export: ") + CProjectExporter::oneLine(message));
}

void CMessages::tell(const QString &message) const
{
    print(m_outputIsTaken ? stderr : stdout, message);
}
