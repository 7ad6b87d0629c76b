#pragma once

#include "shapes/CRunBatch.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace kivemu {

struct SPixelPoint
{
    double x;
    double y;
};

/// How far a stroke's coverage reaches from its middle line, and how much of it there is: a stroke
/// thinner than a pixel is as wide as one, but fainter.
struct SStrokeReach
{
    double reach;
    double scale;
    explicit SStrokeReach(double lineWidth)
        : reach(std::max(lineWidth, 1.0) / 2 + 0.5), scale(std::min(lineWidth, 1.0))
    {
    }
};

/// A line with round ends, cut to where it can be seen.
class CCapsuleLine
{
public:
    /// Nothing when the line does not come near the clip.
    static std::optional<CCapsuleLine> create(SPoint from, SPoint to, Sub16 lineWidth,
                                              const SClip &clip);

    const SCapsuleCoverage &coverage() const { return m_coverage; }

    /// Calls row(y, range) for all pixels that have coverage, and some around them.
    template<class Row>
    void eachRow(const SClip &clip, Row row) const
    {
        const SPixelRange rows = rowsOf(clip).centred(std::min(m_from.y, m_to.y) - m_reach,
                                                      std::max(m_from.y, m_to.y) + m_reach);
        const CPixelLimits limits = columnsOf(clip);
        for (int y = rows.first; y < rows.end; ++y) {
            const double middle = m_from.x + (y + 0.5 - m_from.y) * m_slope;
            const SPixelRange columns = limits.centred(std::max(m_left, middle - m_halfRow),
                                                       std::min(m_right, middle + m_halfRow));
            if (!columns.isEmpty())
                row(y, columns);
        }
    }

private:
    CCapsuleLine(SPixelPoint from, SPixelPoint to, const SStrokeReach &stroke);

    SPixelPoint m_from;
    SPixelPoint m_to;
    double m_reach;
    double m_left;
    double m_right;
    double m_slope;   ///< columns per row
    double m_halfRow; ///< half the width of a row of the endless line
    SCapsuleCoverage m_coverage;
};

} // namespace kivemu
