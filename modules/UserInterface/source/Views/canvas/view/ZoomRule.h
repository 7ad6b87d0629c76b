#pragma once

#include <QSize>

/// The arithmetic of the zoom modes. Percentages; lengths in pixels and scene units.
namespace ZoomRule {
constexpr int MinimumPercent = 50; ///< of the free value; fitted values know no limits
constexpr int MaximumPercent = 3000;

int clamped(int percent);
/// The largest percentage that shows the whole scene; 100 for a scene without an area.
int pageFit(const QSize &view, const QSizeF &scene);
/// The same for the scene's width, beside a scroll bar of the given width (0 when it is hidden).
int widthFit(int viewWidth, int scrollBarWidth, double sceneWidth);
/// One turn of the wheel: a tenth of the percentage, in whole numbers.
int wheelStep(int percent, int delta);
} // namespace ZoomRule
