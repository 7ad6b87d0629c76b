#pragma once

#include "RasterTypes.h"

#include <memory>
#include <vector>

namespace romfonts {
struct SGlyph;
}

namespace kivemu {

class CSurface;
struct SBitmapImage;
struct SBitmapPlacement;

/// Draws anti-aliased shapes with exact area or distance coverage onto an opaque surface.
/// Every set of kernels gives the same bytes. Shapes are clipped, whatever their coordinates;
/// a shape without an extent (radius, width or line width of 0 or less) draws nothing. A pixel
/// becomes dst + (src - dst) * a, rounded, where a is the coverage times the paint's alpha.
/// Threads: one thread at a time.
class CRasterizer
{
public:
    /// The surface must outlive the rasterizer. The fastest set that the processor has is used
    /// unless one is named (which the processor must have).
    explicit CRasterizer(CSurface &surface);
    CRasterizer(CSurface &surface, EKernelSet kernels);
    ~CRasterizer();

    static bool hasKernels(EKernelSet kernels);

    /// Limits all drawing to a rectangle, itself cut to the surface.
    void setClip(const SClip &clip);
    const SClip &clip() const;
    /// What has been drawn so far, as work: see DrawingWork.h.
    uint64_t work() const;

    void clear(Argb colour);
    void fillDisc(SPoint centre, Sub16 radius, const SPaint &paint);
    /// A line with round ends.
    void drawLine(SPoint from, SPoint to, Sub16 lineWidth, const SPaint &paint);
    /// A rectangle with rounded corners; the radius is cut to half the shorter side.
    void fillRect(SPoint topLeft, SPoint size, Sub16 radius, const SPaint &paint);
    /// The outline of such a rectangle, the stroke's middle on the edge.
    void strokeRect(SPoint topLeft, SPoint size, Sub16 radius, Sub16 lineWidth,
                    const SPaint &paint);
    /// A closed shape filled by the even-odd rule.
    void fillPolygon(const SPoint *points, int count, const SPaint &paint);
    /// A line through all points with round joins and ends, drawn as one shape: where it crosses
    /// itself nothing is blended twice. A single point is a dot.
    void strokePolyline(const SPoint *points, int count, bool closed, Sub16 lineWidth,
                        const SPaint &paint);
    /// A piece of a circle's outline, `sweep` clockwise (negative: counter-clockwise) from `start`;
    /// a sweep of 360 degrees or more is the whole circle, one of 0 with round caps a dot.
    void strokeArc(SPoint centre, Sub16 radius, Angle64 start, Angle64 sweep, Sub16 lineWidth,
                   EArcCaps caps, const SPaint &paint);
    /// A rounded rectangle filled with a linear gradient: `from` at one side, `to` at the other,
    /// along `direction` (0: left to right, 90 degrees: top to bottom).
    void fillGradient(SPoint topLeft, SPoint size, Sub16 radius, Angle64 direction, Argb from,
                      Argb to, bool blend);
    /// One glyph mask, its pen position in whole pixels.
    void drawGlyph(const romfonts::SGlyph &glyph, int penX, int baselineY, const SPaint &paint);
    /// A bitmap; `paint.colour` multiplies every texel (white leaves it as it is). Without blending
    /// texels replace what is there with their own colour, fully transparent ones with black.
    void drawBitmap(const SBitmapImage &image, const SBitmapPlacement &placement,
                    const SPaint &paint);

private:
    struct SState;
    std::unique_ptr<SState> m_state;
};

} // namespace kivemu
