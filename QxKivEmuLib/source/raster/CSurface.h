#pragma once

#include "RasterTypes.h"

#include <cstddef>
#include <vector>

namespace kivemu {

/// The opaque pixels that one frame is drawn into.
/// Shape:  width() x height() pixels, top row first; rows are stride() pixels apart, padded so that
///         a kernel may finish a vector of 32 pixels past the edge.
/// Pixel:  0xFFRRGGBB in host order.
class CSurface
{
public:
    static constexpr int MaxSide = 2048;

    /// Black; sides are cut to 0 .. MaxSide.
    CSurface(int width, int height);

    int width() const { return m_width; }
    int height() const { return m_height; }
    int stride() const { return m_stride; }
    uint32_t *row(int y) { return m_pixels.data() + static_cast<size_t>(y) * rowStride(); }
    const uint32_t *row(int y) const
    {
        return m_pixels.data() + static_cast<size_t>(y) * rowStride();
    }

private:
    size_t rowStride() const { return static_cast<size_t>(m_stride); }

    int m_width;
    int m_height;
    int m_stride;
    std::vector<uint32_t> m_pixels;
};

} // namespace kivemu
