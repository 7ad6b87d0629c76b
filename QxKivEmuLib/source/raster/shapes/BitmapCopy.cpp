#include "shapes/BitmapCopy.h"

namespace kivemu {
namespace {

constexpr int64_t Texel = 65536;

/// The texel position of pixel 0's centre.
int64_t start(int32_t offset, Sub16 corner)
{
    return offset + (8 - int64_t{corner}) * (Texel / 16);
}

} // namespace

bool CBitmapCopy::isPossible(const SBitmapPlacement &p)
{
    if (p.a != Texel || p.e != Texel || p.b != 0 || p.d != 0)
        return false;
    const auto onCentres = [](int32_t offset, Sub16 corner) {
        // Less than the filter's smallest step away.
        return ((start(offset, corner) - Texel / 2) & (Texel - 1)) < Texel / 128;
    };
    return p.filter == EBitmapFilter::Nearest ||
           (onCentres(p.c, p.topLeft.x) && onCentres(p.f, p.topLeft.y));
}

CBitmapCopy::CBitmapCopy(const SBitmapImage &image, const SBitmapPlacement &p)
    : m_image(image),
      m_x(axis(p.filter, p.wrapX, p.c, p.topLeft.x, image.width)),
      m_y(axis(p.filter, p.wrapY, p.f, p.topLeft.y, image.height))
{
}

CBitmapCopy::SAxis CBitmapCopy::axis(EBitmapFilter filter, EBitmapWrap wrap, int32_t offset,
                                     Sub16 corner, int side)
{
    // A filtered pixel's centre lies at its texel's centre or just behind it.
    const int64_t origin = filter == EBitmapFilter::Bilinear ? Texel / 2 : 0;
    return {(start(offset, corner) - origin) >> 16, side, wrap};
}

SPixelRange CBitmapCopy::SAxis::reached(SPixelRange range) const
{
    if (wrap == EBitmapWrap::Repeat)
        return range;
    const auto pixelOf = [&](int64_t texel) {
        return static_cast<int>(std::clamp<int64_t>(texel - shift, range.first, range.end));
    };
    if (range.isEmpty())
        return range;
    return {pixelOf(0), pixelOf(side)};
}

int CBitmapCopy::SAxis::texel(int pixel) const
{
    const int64_t texel = pixel + shift;
    if (wrap == EBitmapWrap::Border)
        return static_cast<int>(texel); // of a pixel that is reached
    const int64_t rest = texel % side;
    return static_cast<int>(rest < 0 ? rest + side : rest);
}

} // namespace kivemu
