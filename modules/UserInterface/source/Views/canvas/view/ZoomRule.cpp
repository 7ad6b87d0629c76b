#include "ZoomRule.h"

#include <algorithm>

int ZoomRule::clamped(int percent)
{
    return std::clamp(percent, MinimumPercent, MaximumPercent);
}

int ZoomRule::pageFit(const QSize &view, const QSizeF &scene)
{
    if (scene.isEmpty())
        return 100;
    return static_cast<int>(100 *
                            std::min(view.width() / scene.width(), view.height() / scene.height()));
}

int ZoomRule::widthFit(int viewWidth, int scrollBarWidth, double sceneWidth)
{
    if (sceneWidth <= 0)
        return 100;
    return static_cast<int>(100 * (viewWidth - scrollBarWidth) / sceneWidth);
}

int ZoomRule::wheelStep(int percent, int delta)
{
    const int step = percent * 10 / 100;
    return delta < 1 ? percent - step : percent + step;
}
