#include "shapes/BitmapCopy.h"
#include "shapes/Shapes.h"
#include "shapes/TexelRows.h"

#include "CSurface.h"

#include <array>
#include <cstring>

namespace kivemu {
namespace {

constexpr Argb White = 0xFFFFFFFFu;
constexpr Argb OpaqueBits = 0xFF000000u;

/// The whole pixels whose centres lie in start .. start + length (in sixteenths).
SPixelRange pixelsWithin(int64_t start, int64_t length, int low, int high)
{
    const auto firstCentre = [&](int64_t from) { // (from - 8) / 16, rounded up
        return static_cast<int>(std::clamp<int64_t>((from + 7) >> 4, low, high));
    };
    return {firstCentre(start), firstCentre(start + length)};
}

uint32_t premultiplied(Argb colour)
{
    const uint32_t alpha = colour >> 24;
    uint32_t r = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8)
        r |= ((colour >> shift & 255) * alpha + 127) / 255 << shift;
    return r;
}

/// The texel's own colour, opaque; nothing is known of the colour of a transparent one.
uint32_t withoutAlpha(uint32_t texel)
{
    const uint32_t alpha = texel >> 24;
    if (alpha == 255 || alpha == 0)
        return texel | OpaqueBits;
    uint32_t r = OpaqueBits;
    for (int shift = 0; shift < 24; shift += 8)
        r |= std::min(((texel >> shift & 255) * 255 + alpha / 2) / alpha, 255u) << shift;
    return r;
}

/// What happens to the texels of a row on their way to the surface.
class CTexelPainter
{
public:
    CTexelPainter(const SCanvas &canvas, const SPaint &paint)
        : m_canvas(canvas),
          m_isBlending(paint.blend),
          m_tint(premultiplied(paint.blend ? paint.colour : paint.colour | OpaqueBits))
    {
    }

    /// Texels need neither tinting nor replacing.
    bool takesThemAsTheyAre() const { return m_isBlending && m_tint == White; }

    /// Texels as they are.
    void draw(uint32_t *pixels, const uint32_t *texels, int count) const
    {
        m_canvas.kernels->overRow(pixels, texels, count);
    }

    /// Changes the texels where it has to.
    void change(uint32_t *texels, int count) const
    {
        if (!m_isBlending)
            std::transform(texels, texels + count, texels, withoutAlpha);
        if (m_tint != White)
            m_canvas.kernels->tintRow(texels, count, m_tint);
    }

private:
    const SCanvas &m_canvas;
    const bool m_isBlending;
    const uint32_t m_tint;
};

// A vector more than the longest row.
using TexelBuffer = std::array<uint32_t, CSurface::MaxSide + 8>;

void copyBitmap(const SCanvas &canvas, const CBitmapCopy &copy, bool isOpaque, SPixelRange columns,
                SPixelRange lines, const CTexelPainter &painter)
{
    if (!painter.takesThemAsTheyAre()) {
        TexelBuffer changed;
        copy.eachPiece(canvas.target, columns, lines,
                       [&](uint32_t *pixels, const uint32_t *texels, int count) {
                           std::copy_n(texels, count, changed.data());
                           painter.change(changed.data(), count);
                           painter.draw(pixels, changed.data(), count);
                       });
    } else if (isOpaque) {
        copy.eachPiece(canvas.target, columns, lines,
                       [&](uint32_t *pixels, const uint32_t *texels, int count) {
                           std::memcpy(pixels, texels, static_cast<size_t>(count) * sizeof *texels);
                       });
    } else {
        copy.eachPiece(canvas.target, columns, lines,
                       [&](uint32_t *pixels, const uint32_t *texels, int count) {
                           painter.draw(pixels, texels, count);
                       });
    }
}

void filterBitmap(const SCanvas &canvas, const CTexelRows &rows, SPixelRange columns,
                  SPixelRange lines, const CTexelPainter &painter)
{
    TexelBuffer texels;
    for (int y = lines.first; y < lines.end; ++y) {
        const STexelRow row = rows.row(y, columns);
        if (row.pixels.isEmpty())
            continue;
        rows.fetch(*canvas.kernels, row, texels.data());
        painter.change(texels.data(), row.pixels.count());
        painter.draw(canvas.target.row(y) + row.pixels.first, texels.data(), row.pixels.count());
    }
}

} // namespace

void drawBitmap(const SCanvas &canvas, const SBitmapImage &image, const SBitmapPlacement &placement,
                const SPaint &paint)
{
    if (image.width <= 0 || image.height <= 0 || placement.size.x <= 0 || placement.size.y <= 0)
        return;
    const SClip &clip = canvas.clip;
    const SPixelRange columns =
        pixelsWithin(placement.topLeft.x, placement.size.x, clip.left, clip.right);
    const SPixelRange lines =
        pixelsWithin(placement.topLeft.y, placement.size.y, clip.top, clip.bottom);
    const CTexelPainter painter(canvas, paint);
    if (CBitmapCopy::isPossible(placement)) {
        copyBitmap(canvas, {image, placement}, image.opaque, columns, lines, painter);
        return;
    }
    const auto edge = paint.blend ? CTexelRows::EEdge::Fading : CTexelRows::EEdge::Sharp;
    filterBitmap(canvas, {image, placement, edge}, columns, lines, painter);
}

} // namespace kivemu
