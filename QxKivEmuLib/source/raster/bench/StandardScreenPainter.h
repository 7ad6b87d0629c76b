#pragma once

#include "StandardScreen.h"
#include "raster/BitmapImage.h"
#include "raster/CRasterizer.h"

#include <vector>

namespace romfonts {
struct SGlyph;
}

namespace bench {

/// Draws the standard screen with the rasterizer, everything that a display list would hold already
/// prepared: coordinates in sixteenths, bitmaps decoded, texts as glyphs.
class CStandardScreenPainter
{
public:
    explicit CStandardScreenPainter(const SStandardScreen &screen);

    void draw(kivemu::CRasterizer &rasterizer, ESection section) const;
    void drawAll(kivemu::CRasterizer &rasterizer) const;

private:
    struct SPlacedGlyph
    {
        const romfonts::SGlyph *glyph;
        int x;
        int y;
        uint32_t colour;
    };

    void prepareLabels();
    void prepareBitmaps();

    void drawBackground(kivemu::CRasterizer &rasterizer) const;
    void drawPolygons(kivemu::CRasterizer &rasterizer) const;
    void drawBoxes(kivemu::CRasterizer &rasterizer, const std::vector<SRoundedBox> &boxes) const;
    void drawGauges(kivemu::CRasterizer &rasterizer) const;
    void drawPlot(kivemu::CRasterizer &rasterizer) const;
    void drawDots(kivemu::CRasterizer &rasterizer) const;
    void drawPictures(kivemu::CRasterizer &rasterizer) const;
    void drawTurnedPictures(kivemu::CRasterizer &rasterizer) const;
    void drawLabels(kivemu::CRasterizer &rasterizer) const;
    void drawOverlays(kivemu::CRasterizer &rasterizer) const;

    const SStandardScreen &m_screen;
    std::vector<std::vector<kivemu::SPoint>> m_polygons;
    std::vector<kivemu::SPoint> m_plot;
    std::vector<kivemu::SBitmapImage> m_bitmaps;
    std::vector<kivemu::SBitmapPlacement> m_placed;
    std::vector<kivemu::SBitmapPlacement> m_turned;
    std::vector<SPlacedGlyph> m_glyphs;
};

} // namespace bench
