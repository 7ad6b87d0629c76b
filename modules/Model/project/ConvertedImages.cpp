#include "ConvertedImages.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "FileNames.h"
#include "ItemTree.h"
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

QString ConvertedImages::fileOf(const CItemModel &item)
{
    const QString name = item.propertyText(PropertyKey::BaseName);
    const CProjectModel *project = item.project();
    if (name.isEmpty() || !project)
        return {};
    const QString suffix = item.propertyText(PropertyKey::Suffix);
    const bool isAsItIs = suffix == QLatin1String("raw") ||
                          item.itemTypeName() == TypeName::Media ||
                          !item.hasProperty(PropertyKey::Format);
    const QString file =
        name + (isAsItIs ? QLatin1Char('.') + suffix
                         : QLatin1Char('_') + item.propertyText(PropertyKey::Format) +
                               QLatin1String(".raw"));
    const QString folder = project->absoluteFolder(item.propertyText(PropertyKey::BitmapFolder));
    return QDir::cleanPath(QDir(project->workingDirectory()).filePath(folder) + QLatin1Char('/') +
                           file);
}

bool ConvertedImages::isShown(const CProjectModel &project, const QString &file)
{
    const QString place = QFileInfo(QFileInfo(file).path()).canonicalFilePath();
    const QString name = QFileInfo(file).fileName();
    bool isFound = false;
    forEachItem(project, [&](const CItemModel &item) {
        const QFileInfo shown(isFound ? QString() : fileOf(item));
        isFound =
            isFound ||
            (!shown.filePath().isEmpty() && shown.fileName() == name &&
             (shown.filePath() == file || QFileInfo(shown.path()).canonicalFilePath() == place));
    });
    return isFound;
}
