#include "ConvertedImages.h"

#include "CProjectModel.h"
#include "FileNames.h"
#include "PropertyKey.h"

#include <QDir>
#include <QFileInfo>

QString ConvertedImages::projectFolder(const QString &workingDirectory)
{
    return QDir::cleanPath(
        QDir(workingDirectory.isEmpty() ? QDir::currentPath() : workingDirectory).absolutePath());
}

QString ConvertedImages::folder(const QString &workingDirectory, const QString &projectName)
{
    return QDir::cleanPath(projectFolder(workingDirectory) + QLatin1Char('/') +
                           FileNames::convertedImages(projectName));
}

QString ConvertedImages::folder(const CProjectModel &project)
{
    return folder(project.workingDirectory(), project.propertyText(PropertyKey::ProjectName));
}

bool ConvertedImages::isFolder(const QString &path, const QString &projectFolder)
{
    const QString ending = FileNames::convertedImages(QString());
    return path.endsWith(ending) && QFileInfo(path).path() == projectFolder;
}
