#include "CDrawContext.h"
#include "host/assets/CAssetLoader.h"

#include <algorithm>
#include <cmath>

namespace kivemu {

namespace {

int32_t toFixed(double value)
{
    constexpr double Farthest = 32767;
    return static_cast<int32_t>(std::lround(std::clamp(value, -Farthest, Farthest) * 65536));
}

} // namespace

/// A pixel's texel is found by turning the pixel back about the bitmap's centre and scaling; the
/// rectangle to fill is the turned bitmap's bounding box.
void CDrawContext::bitmap(const SLoadedBitmap &bitmap, const SBitmapDrawing &drawing)
{
    if (drawing.width <= 0 || drawing.height <= 0)
        return;
    flush();
    const CTransform &outer = state().transform;
    const double halfWidth = drawing.width / 2;
    const double halfHeight = drawing.height / 2;
    const SVector centre = outer.map(drawing.x + halfWidth, drawing.y + halfHeight);
    CTransform turn;
    turn.rotate(drawing.angle, 0, 0);
    turn.rotate(outer.degrees(), 0, 0);
    const SVector across = turn.map(1, 0);
    const double boxWidth = std::abs(across.x) * halfWidth + std::abs(across.y) * halfHeight;
    const double boxHeight = std::abs(across.y) * halfWidth + std::abs(across.x) * halfHeight;

    SBitmapPlacement placement;
    placement.filter = drawing.filter;
    placement.wrapX = drawing.wrap;
    placement.wrapY = drawing.wrap;
    placement.topLeft = {toSub16(centre.x - boxWidth), toSub16(centre.y - boxHeight)};
    placement.size = {toSub16(centre.x + boxWidth) - placement.topLeft.x,
                      toSub16(centre.y + boxHeight) - placement.topLeft.y};
    // Repeated, a bitmap keeps its size and starts at the top left of what it fills.
    const bool isRepeated = drawing.wrap == EBitmapWrap::Repeat;
    const double scaleX = isRepeated ? 1 : bitmap.source.width / drawing.width;
    const double scaleY = isRepeated ? 1 : bitmap.source.height / drawing.height;
    const double a = across.x * scaleX;
    const double b = across.y * scaleX;
    const double d = -across.y * scaleY;
    const double e = across.x * scaleY;
    // Offset of the filled rectangle, as rounded, from the bitmap's centre.
    const double fromX = placement.topLeft.x / 16.0 - centre.x;
    const double fromY = placement.topLeft.y / 16.0 - centre.y;
    placement.a = toFixed(a);
    placement.b = toFixed(b);
    placement.c = toFixed(a * fromX + b * fromY + scaleX * halfWidth);
    placement.d = toFixed(d);
    placement.e = toFixed(e);
    placement.f = toFixed(d * fromX + e * fromY + scaleY * halfHeight);
    m_writer.bitmap(bitmap.source, placement);
}

} // namespace kivemu
