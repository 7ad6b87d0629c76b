#include "CRasterizer.h"

#include "BitmapImage.h"
#include "CSurface.h"
#include "DrawingWork.h"
#include "RomFonts.h"
#include "kernels/Kernels.h"
#include "shapes/Shapes.h"
#include "shapes/TouchedGrids.h"

#include <algorithm>

namespace kivemu {
namespace {

constexpr Argb OpaqueBits = 0xFF000000u;
constexpr int GradientWeight = 2;
constexpr int BitmapWeight = 4;

using drawingwork::SBox;

SBox boxOf(const romfonts::SGlyph &glyph, int penX, int baselineY)
{
    constexpr double Pixel = 16;
    const double left = static_cast<double>(penX) + glyph.left;
    const double top = static_cast<double>(baselineY) - glyph.top;
    return {left * Pixel, top * Pixel, (left + glyph.width) * Pixel, (top + glyph.height) * Pixel};
}

SInk inkOf(const SPaint &paint)
{
    return {paint.colour | OpaqueBits, paint.blend ? static_cast<int>(paint.colour >> 24) : 255};
}

} // namespace

struct CRasterizer::SState
{
    SClip surface{};
    SCanvas canvas{};
    CCellGrid cells;
    CMaskGrid mask;
    uint64_t work = 0;

    bool canDraw(const SInk &ink) const { return ink.alpha > 0 && hasArea(); }
    bool hasArea() const
    {
        return canvas.clip.left < canvas.clip.right && canvas.clip.top < canvas.clip.bottom;
    }
};

CRasterizer::CRasterizer(CSurface &surface) : CRasterizer(surface, bestKernelSet())
{
}

CRasterizer::CRasterizer(CSurface &surface, EKernelSet kernels) : m_state(new SState)
{
    m_state->surface = {0, 0, surface.width(), surface.height()};
    m_state->canvas = {{surface.row(0), static_cast<size_t>(surface.stride())},
                       m_state->surface,
                       &kernelSet(kernels)};
}

CRasterizer::~CRasterizer() = default;

bool CRasterizer::hasKernels(EKernelSet kernels)
{
    return hasKernelSet(kernels);
}

void CRasterizer::setClip(const SClip &clip)
{
    const SClip &all = m_state->surface;
    m_state->canvas.clip = {
        std::clamp(clip.left, 0, all.right), std::clamp(clip.top, 0, all.bottom),
        std::clamp(clip.right, 0, all.right), std::clamp(clip.bottom, 0, all.bottom)};
}

const SClip &CRasterizer::clip() const
{
    return m_state->canvas.clip;
}

uint64_t CRasterizer::work() const
{
    return m_state->work;
}

void CRasterizer::clear(Argb colour)
{
    if (!m_state->hasArea())
        return;
    const SCanvas &canvas = m_state->canvas;
    const SClip &clip = canvas.clip;
    const SInk ink{colour | OpaqueBits, 255};
    m_state->work += static_cast<uint64_t>(clip.right - clip.left) *
                     static_cast<uint64_t>(clip.bottom - clip.top);
    for (int y = clip.top; y < clip.bottom; ++y) {
        const SRun run{y, clip.left, clip.right - clip.left};
        canvas.kernels->fillRuns(canvas.target, &run, 1, ink);
    }
}

void CRasterizer::fillDisc(SPoint centre, Sub16 radius, const SPaint &paint)
{
    const SInk ink = inkOf(paint);
    if (radius > 0 && m_state->canDraw(ink)) {
        m_state->work += drawingwork::ofBox(m_state->canvas.clip, SBox::about(centre, radius));
        kivemu::fillDisc(m_state->canvas, centre, radius, ink);
    }
}

void CRasterizer::drawLine(SPoint from, SPoint to, Sub16 lineWidth, const SPaint &paint)
{
    const SInk ink = inkOf(paint);
    if (lineWidth > 0 && m_state->canDraw(ink)) {
        m_state->work += drawingwork::ofLine(m_state->canvas.clip, from, to, lineWidth);
        kivemu::drawLine(m_state->canvas, from, to, lineWidth, ink);
    }
}

void CRasterizer::fillRect(SPoint topLeft, SPoint size, Sub16 radius, const SPaint &paint)
{
    const SInk ink = inkOf(paint);
    if (m_state->canDraw(ink)) {
        m_state->work += drawingwork::ofBox(m_state->canvas.clip, SBox::of(topLeft, size));
        kivemu::fillRect(m_state->canvas, topLeft, size, radius, ink);
    }
}

void CRasterizer::strokeRect(SPoint topLeft, SPoint size, Sub16 radius, Sub16 lineWidth,
                             const SPaint &paint)
{
    const SInk ink = inkOf(paint);
    if (lineWidth > 0 && m_state->canDraw(ink)) {
        m_state->work += drawingwork::ofStroke(m_state->canvas.clip, SBox::of(topLeft, size),
                                               2.0 * size.x + 2.0 * size.y, lineWidth);
        kivemu::strokeRect(m_state->canvas, topLeft, size, radius, lineWidth, ink);
    }
}

void CRasterizer::fillPolygon(const SPoint *points, int count, const SPaint &paint)
{
    const SInk ink = inkOf(paint);
    if (count > 2 && m_state->canDraw(ink)) {
        m_state->work += drawingwork::ofPolygon(m_state->canvas.clip, points, count);
        kivemu::fillPolygon(m_state->canvas, m_state->cells, points, count, ink);
    }
}

void CRasterizer::strokePolyline(const SPoint *points, int count, bool closed, Sub16 lineWidth,
                                 const SPaint &paint)
{
    const SInk ink = inkOf(paint);
    if (count > 0 && lineWidth > 0 && m_state->canDraw(ink)) {
        m_state->work +=
            drawingwork::ofPolyline(m_state->canvas.clip, points, count, closed, lineWidth);
        kivemu::strokePolyline(m_state->canvas, m_state->mask, points, count, closed, lineWidth,
                               ink);
    }
}

void CRasterizer::strokeArc(SPoint centre, Sub16 radius, Angle64 start, Angle64 sweep,
                            Sub16 lineWidth, EArcCaps caps, const SPaint &paint)
{
    const SInk ink = inkOf(paint);
    if (radius > 0 && lineWidth > 0 && m_state->canDraw(ink)) {
        m_state->work += drawingwork::ofStroke(m_state->canvas.clip, SBox::about(centre, radius),
                                               6.3 * radius, lineWidth);
        kivemu::strokeArc(m_state->canvas, centre, radius, start, sweep, lineWidth, caps, ink);
    }
}

void CRasterizer::fillGradient(SPoint topLeft, SPoint size, Sub16 radius, Angle64 direction,
                               Argb from, Argb to, bool blend)
{
    if (m_state->hasArea()) {
        m_state->work +=
            drawingwork::ofBox(m_state->canvas.clip, SBox::of(topLeft, size), GradientWeight);
        kivemu::fillGradient(m_state->canvas, topLeft, size, radius, direction, from, to, blend);
    }
}

void CRasterizer::drawGlyph(const romfonts::SGlyph &glyph, int penX, int baselineY,
                            const SPaint &paint)
{
    const SInk ink = inkOf(paint);
    if (m_state->canDraw(ink)) {
        m_state->work += drawingwork::ofBox(m_state->canvas.clip, boxOf(glyph, penX, baselineY));
        kivemu::drawGlyph(m_state->canvas, glyph, penX, baselineY, ink);
    }
}

void CRasterizer::drawBitmap(const SBitmapImage &image, const SBitmapPlacement &placement,
                             const SPaint &paint)
{
    if (m_state->canDraw(inkOf(paint))) {
        m_state->work += drawingwork::ofBox(
            m_state->canvas.clip, SBox::of(placement.topLeft, placement.size), BitmapWeight);
        kivemu::drawBitmap(m_state->canvas, image, placement, paint);
    }
}

} // namespace kivemu
