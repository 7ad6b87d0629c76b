#include "CWidgetGroupView.h"

#include "CItemModel.h"
#include "ICanvas.h"

namespace {
template<class Visit>
void visitMembers(const CItemView &group, const Visit &visit)
{
    for (int row = 0; row < group.item()->rowCount(); ++row) {
        if (const CItemView *member = group.canvas().viewOf(group.item()->childItem(row)))
            visit(*member, member->pos() - group.pos());
    }
}
} // namespace

QRectF CWidgetGroupView::boundingRect() const
{
    QRectF rect = CItemView::boundingRect();
    visitMembers(*this, [&rect](const CItemView &member, const QPointF &by) {
        rect |= member.boundingRect().translated(by); // turned ones stick out of the frame
    });
    return rect;
}

QPainterPath CWidgetGroupView::shape() const
{
    if (item()->rowCount() == 0)
        return CItemView::shape();
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    visitMembers(*this, [&path](const CItemView &member, const QPointF &by) {
        path.addPath(member.shape().translated(by));
    });
    return path;
}

bool CWidgetGroupView::contains(const QPointF &point) const
{
    bool any = item()->rowCount() == 0 && CItemView::contains(point);
    visitMembers(*this, [&](const CItemView &member, const QPointF &by) {
        any = any || (member.boundingRect().contains(point - by) && member.contains(point - by));
    });
    return any;
}

bool CWidgetGroupView::collidesWithPath(const QPainterPath &path, Qt::ItemSelectionMode mode) const
{
    if (item()->rowCount() == 0 || mode != Qt::IntersectsItemShape || isLeftOutOfBand())
        return CItemView::collidesWithPath(path, mode);
    const QRectF rect = path.boundingRect();
    bool any = false;
    visitMembers(*this, [&](const CItemView &member, const QPointF &by) {
        any = any || (member.boundingRect().intersects(rect.translated(-by)) &&
                      member.collidesWithPath(path.translated(-by), mode));
    });
    return any;
}
