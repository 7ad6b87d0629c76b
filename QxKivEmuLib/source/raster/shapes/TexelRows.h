#pragma once

#include "kernels/Kernels.h"
#include "shapes/PixelRange.h"

#include "BitmapImage.h"

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

    /// Writes the row's texels, premultiplied.
    void fetch(const SKernels &kernels, const STexelRow &row, uint32_t *texels) const;

private:
    bool isBilinear() const { return m_placement.filter == EBitmapFilter::Bilinear; }
    void fetchNearest(const STexelRow &row, uint32_t *texels) const;
    void fetchWrapped(const STexelRow &row, uint32_t *texels) const;

    const SBitmapImage &m_image;
    const SBitmapPlacement &m_placement;
    const EEdge m_edge;
};

} // namespace kivemu
