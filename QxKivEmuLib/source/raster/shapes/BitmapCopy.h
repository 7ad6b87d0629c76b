#pragma once

#include "BitmapImage.h"
#include "kernels/Kernels.h"
#include "shapes/PixelRange.h"

#include <algorithm>

namespace kivemu {

/// A bitmap whose pixels are texels as they are: neither scaled nor turned, nor between two texels.
/// The bitmap must not be empty.
class CBitmapCopy
{
public:
    /// Other placements need a filter.
    static bool isPossible(const SBitmapPlacement &placement);

    CBitmapCopy(const SBitmapImage &image, const SBitmapPlacement &placement);

    /// Calls piece(pixels, texels, count) for the stretches of the given pixels that lie side by
    /// side in the bitmap, row by row.
    template<class Piece>
    void eachPiece(const STarget &target, SPixelRange columns, SPixelRange lines, Piece piece) const
    {
        const SPixelRange across = m_x.reached(columns);
        const SPixelRange down = m_y.reached(lines);
        if (across.isEmpty() || down.isEmpty())
            return;
        const int width = across.count();
        const int column = m_x.texel(across.first);
        const int room = m_image.width - column; // up to where the bitmap is repeated
        int line = m_y.texel(down.first);
        uint32_t *pixels = target.row(down.first) + across.first;
        const uint32_t *texels = m_image.at(0, line);
        for (int left = down.count(); left > 0; --left) {
            piece(pixels, texels + column, std::min(room, width));
            for (int x = room; x < width; x += m_image.width)
                piece(pixels + x, texels, std::min(m_image.width, width - x));
            pixels += target.stride;
            texels += m_image.stride;
            if (++line == m_image.height) {
                line = 0;
                texels = m_image.at(0, 0);
            }
        }
    }

private:
    /// One direction: the texel of a pixel is the pixel's number plus `shift`.
    struct SAxis
    {
        int64_t shift;
        int side;
        EBitmapWrap wrap;

        /// The pixels of the range that the bitmap reaches.
        SPixelRange reached(SPixelRange range) const;
        int texel(int pixel) const;
    };
    static SAxis axis(EBitmapFilter filter, EBitmapWrap wrap, int32_t offset, Sub16 corner,
                      int side);

    const SBitmapImage &m_image;
    const SAxis m_x;
    const SAxis m_y;
};

} // namespace kivemu
