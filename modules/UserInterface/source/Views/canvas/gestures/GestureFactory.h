#pragma once

#include <memory>

class CGesture;
class CSnapping;
class QGraphicsItem;

/// Which gesture a handle stands for.
namespace GestureFactory {
/// The handle belongs to a selected view that is not locked, or to the frame of several.
std::unique_ptr<CGesture> forHandle(const QGraphicsItem &handle, CSnapping &snapping);
} // namespace GestureFactory
