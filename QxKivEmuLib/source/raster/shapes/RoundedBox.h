#pragma once

#include "shapes/CRunBatch.h"

#include <optional>

namespace kivemu {

/// A rectangle with rounded corners, in pixels.
struct SRoundedBox
{
    double left;
    double top;
    double right;
    double bottom;
    double radius; ///< at most half of the shorter side

    /// Cut to the neighbourhood of the clip as far as that changes nothing inside the clip, so
    /// that single precision is enough for what is left. Nothing for a box without an extent or
    /// outside of the clip. `grow` is the half width of a stroke that will be laid along it.
    static std::optional<SRoundedBox> create(SPoint topLeft, SPoint size, Sub16 radius,
                                             const SClip &clip, double grow);

    /// The parallel outline, outwards or (negative) inwards; sharp corners stay sharp.
    SRoundedBox grown(double by) const;
    bool isEmpty() const { return left >= right || top >= bottom; }
    /// Corners rounder than that are drawn by distance; below, the loss in the corner's pixel is
    /// hardly visible.
    bool isRound() const { return radius >= 0.5; }
    double centreX() const { return (left + right) / 2; }
    double centreY() const { return (top + bottom) / 2; }
};

/// The same for the kernels, seen from the centre.
SBoxCoverage boxCoverage(const SRoundedBox &box);

/// One row of a filled box: between the two edges lies a run of one coverage.
struct SBoxRow
{
    SPixelRange left;
    SPixelRange middle;
    SPixelRange right;
    float share; ///< of the middle's pixels, 0 .. 1
};

/// The rows of a filled box inside a clip.
class CBoxRows
{
public:
    CBoxRows(const SRoundedBox &box, const SClip &clip);

    SPixelRange rows() const { return m_rows; }
    /// Those without corners and of full height, which are all alike; may be empty.
    SPixelRange straightRows() const { return m_straight; }
    SBoxRow row(int y) const;

private:
    const SRoundedBox m_box;
    const CPixelLimits m_columns;
    SPixelRange m_rows;
    SPixelRange m_straight;
};

/// A coverage as the kernels turn it into an alpha.
inline int alphaOf(float share, int full)
{
    const float cut = share < 0 ? 0 : share > 1 ? 1 : share;
    return static_cast<int>(cut * static_cast<float>(full) + 0.5f);
}

} // namespace kivemu
