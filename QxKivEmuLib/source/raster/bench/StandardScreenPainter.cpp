#include "StandardScreenPainter.h"

#include "RomFonts.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace bench {
namespace {

using namespace kivemu;

Sub16 sub16(double pixels)
{
    return static_cast<Sub16>(std::lround(pixels * 16));
}

SPoint point(double x, double y)
{
    return {sub16(x), sub16(y)};
}

std::vector<SPoint> points(const std::vector<SPointF> &list)
{
    std::vector<SPoint> result;
    for (const SPointF &p : list)
        result.push_back(point(p.x, p.y));
    return result;
}

/// The regular font whose em square comes nearest.
int fontOfSize(int emSize)
{
    constexpr int FirstRegular = 26;
    int best = FirstRegular;
    for (int font = FirstRegular; font <= romfonts::LastFont; ++font)
        if (std::abs(romfonts::emSize(font) - emSize) < std::abs(romfonts::emSize(best) - emSize))
            best = font;
    return best;
}

SBitmapImage image(const SPicture &picture)
{
    SBitmapImage result(picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            *result.at(x, y) = picture.pixels[static_cast<size_t>(y * picture.width + x)];
    return result;
}

/// The rectangle that a turned bitmap reaches, with the transform from there back to its texels.
SBitmapPlacement turned(const STurnedPicture &t, const SPicture &picture)
{
    constexpr double Degree = 3.14159265358979323846 / 180;
    const double c = std::cos(t.angle * Degree);
    const double s = std::sin(t.angle * Degree);
    const double halfWidth = picture.width * t.scale / 2;
    const double halfHeight = picture.height * t.scale / 2;
    const double reachX = std::fabs(c) * halfWidth + std::fabs(s) * halfHeight + t.scale;
    const double reachY = std::fabs(s) * halfWidth + std::fabs(c) * halfHeight + t.scale;
    const auto fixed = [](double value) {
        return static_cast<int32_t>(std::lround(value * 65536));
    };

    SBitmapPlacement placement;
    placement.topLeft = point(t.centre.x - reachX, t.centre.y - reachY);
    placement.size = point(2 * reachX, 2 * reachY);
    placement.a = fixed(c / t.scale);
    placement.b = fixed(s / t.scale);
    placement.d = fixed(-s / t.scale);
    placement.e = fixed(c / t.scale);
    placement.c = fixed(picture.width / 2.0 - (c * reachX + s * reachY) / t.scale);
    placement.f = fixed(picture.height / 2.0 - (c * reachY - s * reachX) / t.scale);
    placement.filter = EBitmapFilter::Bilinear;
    return placement;
}

} // namespace

CStandardScreenPainter::CStandardScreenPainter(const SStandardScreen &screen)
    : m_screen(screen), m_plot(points(screen.plot))
{
    for (const SFilledPolygon &polygon : screen.polygons)
        m_polygons.push_back(points(polygon.points));
    prepareBitmaps();
    prepareLabels();
}

void CStandardScreenPainter::prepareBitmaps()
{
    for (const SPicture &picture : m_screen.pictures)
        m_bitmaps.push_back(image(picture));
    for (const SPlacedPicture &p : m_screen.placed) {
        SBitmapPlacement placement;
        placement.topLeft = {p.x * 16, p.y * 16};
        placement.size = {m_screen.pictures[p.picture].width * 16,
                          m_screen.pictures[p.picture].height * 16};
        m_placed.push_back(placement);
    }
    for (const STurnedPicture &t : m_screen.turned)
        m_turned.push_back(turned(t, m_screen.pictures[t.picture]));
}

void CStandardScreenPainter::prepareLabels()
{
    for (const SLabel &label : m_screen.labels) {
        const int font = fontOfSize(label.emSize);
        int pen16 = label.x * 16;
        for (const char character : label.text) {
            const auto *glyph = romfonts::glyph(font, static_cast<uint8_t>(character));
            m_glyphs.push_back({glyph, (pen16 + 8) >> 4, label.baseline, label.colour});
            pen16 += glyph->advance16;
        }
    }
}

void CStandardScreenPainter::draw(CRasterizer &rasterizer, ESection section) const
{
    switch (section) {
    case ESection::Background:
        return drawBackground(rasterizer);
    case ESection::Polygons:
        return drawPolygons(rasterizer);
    case ESection::Bars:
        return drawBoxes(rasterizer, m_screen.bars);
    case ESection::Buttons:
        return drawBoxes(rasterizer, m_screen.buttons);
    case ESection::Gauges:
        return drawGauges(rasterizer);
    case ESection::Plot:
        return drawPlot(rasterizer);
    case ESection::Dots:
        return drawDots(rasterizer);
    case ESection::Pictures:
        return drawPictures(rasterizer);
    case ESection::TurnedPictures:
        return drawTurnedPictures(rasterizer);
    case ESection::Labels:
        return drawLabels(rasterizer);
    case ESection::Overlays:
        return drawOverlays(rasterizer);
    }
}

void CStandardScreenPainter::drawAll(CRasterizer &rasterizer) const
{
    for (int section = 0; section < SectionCount; ++section)
        draw(rasterizer, static_cast<ESection>(section));
}

void CStandardScreenPainter::drawBackground(CRasterizer &rasterizer) const
{
    constexpr Angle64 TopToBottom = 90 * 64;
    rasterizer.clear(m_screen.background);
    for (const SVerticalGradient &g : m_screen.gradients)
        rasterizer.fillGradient(point(g.x, g.y), point(g.width, g.height), 0, TopToBottom, g.top,
                                g.bottom, true);
}

void CStandardScreenPainter::drawPolygons(CRasterizer &rasterizer) const
{
    for (size_t i = 0; i < m_polygons.size(); ++i)
        rasterizer.fillPolygon(m_polygons[i].data(), static_cast<int>(m_polygons[i].size()),
                               {m_screen.polygons[i].colour});
}

void CStandardScreenPainter::drawBoxes(CRasterizer &rasterizer,
                                       const std::vector<SRoundedBox> &boxes) const
{
    for (const SRoundedBox &box : boxes) {
        const SPoint topLeft = point(box.x, box.y);
        const SPoint size = point(box.width, box.height);
        rasterizer.fillRect(topLeft, size, sub16(box.radius), {box.fill});
        if (box.borderWidth > 0)
            rasterizer.strokeRect(topLeft, size, sub16(box.radius), sub16(box.borderWidth),
                                  {box.border});
    }
}

void CStandardScreenPainter::drawGauges(CRasterizer &rasterizer) const
{
    for (const SLinePiece &line : m_screen.gauges)
        rasterizer.drawLine(point(line.from.x, line.from.y), point(line.to.x, line.to.y),
                            sub16(line.width), {line.colour});
}

void CStandardScreenPainter::drawPlot(CRasterizer &rasterizer) const
{
    rasterizer.strokePolyline(m_plot.data(), static_cast<int>(m_plot.size()), false,
                              sub16(m_screen.plotWidth), {m_screen.plotColour});
}

void CStandardScreenPainter::drawDots(CRasterizer &rasterizer) const
{
    for (const SDot &dot : m_screen.dots)
        rasterizer.fillDisc(point(dot.x, dot.y), sub16(dot.radius), {dot.colour});
}

void CStandardScreenPainter::drawPictures(CRasterizer &rasterizer) const
{
    for (size_t i = 0; i < m_placed.size(); ++i)
        rasterizer.drawBitmap(m_bitmaps[m_screen.placed[i].picture], m_placed[i], {0xFFFFFFFFu});
}

void CStandardScreenPainter::drawTurnedPictures(CRasterizer &rasterizer) const
{
    for (size_t i = 0; i < m_turned.size(); ++i)
        rasterizer.drawBitmap(m_bitmaps[m_screen.turned[i].picture], m_turned[i], {0xFFFFFFFFu});
}

void CStandardScreenPainter::drawLabels(CRasterizer &rasterizer) const
{
    for (const SPlacedGlyph &g : m_glyphs)
        rasterizer.drawGlyph(*g.glyph, g.x, g.y, {g.colour});
}

void CStandardScreenPainter::drawOverlays(CRasterizer &rasterizer) const
{
    for (const SOverlay &o : m_screen.overlays)
        rasterizer.fillRect({o.x * 16, o.y * 16}, {o.width * 16, o.height * 16}, 0, {o.colour});
}

} // namespace bench
