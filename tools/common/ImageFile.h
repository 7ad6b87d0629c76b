#pragma once

#include <QImage>

namespace kivtools {

constexpr int MaxImageSide = 4096;                        ///< pixels
constexpr qint64 MaxImageFileBytes = 256LL * 1024 * 1024; ///< far above any image of that size

/// Image format that a file's suffix stands for: "png", "jpg" or "bmp"; empty for others.
QByteArray imageFormatOf(const QString &path);

/// Reads an image of the given format (never guessed from the content), turned as a camera's mark
/// asks. Only regular files of at most MaxImageFileBytes; the size is asked before anything is
/// decoded and each side must be in 1 .. MaxImageSide. Null on failure, with the reason.
QImage loadImage(const QString &path, const QByteArray &format, QString *error);

/// The same by the file's suffix, and as 32-bit pixels with straight alpha.
QImage loadArgbImage(const QString &path, QString *error);

} // namespace kivtools
