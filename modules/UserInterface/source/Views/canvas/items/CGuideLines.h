#pragma once

#include <array>
#include <optional>

class QGraphicsItem;
class QGraphicsLineItem;
class QRectF;

/// The lines that lead from a view's frame across the canvas, for both edges and the centre of each
/// axis: what lies in line with it.
class CGuideLines
{
public:
    static constexpr int Count = 12;

    /// They are children of the view and go with it.
    explicit CGuideLines(QGraphicsItem *view);

    /// Those that lie at the place across or down, from each side of the frame to the end of
    /// `reach`, which holds it; hides the others. All in the view's coordinates.
    void show(const QRectF &frame, const QRectF &reach, std::optional<double> across,
              std::optional<double> down);
    void hide();

private:
    std::array<QGraphicsLineItem *, Count> m_lines{};
};
