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

    /// Calls piece(x, y, texels, count) for the stretches of the given pixels that lie side by side
    /// in the bitmap, row by row.
    template<class Piece>
    void eachPiece(SPixelRange columns, SPixelRange lines, Piece piece) const
    {
        const SPixelRange across = m_x.reached(columns);
        const SPixelRange down = m_y.reached(lines);
        if (across.isEmpty() || down.isEmpty())
            return;
        const int firstColumn = m_x.texel(across.first);
        int line = m_y.texel(down.first);
        for (int y = down.first; y < down.end; ++y) {
            const uint32_t *texels = m_image.at(0, line);
            int column = firstColumn;
            for (int x = across.first; x < across.end;) {
                const int count = std::min(m_image.width - column, across.end - x);
                piece(x, y, texels + column, count);
                x += count;
                column = 0;
            }
            if (++line == m_image.height)
                line = 0;
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
