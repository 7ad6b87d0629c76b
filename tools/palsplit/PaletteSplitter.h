#pragma once

#include "ConvertedFiles.h"

#include <optional>

class QImage;

namespace kivtools {

/// The palette formats by the numbers that the tool is called with.
enum class EPaletteKind { Argb8888 = 0, Argb8888Second = 1, Rgb565 = 2, Argb4444 = 3 };

/// Splits an image (not null) of at most 256 colours into indices and a palette of 256 entries, the
/// unused ones 0. An indexed image keeps its order of colours, others get the order of their first
/// appearance. All fully transparent pixels are one colour, 0. Nothing when there are more colours.
std::optional<SConvertedBitmap> splitPalette(const QImage &image, EPaletteKind kind);

} // namespace kivtools
