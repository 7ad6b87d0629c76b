#pragma once

#include "RasterTypes.h"

#include <cstddef>
#include <vector>

namespace kivemu {

/// A decoded bitmap, ready for the kernels.
/// Pixels: 0xAARRGGBB multiplied by alpha, with Border transparent pixels on every side (more on
/// the right, up to the stride), so that bilinear reads need no bounds test.
struct SBitmapImage
{
    static constexpr int Border = 2;
    static constexpr int MaxSide = 8192; ///< texel positions then fit 32 bits

    /// Transparent; sides are cut to 0 .. MaxSide.
    SBitmapImage(int imageWidth, int imageHeight);

    /// The pixel at (x, y), each from -Border on.
    uint32_t *at(int x, int y);
    const uint32_t *at(int x, int y) const;

    int width;
    int height;
    int stride;          ///< pixels from row to row
    bool opaque = false; ///< no texel is transparent
    std::vector<uint32_t> pixels;
};

enum class EBitmapWrap { Border, Repeat };
enum class EBitmapFilter { Nearest, Bilinear };

/// Where a bitmap goes: the rectangle topLeft, size (in sixteenths) is filled with texels looked up
/// at (u, v) = (a * x + b * y + c, d * x + e * y + f), where (x, y) is the pixel centre's offset
/// from topLeft in pixels and texel (0, 0) covers 0 <= u, v < 1. All six are in 1/65536.
struct SBitmapPlacement
{
    SPoint topLeft{};
    SPoint size{};
    int32_t a = 65536;
    int32_t b = 0;
    int32_t c = 0;
    int32_t d = 0;
    int32_t e = 65536;
    int32_t f = 0;
    EBitmapFilter filter = EBitmapFilter::Nearest;
    EBitmapWrap wrapX = EBitmapWrap::Border;
    EBitmapWrap wrapY = EBitmapWrap::Border;
};

} // namespace kivemu
