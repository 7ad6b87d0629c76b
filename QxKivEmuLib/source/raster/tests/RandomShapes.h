#pragma once

#include "RasterTestSupport.h"
#include "RomFonts.h"

#include <array>
#include <limits>
#include <vector>

namespace rastertest {

/// Draws shapes of all kinds with any arguments: most near the surface, some as far away as
/// numbers go. The same seed draws the same shapes on every rasterizer.
class CRandomShapes
{
public:
    CRandomShapes(uint32_t seed, int width, int height)
        : m_numbers(seed),
          m_width(width),
          m_height(height),
          m_mask(GlyphStride * GlyphHeight),
          m_image(m_numbers.between(1, 40), m_numbers.between(1, 40))
    {
        for (int y = 0; y < GlyphHeight; ++y)
            for (int x = 0; x < GlyphWidth; ++x)
                m_mask[static_cast<size_t>(y * GlyphStride + x)] =
                    static_cast<uint8_t>(m_numbers.bits() >> 13);
        m_image.opaque = m_numbers.oneIn(3);
        fillWithNoise(m_image, m_numbers);
    }

    /// A shape, or another clip for the shapes to come.
    void draw(CRasterizer &raster) { m_numbers.oneIn(12) ? drawClip(raster) : drawShape(raster); }

    void drawShape(CRasterizer &raster)
    {
        const SPaint ink = paint();
        const int kind = m_numbers.between(1, 11);
        switch (kind) {
        case 1:
            return raster.fillDisc(point(), length(), ink);
        case 2: {
            const auto ends = points(2);
            return raster.drawLine(ends[0], ends[1], length(), ink);
        }
        case 3: {
            const SPoint topLeft = point();
            const SPoint extent = size();
            return raster.fillRect(topLeft, extent, length(), ink);
        }
        case 4: {
            const SPoint topLeft = point();
            const SPoint extent = size();
            const Sub16 radius = length();
            return raster.strokeRect(topLeft, extent, radius, length(), ink);
        }
        case 5: {
            const auto list = points(m_numbers.between(0, 12));
            return raster.fillPolygon(list.data(), static_cast<int>(list.size()), ink);
        }
        case 6: {
            const auto list = points(m_numbers.between(0, 8));
            const bool isClosed = m_numbers.oneIn(2);
            return raster.strokePolyline(list.data(), static_cast<int>(list.size()), isClosed,
                                         length(), ink);
        }
        case 7:
        case 8: {
            const SPoint centre = point();
            const Sub16 radius = length();
            const auto start = static_cast<Angle64>(m_numbers.bits());
            const Angle64 sweep = m_numbers.oneIn(8) ? static_cast<Angle64>(m_numbers.bits())
                                                     : m_numbers.between(-24000, 24000);
            return raster.strokeArc(centre, radius, start, sweep, length(),
                                    kind == 7 ? EArcCaps::Round : EArcCaps::Butt, ink);
        }
        case 9: {
            const SPoint topLeft = point();
            const SPoint extent = size();
            const Sub16 radius = m_numbers.oneIn(2) ? 0 : length();
            const Angle64 direction = m_numbers.oneIn(2) ? m_numbers.between(-4, 4) * 90 * 64
                                                         : static_cast<Angle64>(m_numbers.bits());
            return raster.fillGradient(topLeft, extent, radius, direction, ink.colour, colour(),
                                       ink.blend);
        }
        case 10:
            return drawGlyph(raster);
        default:
            return drawBitmap(raster);
        }
    }

private:
    static constexpr int Lowest = std::numeric_limits<int32_t>::min();
    static constexpr int Highest = std::numeric_limits<int32_t>::max();
    static constexpr int GlyphWidth = 21;
    static constexpr int GlyphHeight = 17;
    static constexpr int GlyphStride = 24;

    SPoint point() { return {coordinate(m_width), coordinate(m_height)}; }
    SPoint size() { return {length(), length()}; }
    Sub16 coordinate(int side)
    {
        static constexpr std::array<int, 5> extremes = {Lowest, Lowest + 1, Highest, Highest - 7,
                                                        0};
        if (m_numbers.oneIn(24))
            return extremes[m_numbers.bits() % extremes.size()];
        if (m_numbers.oneIn(24))
            return static_cast<Sub16>(m_numbers.bits());
        const int pixels = m_numbers.between(-20, side + 20);
        return m_numbers.oneIn(2) ? pixels * 16 : pixels * 16 + m_numbers.between(0, 15);
    }

    Sub16 length()
    {
        if (m_numbers.oneIn(24))
            return m_numbers.oneIn(2) ? Highest : static_cast<Sub16>(m_numbers.bits());
        return m_numbers.oneIn(3) ? m_numbers.between(0, 64) : m_numbers.between(0, 1600);
    }

    std::vector<SPoint> points(int count)
    {
        std::vector<SPoint> list;
        for (int i = 0; i < count; ++i)
            list.push_back(point());
        return list;
    }

    Argb colour() { return m_numbers.oneIn(2) ? m_numbers.bits() | Black : m_numbers.bits(); }

    SPaint paint() { return {colour(), !m_numbers.oneIn(6)}; }

    int32_t factor()
    {
        if (m_numbers.oneIn(16))
            return static_cast<int32_t>(m_numbers.bits());
        return m_numbers.oneIn(4) ? 0 : m_numbers.between(-200000, 200000);
    }

    void drawClip(CRasterizer &raster)
    {
        if (m_numbers.oneIn(3))
            raster.setClip({Lowest, Lowest, Highest, Highest});
        else
            raster.setClip({m_numbers.between(-9, m_width), m_numbers.between(-9, m_height),
                            m_numbers.between(0, m_width + 9), m_numbers.between(0, m_height + 9)});
    }

    void drawGlyph(CRasterizer &raster)
    {
        const romfonts::SGlyph glyph{
            m_mask.data(), GlyphWidth, GlyphHeight, GlyphStride, -2, 14, 0};
        const bool isFar = m_numbers.oneIn(12);
        raster.drawGlyph(glyph, isFar ? Highest : m_numbers.between(-25, m_width + 5),
                         isFar ? Lowest : m_numbers.between(-5, m_height + 20), paint());
    }

    void drawBitmap(CRasterizer &raster)
    {
        SBitmapPlacement placement;
        placement.topLeft = point();
        placement.size = size();
        if (!m_numbers.oneIn(3)) {
            for (int32_t *each : {&placement.a, &placement.b, &placement.d, &placement.e,
                                  &placement.c, &placement.f})
                *each = factor();
        }
        const auto wrap = [this] {
            return m_numbers.oneIn(2) ? EBitmapWrap::Border : EBitmapWrap::Repeat;
        };
        placement.filter = m_numbers.oneIn(2) ? EBitmapFilter::Nearest : EBitmapFilter::Bilinear;
        placement.wrapX = wrap();
        placement.wrapY = wrap();
        const SPaint tint = paint();
        raster.drawBitmap(m_image, placement, m_numbers.oneIn(2) ? SPaint{White} : tint);
    }

    CNumbers m_numbers;
    int m_width;
    int m_height;
    std::vector<uint8_t> m_mask;
    SBitmapImage m_image;
};

} // namespace rastertest
