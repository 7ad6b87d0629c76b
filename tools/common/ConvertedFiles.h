#pragma once

#include <QByteArray>
#include <QString>

namespace kivtools {

/// A bitmap as the chip reads it, ready to be written.
struct SConvertedBitmap
{
    QString format; ///< such as "ARGB4"
    int width = 0;  ///< pixels, as in the source
    int height = 0;
    int stride = 0;     ///< bytes from row to row (DXT1: from one row of blocks to the next)
    QByteArray pixels;  ///< the chip's bytes
    QByteArray palette; ///< empty for formats without one
};

/// Writes NAME.lut (when there is a palette), NAME.json (the description) and NAME.raw into the
/// current folder, where NAME is `baseName`, "_" and the format. The .raw comes last: when it is
/// new, so are the others. Gives an error text, empty when all are there.
QString saveConverted(const QString &baseName, const SConvertedBitmap &bitmap);

} // namespace kivtools
