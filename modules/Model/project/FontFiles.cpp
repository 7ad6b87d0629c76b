#include "FontFiles.h"

#include "CFileCopies.h"
#include "CProjectModel.h"
#include "FileNames.h"
#include "PropertyKey.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace {
QString rootOf(const CProjectModel &project)
{
    const QString folder = project.workingDirectory();
    return folder.isEmpty() ? QDir::currentPath() : folder;
}
bool isKnown(const CProjectModel &project, const QString &file)
{
    return std::any_of(project.fonts().begin(), project.fonts().end(),
                       [&file](const SProjectFont &each) { return each.file == file; });
}
} // namespace

QString FontFiles::folder(const CProjectModel &project)
{
    return rootOf(project) + QLatin1Char('/') +
           FileNames::fonts(project.propertyText(PropertyKey::ProjectName));
}

QString FontFiles::bringIn(const CProjectModel &project, ProjectFontList &fonts)
{
    const QString target = QDir::cleanPath(folder(project));
    const QString root = QDir::cleanPath(rootOf(project));
    CFileCopies copies(root);
    QHash<QString, QString> places; // from where to where
    ProjectFontList result = fonts;
    for (SProjectFont &each : result) {
        const QString source = QDir::cleanPath(project.absoluteFolder(each.file));
        if (each.file.isEmpty() || QDir::isRelativePath(each.file))
            continue;
        if (!QFileInfo(source).isFile()) {
            if (isKnown(project, each.file))
                continue; // a file that went missing is no reason to refuse other changes
            return QCoreApplication::translate("FontFiles", "%1: there is no such file")
                .arg(source);
        }
        if (source.startsWith(root + QLatin1Char('/'))) {
            each.file = project.placeText(source);
            continue;
        }
        QString &place = places[source];
        if (place.isEmpty()) {
            const QFileInfo file(source);
            const auto isTaken = [&](const QString &name) {
                const QString path = target + QLatin1Char('/') + name;
                const bool isOthers =
                    QFileInfo::exists(path) && !CFileCopies::areEqual(source, path);
                return isOthers || places.values().contains(path);
            };
            place = target + QLatin1Char('/') +
                    FileNames::unused(file.completeBaseName(), QLatin1Char('.') + file.suffix(),
                                      isTaken);
            copies.add(source, place);
        }
        each.file = project.placeText(place);
    }
    const QString problem = copies.copy();
    if (problem.isEmpty())
        fonts = result;
    return problem;
}
