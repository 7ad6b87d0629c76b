#pragma once

#include "kernels/Kernels.h"
#include "shapes/PixelRange.h"

#include "BitmapImage.h"

#include <algorithm>

namespace kivemu {

/// Where the texels of a row of pixels lie: (u, v) for the first pixel, in 1/65536 texel.
struct STexelRow
{
    SPixelRange pixels;
    int64_t u;
    int64_t v;
};

/// Looks up the texels of a placed bitmap, row by row. The bitmap must not be empty.
class CTexelRows
{
public:
    /// Which pixels count as being on the bitmap, at its edges: for Fading also those that only
    /// bilinear filtering lets fade out.
    enum class EEdge { Fading, Sharp };

    CTexelRows(const SBitmapImage &image, const SBitmapPlacement &placement, EEdge edge);

    /// Of the pixels `range` of row `y`, those that the bitmap reaches.
    STexelRow row(int y, SPixelRange range) const;

    /// Neither scaled nor turned, nor between two texels: pixels are texels as they are.
    static bool isCopy(const SBitmapPlacement &placement);
    /// Calls piece(x, texels, count) for the stretches of a row of a copy, made with sharp edges,
    /// that lie side by side in the bitmap.
    template<class Piece>
    void eachCopiedPiece(const STexelRow &row, Piece piece) const
    {
        const bool repeats = m_placement.wrapX == EBitmapWrap::Repeat;
        const int line = wrapped(row.v, m_placement.wrapY, m_image.height);
        int column = wrapped(row.u, m_placement.wrapX, m_image.width);
        for (int x = row.pixels.first; x < row.pixels.end;) {
            const int room = repeats ? m_image.width - column : row.pixels.end - x;
            const int count = std::min(room, row.pixels.end - x);
            piece(x, m_image.at(column, line), count);
            x += count;
            column = 0;
        }
    }

    /// Writes the row's texels, premultiplied.
    void fetch(const SKernels &kernels, const STexelRow &row, uint32_t *texels) const;

private:
    static int wrapped(int64_t position, EBitmapWrap wrap, int side);
    bool isBilinear() const { return m_placement.filter == EBitmapFilter::Bilinear; }
    void fetchNearest(const STexelRow &row, uint32_t *texels) const;
    void fetchWrapped(const STexelRow &row, uint32_t *texels) const;

    const SBitmapImage &m_image;
    const SBitmapPlacement &m_placement;
    const EEdge m_edge;
};

} // namespace kivemu
