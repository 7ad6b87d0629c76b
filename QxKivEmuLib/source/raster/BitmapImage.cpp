#include "BitmapImage.h"

#include <algorithm>

namespace kivemu {
namespace {

// What a kernel may read behind the last pixel.
constexpr size_t Slack = 8;

} // namespace

SBitmapImage::SBitmapImage(int imageWidth, int imageHeight)
    : width(std::clamp(imageWidth, 0, MaxSide)),
      height(std::clamp(imageHeight, 0, MaxSide)),
      stride((width + 2 * Border + 7) / 8 * 8),
      pixels(static_cast<size_t>(stride) * static_cast<size_t>(height + 2 * Border) + Slack)
{
}

uint32_t *SBitmapImage::at(int x, int y)
{
    return pixels.data() + static_cast<ptrdiff_t>(y + Border) * stride + (x + Border);
}

const uint32_t *SBitmapImage::at(int x, int y) const
{
    return pixels.data() + static_cast<ptrdiff_t>(y + Border) * stride + (x + Border);
}

} // namespace kivemu
