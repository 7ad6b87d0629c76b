#include "shapes/CellLine.h"
#include "shapes/PixelRange.h"
#include "shapes/Shapes.h"

#include <cmath>

namespace kivemu {
namespace {

constexpr double Unit = CCellLines::Unit;

struct SVertex
{
    double x;
    double y;
};

/// The part of the clip that a polygon can reach; may be empty.
SClip reachedPart(const SPoint *points, int count, const SClip &clip)
{
    SPoint low = points[0];
    SPoint high = points[0];
    for (int i = 1; i < count; ++i) {
        low = {std::min(low.x, points[i].x), std::min(low.y, points[i].y)};
        high = {std::max(high.x, points[i].x), std::max(high.y, points[i].y)};
    }
    const SPixelRange columns = columnsOf(clip).touched(toPixels(low.x), toPixels(high.x));
    const SPixelRange rows = rowsOf(clip).touched(toPixels(low.y), toPixels(high.y));
    return {columns.first, rows.first, columns.end, rows.end};
}

/// Cuts edges to the area and adds them. What runs left of the area counts as if it ran along its
/// left side, since it has all pixels of its rows to the right; the same holds on the right, where
/// nothing comes behind it.
class CEdgeClipper
{
public:
    CEdgeClipper(CCellGrid &cells, const SClip &area)
        : m_lines(cells),
          m_area(area),
          m_width((area.right - area.left) * CCellLines::Unit),
          m_height((area.bottom - area.top) * CCellLines::Unit)
    {
    }

    void add(const SPoint &from, const SPoint &to)
    {
        SVertex a = vertex(from);
        SVertex b = vertex(to);
        if (a.y == b.y || (a.y <= 0 && b.y <= 0) || (a.y >= m_height && b.y >= m_height))
            return;
        if (isInside(a) && isInside(b)) {
            m_lines.add(whole(a.x), whole(a.y), whole(b.x), whole(b.y));
            return;
        }
        cutRows(a, b);
        addCutColumns(a, b);
    }

private:
    SVertex vertex(const SPoint &point) const
    {
        return {(toPixels(point.x) - m_area.left) * Unit, (toPixels(point.y) - m_area.top) * Unit};
    }
    bool isInside(const SVertex &v) const
    {
        return v.x >= 0 && v.x <= m_width && v.y >= 0 && v.y <= m_height;
    }
    static int whole(double value) { return static_cast<int>(value); }

    void cutRows(SVertex &a, SVertex &b) const
    {
        const double slope = (b.x - a.x) / (b.y - a.y);
        const SVertex start = a;
        for (SVertex *v : {&a, &b}) {
            const double y = std::clamp<double>(v->y, 0, m_height);
            if (y != v->y)
                *v = {start.x + (y - start.y) * slope, y};
        }
    }

    void addCutColumns(const SVertex &a, const SVertex &b)
    {
        SVertex at = a;
        // The crossings of the two sides, in the order in which the edge meets them.
        const double sides[2] = {a.x < b.x ? 0.0 : m_width, a.x < b.x ? m_width : 0.0};
        for (const double side : sides) {
            if ((a.x < side) == (b.x < side))
                continue;
            const double y = a.y + (side - a.x) * ((b.y - a.y) / (b.x - a.x));
            const SVertex crossing{
                side, std::clamp(std::round(y), std::min(at.y, b.y), std::max(at.y, b.y))};
            addWithin(at, crossing);
            at = crossing;
        }
        addWithin(at, b);
    }

    void addWithin(const SVertex &a, const SVertex &b)
    {
        const auto column = [this](double x) {
            return whole(std::clamp<double>(x, 0, m_width) + 0.5);
        };
        m_lines.add(column(a.x), whole(a.y), column(b.x), whole(b.y));
    }

    CCellLines m_lines;
    const SClip m_area;
    const int m_width;
    const int m_height;
};

} // namespace

void fillPolygon(const SCanvas &canvas, CCellGrid &cells, const SPoint *points, int count,
                 const SInk &ink)
{
    if (count < 3)
        return;
    const SClip area = reachedPart(points, count, canvas.clip);
    if (area.left >= area.right || area.top >= area.bottom)
        return;
    cells.begin(area);
    CEdgeClipper edges(cells, area);
    for (int i = 0; i < count; ++i)
        edges.add(points[i], points[i + 1 < count ? i + 1 : 0]);
    canvas.kernels->sweepCells(canvas.target, cells.grid(), ink);
}

} // namespace kivemu
