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
std::unique_ptr<CResizeRule> ruleFor(const CItemModel &item, int handle, double degrees);
/// Sets the properties that the item has, to whole numbers. Tells the observer that the geometry
/// changed when the position did not.
void apply(CItemModel &item, const CResizeRule::Geometry &geometry);
} // namespace ItemResize
