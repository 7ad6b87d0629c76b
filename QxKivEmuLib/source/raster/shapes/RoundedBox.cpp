#include "shapes/RoundedBox.h"

#include <algorithm>
#include <cmath>

namespace kivemu {
namespace {

// As the reach of a corner: never the smaller of two.
constexpr float Unlimited = 1e9f;

/// How much of the pixel at `y` lies between low and high.
float overlap(int y, double low, double high)
{
    const double length = std::min(y + 1.0, high) - std::max<double>(y, low);
    return length > 0 ? static_cast<float>(length) : 0;
}

double halfChord(double radius, double distance)
{
    return std::sqrt(std::max(0.0, radius * radius - distance * distance));
}

/// Left edge, middle and right edge of the pixels in `all`, when the pixels of `middle` are alike.
SBoxRow splitRow(const SPixelRange &all, const SPixelRange &middle, float share)
{
    if (middle.isEmpty())
        return {all, {all.end, all.end}, {all.end, all.end}, share};
    return {{all.first, middle.first}, middle, {middle.end, all.end}, share};
}

} // namespace

std::optional<SRoundedBox> SRoundedBox::create(SPoint topLeft, SPoint size, Sub16 radius,
                                               const SClip &clip, double grow)
{
    if (size.x <= 0 || size.y <= 0)
        return std::nullopt;
    const double half = toPixels(std::min(size.x, size.y)) / 2;
    const double r = std::clamp(toPixels(radius), 0.0, half);
    SRoundedBox box{toPixels(topLeft.x), toPixels(topLeft.y), toPixels(int64_t{topLeft.x} + size.x),
                    toPixels(int64_t{topLeft.y} + size.y), r};
    if (box.right + grow <= clip.left || box.left - grow >= clip.right ||
        box.bottom + grow <= clip.top || box.top - grow >= clip.bottom)
        return std::nullopt;
    // Far enough away for both corners and their strokes to stay outside of the clip.
    const double margin = 2 * (r + grow) + 4;
    box.left = std::max(box.left, clip.left - margin);
    box.top = std::max(box.top, clip.top - margin);
    box.right = std::min(box.right, clip.right + margin);
    box.bottom = std::min(box.bottom, clip.bottom + margin);
    return box;
}

SRoundedBox SRoundedBox::grown(double by) const
{
    return {left - by, top - by, right + by, bottom + by,
            radius > 0 ? std::max(0.0, radius + by) : 0};
}

SBoxCoverage boxCoverage(const SRoundedBox &box)
{
    const double halfWidth = (box.right - box.left) / 2;
    const double halfHeight = (box.bottom - box.top) / 2;
    return {static_cast<float>(halfWidth), static_cast<float>(halfHeight),
            static_cast<float>(halfWidth - box.radius), static_cast<float>(halfHeight - box.radius),
            box.isRound() ? static_cast<float>(box.radius + 0.5) : Unlimited};
}

CBoxRows::CBoxRows(const SRoundedBox &box, const SClip &clip)
    : m_box(box), m_columns(columnsOf(clip)), m_rows(rowsOf(clip).touched(box.top, box.bottom))
{
    const double r = box.isRound() ? box.radius : 0;
    const SPixelRange besideCorners = rowsOf(clip).centred(box.top + r, box.bottom - r);
    const SPixelRange covered = rowsOf(clip).covered(box.top, box.bottom);
    m_straight = {std::max(besideCorners.first, covered.first),
                  std::min(besideCorners.end, covered.end)};
}

SBoxRow CBoxRows::row(int y) const
{
    const double r = m_box.radius;
    const float share = overlap(y, m_box.top, m_box.bottom);
    const double beyond = std::max(m_box.top + r - (y + 0.5), (y + 0.5) - (m_box.bottom - r));
    if (!m_box.isRound() || beyond <= 0)
        return splitRow(m_columns.touched(m_box.left, m_box.right),
                        m_columns.covered(m_box.left, m_box.right), share);
    // From the corners' centres: where coverage ends, and where it is full.
    const double outer = halfChord(r + 0.5, beyond);
    const double inner = halfChord(r - 0.5, beyond);
    const double left = m_box.left + r;
    const double right = m_box.right - r;
    return splitRow(m_columns.centred(left - outer, right + outer),
                    m_columns.centred(left - inner, right + inner),
                    std::min(share, static_cast<float>(r + 0.5 - beyond)));
}

} // namespace kivemu
