#pragma once

#include "ConvertedFiles.h"
#include "ErrorDiffusion.h"

class QImage;

namespace kivtools {

struct SChipFormat;

/// The bytes of an image (Format_ARGB32, not null) in a chip format.
/// Alpha: formats without it get the image over black. Where a pixel turns out fully transparent
/// its whole code is 0. Pixels that are fully transparent or opaque in the source stay so; alpha of
/// one bit is not dithered (128 and above is opaque), since a speckled edge looks worse than a
/// stepped one.
SConvertedBitmap encodeImage(const QImage &image, const SChipFormat &format, EDither dither);

} // namespace kivtools
