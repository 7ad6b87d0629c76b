#include "shapes/RoundedBox.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kivemu {
namespace {

// A piece of full coverage with that many pixels is drawn apart from the edges beside it.
constexpr int WorthSplitting = 14;

/// Draws runs that have one coverage each.
class CEvenRuns
{
public:
    CEvenRuns(const SCanvas &canvas, const SInk &ink)
        : m_canvas(canvas), m_ink(ink), m_full(solidRuns(canvas, ink))
    {
    }

    void add(int y, SPixelRange range, float share)
    {
        if (share >= 1) {
            m_full.add(y, range);
            return;
        }
        const SInk thinned{m_ink.colour, alphaOf(share, m_ink.alpha)};
        if (range.isEmpty() || thinned.alpha == 0)
            return;
        const SRun run{y, range.first, range.count()};
        m_canvas.kernels->fillRuns(m_canvas.target, &run, 1, thinned);
    }

private:
    using Solid =
        decltype(solidRuns(std::declval<const SCanvas &>(), std::declval<const SInk &>()));
    const SCanvas &m_canvas;
    const SInk &m_ink;
    CRunBatch<Solid> m_full;
};

/// Draws the same columns in many rows: a few pixels with a coverage of their own, and those
/// between them in full.
class CColumnBand
{
public:
    /// share(x) is the coverage in column x.
    template<class Share>
    CColumnBand(SPixelRange columns, SPixelRange full, int alpha, Share share) : m_full(full)
    {
        if (m_full.count() < WorthSplitting)
            m_full = {columns.end, columns.end};
        m_left = {columns.first, m_full.first};
        m_right = {m_full.end, columns.end};
        fill(m_leftAlpha, m_left, alpha, share);
        fill(m_rightAlpha, m_right, alpha, share);
    }

    void draw(const SCanvas &canvas, SPixelRange rows, const SInk &ink) const
    {
        drawEdge(canvas, rows, m_left, m_leftAlpha, ink);
        drawEdge(canvas, rows, m_right, m_rightAlpha, ink);
        if (m_full.isEmpty())
            return;
        CRunBatch runs(solidRuns(canvas, ink));
        for (int y = rows.first; y < rows.end; ++y)
            runs.add(y, m_full);
    }

private:
    // Without a full piece worth splitting off, an edge is up to two pixels wider than that.
    using Alphas = std::array<uint8_t, WorthSplitting + 10>;

    template<class Share>
    static void fill(Alphas &alphas, SPixelRange columns, int alpha, Share share)
    {
        for (int x = columns.first; x < columns.end; ++x)
            alphas[static_cast<size_t>(x - columns.first)] =
                static_cast<uint8_t>(alphaOf(share(x), alpha));
    }
    static void drawEdge(const SCanvas &canvas, SPixelRange rows, SPixelRange columns,
                         const Alphas &alphas, const SInk &ink)
    {
        if (columns.isEmpty())
            return;
        const SInk full{ink.colour, 255}; // the bytes are alphas already
        canvas.kernels->maskRows(canvas.target.row(rows.first) + columns.first,
                                 canvas.target.stride, alphas.data(), 0, columns.count(),
                                 rows.count(), full);
    }

    SPixelRange m_full;
    SPixelRange m_left;
    SPixelRange m_right;
    Alphas m_leftAlpha{};
    Alphas m_rightAlpha{};
};

/// How much of column x lies between low and high.
float columnShare(int x, double low, double high)
{
    const double length = std::min(x + 1.0, high) - std::max<double>(x, low);
    return length > 0 ? static_cast<float>(length) : 0;
}

/// The columns low .. high in all rows.
void drawBand(const SCanvas &canvas, SPixelRange rows, double low, double high, const SInk &ink)
{
    const CPixelLimits columns = columnsOf(canvas.clip);
    const CColumnBand band(columns.touched(low, high), columns.covered(low, high), ink.alpha,
                           [&](int x) { return columnShare(x, low, high); });
    band.draw(canvas, rows, ink);
}

void fillBox(const SCanvas &canvas, const SRoundedBox &box, const SInk &ink)
{
    const SBoxCoverage outline = boxCoverage(box);
    const SFrameCoverage shape{box.centreX(), box.centreY(), outline, outline};
    CRunBatch edges([&](const SRun *runs, int count) {
        canvas.kernels->boxRuns(canvas.target, runs, count, ink, shape);
    });
    CEvenRuns insides(canvas, ink);
    const CBoxRows rows(box, canvas.clip);
    const SPixelRange straight = rows.straightRows();
    for (int y = rows.rows().first; y < rows.rows().end; ++y) {
        if (y == straight.first && !straight.isEmpty()) {
            y = straight.end - 1;
            continue;
        }
        const SBoxRow row = rows.row(y);
        edges.add(y, row.left);
        insides.add(y, row.middle, row.share);
        edges.add(y, row.right);
    }
    if (!straight.isEmpty())
        drawBand(canvas, straight, box.left, box.right, ink);
}

/// The rows of a frame that its corners, its top or its bottom run through.
class CFrameRows
{
public:
    CFrameRows(const SCanvas &canvas, const SRoundedBox &outer, const SRoundedBox &inner,
               const SInk &ink)
        : m_shape{outer.centreX(), outer.centreY(), boxCoverage(outer), boxCoverage(inner)},
          m_outer(outer, canvas.clip),
          m_inner(inner, canvas.clip),
          m_edges(SFrameKernel{canvas, ink, m_shape}),
          m_insides(canvas, ink)
    {
    }

    SPixelRange rows() const { return m_outer.rows(); }
    SPixelRange straightRows() const
    {
        return {std::max(m_outer.straightRows().first, m_inner.straightRows().first),
                std::min(m_outer.straightRows().end, m_inner.straightRows().end)};
    }

    void addRow(int y)
    {
        const SBoxRow outer = m_outer.row(y);
        const bool hasHole = y >= m_inner.rows().first && y < m_inner.rows().end;
        if (!hasHole) {
            m_edges.add(y, outer.left);
            m_insides.add(y, outer.middle, outer.share);
            m_edges.add(y, outer.right);
            return;
        }
        const SBoxRow inner = m_inner.row(y);
        addSide(y, {outer.left.first, inner.middle.first}, {outer.middle.first, inner.left.first},
                outer.share);
        m_insides.add(y, inner.middle, outer.share - inner.share);
        addSide(y, {inner.middle.end, outer.right.end}, {inner.right.end, outer.middle.end},
                outer.share);
    }

private:
    /// All pixels on one side of the hole; `even` are those beside both edges.
    void addSide(int y, SPixelRange all, SPixelRange even, float share)
    {
        if (even.count() < WorthSplitting) {
            m_edges.add(y, all);
            return;
        }
        m_edges.add(y, {all.first, even.first});
        m_insides.add(y, even, share);
        m_edges.add(y, {even.end, all.end});
    }

    struct SFrameKernel
    {
        const SCanvas &canvas;
        const SInk &ink;
        const SFrameCoverage &shape;
        void operator()(const SRun *runs, int count) const
        {
            canvas.kernels->frameRuns(canvas.target, runs, count, ink, shape);
        }
    };

    const SFrameCoverage m_shape;
    const CBoxRows m_outer;
    const CBoxRows m_inner;
    CRunBatch<SFrameKernel> m_edges;
    CEvenRuns m_insides;
};

void strokeBox(const SCanvas &canvas, const SRoundedBox &outer, const SRoundedBox &inner,
               const SInk &ink)
{
    CFrameRows frame(canvas, outer, inner, ink);
    const SPixelRange straight = frame.straightRows();
    for (int y = frame.rows().first; y < frame.rows().end; ++y) {
        if (y == straight.first && !straight.isEmpty())
            y = straight.end - 1;
        else
            frame.addRow(y);
    }
    if (straight.isEmpty())
        return;
    drawBand(canvas, straight, outer.left, inner.left, ink);
    drawBand(canvas, straight, inner.right, outer.right, ink);
}

} // namespace

void fillRect(const SCanvas &canvas, SPoint topLeft, SPoint size, Sub16 radius, const SInk &ink)
{
    if (const auto box = SRoundedBox::create(topLeft, size, radius, canvas.clip, 0))
        fillBox(canvas, *box, ink);
}

void strokeRect(const SCanvas &canvas, SPoint topLeft, SPoint size, Sub16 radius, Sub16 lineWidth,
                const SInk &ink)
{
    const double half = toPixels(lineWidth) / 2;
    const auto box = SRoundedBox::create(topLeft, size, radius, canvas.clip, half);
    if (!box)
        return;
    const SRoundedBox inner = box->grown(-half);
    if (inner.isEmpty())
        fillBox(canvas, box->grown(half), ink);
    else
        strokeBox(canvas, box->grown(half), inner, ink);
}

} // namespace kivemu
