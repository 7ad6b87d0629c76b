#pragma once

#include "CSnapAxis.h"

#include <functional>

/// Where a drag lands when edges and middles are to be in line: of what is moved, resized or
/// placed, with items, the page, guides, and by gaps that are equal to others.
/// Knows neither items nor widgets. What the drag makes of an offset is asked for, so that limits,
/// turned frames and whole numbers are the drag's business, and what is answered is what there is.
class CSnapRule
{
public:
    /// What the dragged thing takes up on the page when the pointer has gone that far.
    using OutlineAt = std::function<QRectF(const QPointF &offset)>;

    CSnapRule(const SSnapReferences &references, SnapKinds kinds);

    /// The offset, or one near it that brings edges or the middle at most `tolerance` further, and
    /// what is in line then; across and down by themselves.
    SSnapped snap(const OutlineAt &outlineAt, const QPointF &offset, double tolerance) const;

private:
    struct SDrag;
    struct SLanding;
    std::optional<SLanding> land(const SDrag &drag, int axis, const QPointF &offset,
                                 double tolerance, const std::optional<SLanding> &other) const;

    std::array<CSnapAxis, 2> m_axes; ///< across, down
};
