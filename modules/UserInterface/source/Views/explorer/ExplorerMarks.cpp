#include "ExplorerMarks.h"

namespace {
constexpr int Gap = 4;
}

QRect ExplorerMarks::place(EMark mark, const QRect &row)
{
    const int fromEnd = mark == Lock ? Gap + Side : 2 * (Gap + Side);
    return {row.right() + 1 - fromEnd, row.center().y() - Side / 2 + 1, Side, Side};
}

ExplorerMarks::EMark ExplorerMarks::at(const QPoint &position, const QRect &row)
{
    for (const EMark each : {Eye, Lock}) {
        QRect hit = place(each, row).adjusted(-Gap / 2, 0, Gap / 2 - 1, 0);
        hit.setTop(row.top());
        hit.setBottom(row.bottom());
        if (hit.contains(position))
            return each;
    }
    return None;
}
