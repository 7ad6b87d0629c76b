#pragma once

#include "PictureError.h"

#include <QString>

#include <atomic>

/// What an image would be in a format of the chip: made by the tools in a scratch folder, which is
/// gone afterwards, and decoded as the chip reads it.
struct SFormatTrial
{
    QString format;
    qint64 bytes = 0; ///< of graphics memory, the palette among them
    QImage picture;   ///< as the chip draws it, on nothing
    SPictureError error;
    QString problem; ///< why there is none; empty when all went well
};

/// Takes as long as its tools, a minute at most; may be called from any thread. Ends soon, with a
/// problem, when `cancelled` becomes true.
/// `programFolder`: where the folder of the image tools lies.
SFormatTrial tryFormat(const QString &source, const QString &format, const QString &programFolder,
                       const std::atomic<bool> &cancelled);
