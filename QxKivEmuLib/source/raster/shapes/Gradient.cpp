#include "shapes/RoundedBox.h"
#include "shapes/Trigonometry.h"

#include "CSurface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace kivemu {
namespace {

/// The colour between two, channel by channel and alpha, too.
class CColourRamp
{
public:
    CColourRamp(Argb from, Argb to) : m_from(from), m_to(to) {}

    /// `t` from 0 to 1, cut to that.
    Argb at(double t) const
    {
        const double cut = std::clamp(t, 0.0, 1.0);
        const auto share = static_cast<uint32_t>(cut * One + 0.5);
        Argb colour = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            const uint32_t sum =
                (m_from >> shift & 255) * (One - share) + (m_to >> shift & 255) * share;
            colour |= ((sum + One / 2) / One) << shift;
        }
        return colour;
    }

private:
    static constexpr uint32_t One = 1 << 16;
    const Argb m_from;
    const Argb m_to;
};

/// Where a pixel lies between the two sides of a rectangle along a direction.
class CGradientLine
{
public:
    CGradientLine(SPoint topLeft, SPoint size, SDirection direction)
        : m_direction(direction),
          m_x(toPixels(topLeft.x) + toPixels(size.x) / 2),
          m_y(toPixels(topLeft.y) + toPixels(size.y) / 2),
          m_perPixel(1 / (std::fabs(direction.x) * toPixels(size.x) +
                          std::fabs(direction.y) * toPixels(size.y)))
    {
    }
    double at(int x, int y) const
    {
        const double along = (x + 0.5 - m_x) * m_direction.x + (y + 0.5 - m_y) * m_direction.y;
        return 0.5 + along * m_perPixel;
    }

private:
    const SDirection m_direction;
    const double m_x;
    const double m_y;
    const double m_perPixel;
};

class CGradientFill
{
public:
    CGradientFill(const SCanvas &canvas, const SRoundedBox &box, const CGradientLine &line,
                  Argb from, Argb to)
        : m_canvas(canvas),
          m_rows(box, canvas.clip),
          m_line(line),
          m_ramp(from, to),
          m_isOpaque((from & to) >> 24 == 255),
          m_columns(columnsOf(canvas.clip).touched(box.left, box.right)),
          m_shape{box.centreX(), box.centreY(), boxCoverage(box), boxCoverage(box)}
    {
    }

    /// Each row has one colour.
    void drawVertical() const
    {
        const SPixelRange straight = m_rows.straightRows();
        SBoxRow row{};
        for (int y = m_rows.rows().first; y < m_rows.rows().end; ++y) {
            if (y <= straight.first || y >= straight.end)
                row = m_rows.row(y);
            const Argb colour = m_ramp.at(m_line.at(m_columns.first, y));
            const SInk ink{colour | 0xFF000000u, static_cast<int>(colour >> 24)};
            if (ink.alpha == 0)
                continue;
            drawEdge(y, row.left, ink);
            drawRun(y, row.middle, {ink.colour, alphaOf(row.share, ink.alpha)});
            drawEdge(y, row.right, ink);
        }
    }

    /// Each column has one colour.
    void drawHorizontal()
    {
        prepareColours(m_rows.rows().first);
        for (int y = m_rows.rows().first; y < m_rows.rows().end; ++y)
            drawColours(y);
    }

    void drawSlanted()
    {
        for (int y = m_rows.rows().first; y < m_rows.rows().end; ++y) {
            prepareColours(y);
            drawColours(y);
        }
    }

private:
    void drawEdge(int y, SPixelRange range, const SInk &ink) const
    {
        const SRun run{y, range.first, range.count()};
        if (!range.isEmpty())
            m_canvas.kernels->boxRuns(m_canvas.target, &run, 1, ink, m_shape);
    }
    void drawRun(int y, SPixelRange range, const SInk &ink) const
    {
        const SRun run{y, range.first, range.count()};
        if (!range.isEmpty() && ink.alpha > 0)
            m_canvas.kernels->fillRuns(m_canvas.target, &run, 1, ink);
    }

    uint32_t *colourAt(int x) { return m_colours.data() + (x - m_columns.first); }

    void prepareColours(int y)
    {
        for (int x = m_columns.first; x < m_columns.end; ++x)
            *colourAt(x) = m_ramp.at(m_line.at(x, y));
    }

    void drawColours(int y)
    {
        const SBoxRow row = m_rows.row(y);
        drawColouredEdge(y, row.left);
        drawColouredRun(y, row.middle, row.share);
        drawColouredEdge(y, row.right);
    }

    void drawColouredEdge(int y, SPixelRange range)
    {
        if (range.isEmpty())
            return;
        std::fill_n(m_coverage.begin(), range.count(), uint8_t{0});
        const SRun run{y, range.first, range.count()};
        const SMaskTarget mask{m_coverage.data(), 0, range.first, y};
        m_canvas.kernels->boxMask(mask, &run, 1, m_shape);
        m_canvas.kernels->colourRow(m_canvas.target.row(y) + range.first, colourAt(range.first),
                                    m_coverage.data(), range.count());
    }

    void drawColouredRun(int y, SPixelRange range, float share)
    {
        if (range.isEmpty())
            return;
        uint32_t *pixels = m_canvas.target.row(y) + range.first;
        const auto count = static_cast<size_t>(range.count());
        if (share >= 1 && m_isOpaque) {
            std::memcpy(pixels, colourAt(range.first), count * sizeof *pixels);
            return;
        }
        std::fill_n(m_coverage.begin(), count, static_cast<uint8_t>(alphaOf(share, 255)));
        m_canvas.kernels->colourRow(pixels, colourAt(range.first), m_coverage.data(),
                                    range.count());
    }

    // Behind the last pixel there is room for a whole vector.
    static constexpr size_t RowRoom = CSurface::MaxSide + 8;

    const SCanvas &m_canvas;
    const CBoxRows m_rows;
    const CGradientLine &m_line;
    const CColourRamp m_ramp;
    const bool m_isOpaque;
    const SPixelRange m_columns;
    const SFrameCoverage m_shape;
    std::array<uint32_t, RowRoom> m_colours;
    std::array<uint8_t, RowRoom> m_coverage;
};

} // namespace

void fillGradient(const SCanvas &canvas, SPoint topLeft, SPoint size, Sub16 radius,
                  Angle64 direction, Argb from, Argb to, bool blend)
{
    const auto box = SRoundedBox::create(topLeft, size, radius, canvas.clip, 0);
    if (!box)
        return;
    const SDirection along = kivemu::direction(direction);
    const CGradientLine line(topLeft, size, along);
    const Argb opaque = blend ? 0 : 0xFF000000u;
    CGradientFill fill(canvas, *box, line, from | opaque, to | opaque);
    if (along.x == 0)
        fill.drawVertical();
    else if (along.y == 0)
        fill.drawHorizontal();
    else
        fill.drawSlanted();
}

} // namespace kivemu
