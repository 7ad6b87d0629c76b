#include "shapes/TexelRows.h"

#include "kernels/BilinearPlain.h"

#include <algorithm>

namespace kivemu {
namespace {

constexpr int64_t Texel = 65536;

int64_t floorDivide(int64_t value, int64_t by) // by > 0
{
    const int64_t quotient = value / by;
    return value % by < 0 ? quotient - 1 : quotient;
}

int64_t floorModulo(int64_t value, int64_t by) // by > 0
{
    const int64_t rest = value % by;
    return rest < 0 ? rest + by : rest;
}

/// Narrows first .. end to the steps at which low <= start + step * i < high.
void cutSteps(int64_t start, int64_t step, int64_t low, int64_t high, int64_t &first, int64_t &end)
{
    if (step < 0) { // the same, mirrored
        cutSteps(-start, -step, 1 - high, 1 - low, first, end);
    } else if (step > 0) {
        first = std::max(first, -floorDivide(start - low, step));
        end = std::min(end, -floorDivide(start - high, step));
    } else if (start < low || start >= high) {
        end = first;
    }
}

/// The texels on both sides of a position, and how far it is from the first to the second. For a
/// repeated bitmap the last texel's neighbour is the first one.
class CTexelPosition
{
public:
    CTexelPosition(int64_t start, int64_t step, EBitmapWrap wrap, int side)
        : m_isWrapped(wrap == EBitmapWrap::Repeat),
          m_length(side * Texel),
          m_position(m_isWrapped ? floorModulo(start, m_length) : start),
          m_step(m_isWrapped ? floorModulo(step, m_length) : step)
    {
    }
    int index() const { return static_cast<int>(m_position >> 16); }
    int next() const { return m_isWrapped && index() + 1 == m_length >> 16 ? 0 : index() + 1; }
    uint32_t fraction() const { return static_cast<uint32_t>(m_position >> 9 & 127); }
    void advance()
    {
        m_position += m_step;
        if (m_isWrapped && m_position >= m_length)
            m_position -= m_length;
    }

private:
    const bool m_isWrapped;
    const int64_t m_length;
    int64_t m_position;
    const int64_t m_step;
};

} // namespace

CTexelRows::CTexelRows(const SBitmapImage &image, const SBitmapPlacement &placement, EEdge edge)
    : m_image(image), m_placement(placement), m_edge(edge)
{
}

STexelRow CTexelRows::row(int y, SPixelRange range) const
{
    const SBitmapPlacement &p = m_placement;
    // From the rectangle's corner to the first pixel's centre, in sixteenths; multiplied in two
    // parts so that nothing overflows.
    const int64_t x16 = int64_t{range.first} * 16 + 8 - p.topLeft.x;
    const int64_t y16 = int64_t{y} * 16 + 8 - p.topLeft.y;
    const auto position = [&](int64_t perX, int64_t perY, int64_t offset) {
        const int64_t whole = perX * (x16 >> 4) + perY * (y16 >> 4);
        return whole + ((perX * (x16 & 15) + perY * (y16 & 15)) >> 4) + offset;
    };
    // Bilinear positions count from the centre of texel (0, 0): up to one texel beyond the bitmap
    // there is still something of its edge.
    const int64_t origin = isBilinear() ? Texel / 2 : 0;
    const int64_t fade = m_edge == EEdge::Fading ? origin : 0;
    const int64_t u = position(p.a, p.b, p.c) - origin;
    const int64_t v = position(p.d, p.e, p.f) - origin;
    int64_t first = 0;
    int64_t end = std::max(range.count(), 0);
    if (p.wrapX == EBitmapWrap::Border)
        cutSteps(u, p.a, -origin - fade, m_image.width * Texel - origin + fade, first, end);
    if (p.wrapY == EBitmapWrap::Border)
        cutSteps(v, p.d, -origin - fade, m_image.height * Texel - origin + fade, first, end);
    if (first >= end)
        return {{range.first, range.first}, 0, 0};
    return {{range.first + static_cast<int>(first), range.first + static_cast<int>(end)},
            u + p.a * first,
            v + p.d * first};
}

void CTexelRows::fetch(const SKernels &kernels, const STexelRow &row, uint32_t *texels) const
{
    if (!isBilinear()) {
        fetchNearest(row, texels);
        return;
    }
    if (m_placement.wrapX == EBitmapWrap::Repeat || m_placement.wrapY == EBitmapWrap::Repeat) {
        fetchWrapped(row, texels);
        return;
    }
    const SBilinearRow positions{
        m_image.at(0, 0), m_image.stride, static_cast<int32_t>(row.u), static_cast<int32_t>(row.v),
        m_placement.a,    m_placement.d};
    kernels.bilinearRow(texels, row.pixels.count(), positions);
}

void CTexelRows::fetchNearest(const STexelRow &row, uint32_t *texels) const
{
    CTexelPosition u(row.u, m_placement.a, m_placement.wrapX, m_image.width);
    CTexelPosition v(row.v, m_placement.d, m_placement.wrapY, m_image.height);
    for (int i = 0; i < row.pixels.count(); ++i) {
        texels[i] = *m_image.at(u.index(), v.index());
        u.advance();
        v.advance();
    }
}

void CTexelRows::fetchWrapped(const STexelRow &row, uint32_t *texels) const
{
    CTexelPosition u(row.u, m_placement.a, m_placement.wrapX, m_image.width);
    CTexelPosition v(row.v, m_placement.d, m_placement.wrapY, m_image.height);
    for (int i = 0; i < row.pixels.count(); ++i) {
        texels[i] =
            bilinearMean({*m_image.at(u.index(), v.index()), *m_image.at(u.next(), v.index()),
                          *m_image.at(u.index(), v.next()), *m_image.at(u.next(), v.next())},
                         u.fraction(), v.fraction());
        u.advance();
        v.advance();
    }
}

} // namespace kivemu
