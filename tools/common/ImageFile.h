#pragma once

#include <QImage>

namespace kivtools {

/// Reads an image of the given format (never guessed from the content), turned as a camera's mark
/// asks; see PictureFile for its limits. Null on failure, with the reason.
QImage loadImage(const QString &path, const QByteArray &format, QString *error);

/// The same by the file's suffix, and as 32-bit pixels with straight alpha.
QImage loadArgbImage(const QString &path, QString *error);

} // namespace kivtools
