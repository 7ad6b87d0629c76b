#pragma once

#include "RasterTestSupport.h"
#include "raster/BitmapImage.h"

#include <array>
#include <vector>

namespace rastertest {

/// Draws shapes of all kinds with any arguments: most near the surface, some as far away as
/// numbers go. The same seed draws the same shapes on every rasterizer.
class CRandomShapes
{
public:
    CRandomShapes(uint32_t seed, int width, int height);

    /// A shape, or another clip for the shapes to come.
    void draw(CRasterizer &raster);
    void drawShape(CRasterizer &raster);

private:
    Sub16 coordinate(int side);
    Sub16 length();
    SPoint point() { return {coordinate(m_width), coordinate(m_height)}; }
    SPoint size() { return {length(), length()}; }
    std::vector<SPoint> points(int count);
    SPaint paint();
    Argb colour();
    int32_t factor();

    void drawClip(CRasterizer &raster);
    void drawGlyph(CRasterizer &raster);
    void drawBitmap(CRasterizer &raster);

    CNumbers m_numbers;
    int m_width;
    int m_height;
    std::vector<uint8_t> m_mask;
    SBitmapImage m_image;
};

} // namespace rastertest
