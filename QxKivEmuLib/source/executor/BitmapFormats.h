#pragma once

#include "raster/BitmapImage.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace kivemu {

constexpr int MaxBitmapSide = 2048; ///< texels

/// The chip's bitmap formats by their codes, as the image converter passes them on.
enum class EBitmapFormat : uint32_t {
    Argb1555 = 0,
    L1 = 1,
    L4 = 2,
    L8 = 3,
    Rgb332 = 4,
    Argb2 = 5,
    Argb4 = 6,
    Rgb565 = 7,
    Paletted = 8, ///< 8-bit indices, 256 entries of 32 bits (ARGB8888)
    L2 = 9,
    Paletted8 = 12, ///< 8-bit indices, 256 entries of 32 bits, as the chips of the second
                    ///< generation read them
    Paletted4444 = 13,
    Paletted565 = 14,
    Dxt1 = 255,
};

/// Bytes from row to row for tightly packed rows (rows start on a byte; DXT1: a row of 4x4 blocks).
/// 0 for an unknown format.
uint32_t bitmapStride(uint32_t format, int width);
/// Bytes of the pixels, palette apart.
uint64_t bitmapSize(uint32_t format, int width, int height);
/// Bytes of the palette; 0 for formats without one.
uint32_t paletteSize(uint32_t format);
/// The code of a format name such as "ARGB4" (case-sensitive); -1 for others.
int bitmapFormatCode(std::string_view name);
/// The name of a format's code; null for others.
const char *bitmapFormatName(uint32_t code);

/// Decodes a bitmap that lies in `memory`. Null when the format is not known, a side is not in
/// 1 .. MaxBitmapSide, or anything lies outside the memory.
/// L formats decode to white with the luminance as alpha, so that a tint colours them.
std::shared_ptr<const SBitmapImage> decodeBitmap(const uint8_t *memory, size_t memorySize,
                                                 uint32_t format, uint32_t address, uint32_t stride,
                                                 uint32_t palette, int width, int height);

} // namespace kivemu
