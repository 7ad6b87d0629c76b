#include "SProjectRead.h"

#include "CXmlGuard.h"

SProjectRead SProjectRead::of(const QString &path)
{
    SProjectRead read;
    read.bytes = CXmlGuard::readFile(path, &read.reason);
    auto project = std::make_unique<CProjectModel>();
    if (read.bytes && project->loadFromBytes(*read.bytes, &read.reason))
        read.project = std::move(project);
    return read;
}
