#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// Turns names that users give (screens, projects, images) into names of files.
namespace FileNames {
/// A file name without folder, `suffix` included (write it with its dot: ".png"), that stays in
/// the folder it is used in and is valid on every system: no separators, control or reserved
/// characters, device names, dots or spaces at the end, at most 255 bytes of UTF-8. "_" when
/// nothing of the name can be kept.
QString safe(const QString &name, const QString &suffix = {});

/// Name of the folder in a project's folder that holds its converted images.
QString convertedImages(const QString &projectName);

/// Name of the folder in a project's folder that holds its fonts.
QString fonts(const QString &projectName);

/// Whether a file of this name can be a font.
bool isFont(const QString &fileName);

/// Whether a file of this name can be an image, or be made of one.
bool isImage(const QString &fileName);

/// As safe(), with " (1)", " (2)", ... behind the name for as long as `isTaken` says so.
QString unused(const QString &name, const QString &suffix,
               const std::function<bool(const QString &fileName)> &isTaken);

/// One file name for each name, all different also where upper and lower case are the same.
QStringList unusedForAll(const QStringList &names, const QString &suffix);
} // namespace FileNames
