#pragma once

#include <QString>

#include <functional>

class CProjectModel;

/// The folder of a project's converted images, which goes along when the project gets another name
/// or folder.
class CConvertedFolder
{
public:
    /// Where a project of this name in this folder has its converted images; absolute.
    static QString path(const QString &workingDirectory, const QString &projectName);

    /// Copies the folder with all below it. Nothing to do when `from` is not there or the same.
    /// Empty when all was copied, otherwise the reason.
    static QString copy(const QString &from, const QString &to);

    /// Gives the project its new name and folder, and lets the items that show images find them
    /// there again. What it returns, when called, puts all of that back as it was.
    static std::function<void()> rename(CProjectModel *project, const QString &workingDirectory,
                                        const QString &projectName);
};
