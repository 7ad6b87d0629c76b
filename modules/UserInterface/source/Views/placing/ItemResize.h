#pragma once

#include "CResizeRule.h"

#include <memory>

class CItemModel;

/// What a resize means to a model item: which kind it is of, where it starts, and how a geometry
/// becomes properties.
namespace ItemResize {
/// Whether any of the item's properties hold a size that can be dragged.
bool isResizable(const CItemModel &item);
ResizeKind kindOf(const CItemModel &item);
/// The limits of the properties that hold the size, where they have some.
SizeLimits limitsOf(const CItemModel &item);
/// What a resize begins with, for outlineOf().
struct SStart
{
    ResizeKind kind = ResizeKind::Box;
    QRectF frame; ///< not turned
    QPointF position;
    double degrees = 0;
};
SStart startOf(const CItemModel &item, double degrees);
/// What the item takes up on the page once it has the geometry.
QRectF outlineOf(const SStart &start, const CResizeRule::Geometry &geometry);
std::unique_ptr<CResizeRule> ruleFor(const CItemModel &item, int handle, double degrees);
/// Sets the properties that the item has, to whole numbers. Tells the observer that the geometry
/// changed when the position did not.
void apply(CItemModel &item, const CResizeRule::Geometry &geometry);
} // namespace ItemResize
