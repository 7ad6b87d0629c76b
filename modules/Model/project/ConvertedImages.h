#pragma once

#include <QString>

class CItemModel;
class CProjectModel;

/// Where the converted images of a project lie: in a folder of their own in the project's folder,
/// which is named after the project.
namespace ConvertedImages {
/// Absolute paths. A project without a working directory has its folder where the program runs.
QString projectFolder(const QString &workingDirectory);
QString folder(const QString &workingDirectory, const QString &projectName);
QString folder(const CProjectModel &project);
/// Whether that is what the path of an entry in the project's folder names, under any name that the
/// project may have had.
bool isFolder(const QString &path, const QString &projectFolder);
/// The file of the image that an item of a project shows, absolute, as the render commands name it;
/// empty when it shows none.
QString fileOf(const CItemModel &item);
/// Whether an item of the project shows the file, which need not be there.
bool isShown(const CProjectModel &project, const QString &file);
} // namespace ConvertedImages
