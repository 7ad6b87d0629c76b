#pragma once

#include <QImage>

/// Reads regular files only, as what `format` says ("png", "jpg" or "bmp"), whatever their content
/// looks like. Needs at most 8 bytes a pixel and 16 MiB besides, also for hostile files.
namespace PictureFile {

struct SLimits
{
    int side = 4096;                    ///< pixels, of both sides
    qint64 bytes = 256LL * 1024 * 1024; ///< of the file; far above any image of such a side
};

/// A camera's mark (in JPEG files) says how a picture is to be turned.
enum class ETurn { AsMarked, AsStored };

/// Format that a file's suffix stands for, in any case; empty for others.
QByteArray formatOf(const QString &path);

/// The image, turned as it is marked, without colour space; null on failure, with the reason. Of an
/// indexed PNG of more than two colours the indices are kept.
QImage read(const QString &path, const QByteArray &format, const SLimits &limits, QString *error);

/// Size that a picture has, asked without decoding it, however large; invalid when it has none.
QSize size(const QString &path, const QByteArray &format, ETurn turn);

} // namespace PictureFile
