#include "CSurface.h"

#include <algorithm>

namespace kivemu {
namespace {

// Kernels may rewrite up to this many pixels behind the right edge.
constexpr int Padding = 32;

int paddedStride(int width)
{
    return (width + 15) / 16 * 16 + Padding;
}

} // namespace

CSurface::CSurface(int width, int height)
    : m_width(std::clamp(width, 0, MaxSide)),
      m_height(std::clamp(height, 0, MaxSide)),
      m_stride(paddedStride(m_width)),
      m_pixels(static_cast<size_t>(m_stride) * static_cast<size_t>(m_height), 0xFF000000u)
{
}

} // namespace kivemu
