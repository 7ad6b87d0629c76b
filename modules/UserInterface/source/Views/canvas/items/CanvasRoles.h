#pragma once

#include <QColor>
#include <QPen>

/// What the items of a canvas tell about themselves in QGraphicsItem::data(), and their colours.
namespace CanvasRole {
constexpr int RoleKey = 0;      ///< the key of one of the roles below
constexpr int HighlightKey = 1; ///< of item views: 1 = drawn faintly although not selected

constexpr int ItemView = 2;
constexpr int Handle = 3;
constexpr int SnapCross = 4;
constexpr int PartOfParent = 5; ///< a press on it acts on its parent
} // namespace CanvasRole

namespace CanvasColour {
const QColor Outline(33, 232, 255);
const QColor Guide(255, 232, 32);
const QColor SnapCross(255, 32, 0);
const QColor Handle(33, 255, 200);
const QColor LockGround(0, 0, 0, 190);
const QColor FrameShade(0, 0, 0, 150);   ///< beside the outline
const QColor HandleGround(0, 0, 0, 110); ///< in the handles of a common frame

/// One pixel wide at every zoom.
inline QPen outlinePen(const QColor &colour)
{
    return QPen(colour, 0, Qt::DashLine, Qt::SquareCap, Qt::MiterJoin);
}
} // namespace CanvasColour
