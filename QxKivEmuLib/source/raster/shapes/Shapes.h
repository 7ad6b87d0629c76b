#pragma once

#include "kernels/Kernels.h"

namespace romfonts {
struct SGlyph;
}

// The shapes of CRasterizer, one file each. They turn any coordinates into runs inside the clip
// rectangle; nothing here depends on the instruction set.

namespace kivemu {

struct SBitmapImage;
struct SBitmapPlacement;
class CCellGrid;
class CMaskGrid;

/// Where a shape goes. The clip lies inside the target and is not empty.
struct SCanvas
{
    STarget target;
    SClip clip;
    const SKernels *kernels;
};

void fillDisc(const SCanvas &canvas, SPoint centre, Sub16 radius, const SInk &ink);
void drawLine(const SCanvas &canvas, SPoint from, SPoint to, Sub16 lineWidth, const SInk &ink);
void fillRect(const SCanvas &canvas, SPoint topLeft, SPoint size, Sub16 radius, const SInk &ink);
void strokeRect(const SCanvas &canvas, SPoint topLeft, SPoint size, Sub16 radius, Sub16 lineWidth,
                const SInk &ink);
void fillPolygon(const SCanvas &canvas, CCellGrid &cells, const SPoint *points, int count,
                 const SInk &ink);
void strokePolyline(const SCanvas &canvas, CMaskGrid &mask, const SPoint *points, int count,
                    bool closed, Sub16 lineWidth, const SInk &ink);
void strokeArc(const SCanvas &canvas, SPoint centre, Sub16 radius, Angle64 start, Angle64 sweep,
               Sub16 lineWidth, EArcCaps caps, const SInk &ink);
void fillGradient(const SCanvas &canvas, SPoint topLeft, SPoint size, Sub16 radius,
                  Angle64 direction, Argb from, Argb to, bool blend);
void drawGlyph(const SCanvas &canvas, const romfonts::SGlyph &glyph, int penX, int baselineY,
               const SInk &ink);
void drawBitmap(const SCanvas &canvas, const SBitmapImage &image, const SBitmapPlacement &placement,
                const SPaint &paint);

} // namespace kivemu
