#include "SProjectRead.h"

#include "CXmlGuard.h"

#include <QDir>

SProjectRead SProjectRead::of(const QString &path)
{
    SProjectRead read;
    read.bytes = CXmlGuard::readFile(path, &read.reason);
    if (read.bytes)
        read.project = projectIn(*read.bytes, path, &read.reason);
    return read;
}

std::unique_ptr<CProjectModel> SProjectRead::projectIn(const QByteArray &bytes, const QString &path,
                                                       QString *reason)
{
    auto project = std::make_unique<CProjectModel>();
    QString why;
    if (project->loadFromBytes(bytes, &why))
        return project;
    *reason = QDir::toNativeSeparators(path);
    if (!why.isEmpty())
        *reason += QStringLiteral(": ") + why;
    return nullptr;
}
