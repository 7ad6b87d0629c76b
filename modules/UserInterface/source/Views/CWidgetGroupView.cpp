#include "CWidgetGroupView.h"

#include "CItemModel.h"
#include "CScreenScene.h"

#include <algorithm>
#include <utility>

/// From the views of the members: what points and fonts add to an item, its model does not know.
QRectF CWidgetGroupView::frameOfItem() const
{
    QRectF frame;
    bool isFirst = true; // members without an area count by their place
    for (int row = 0; row < item()->rowCount(); ++row) {
        const CItemView *member = screenScene()->viewOf(item()->childItem(row));
        if (!member)
            continue;
        const QRectF its = member->sceneRect();
        if (std::exchange(isFirst, false))
            frame = its;
        frame.setCoords(std::min(frame.left(), its.left()), std::min(frame.top(), its.top()),
                        std::max(frame.right(), its.right()),
                        std::max(frame.bottom(), its.bottom()));
    }
    return isFirst ? CItemView::frameOfItem() : frame.translated(-pos());
}
