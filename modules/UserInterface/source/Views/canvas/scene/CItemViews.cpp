#include "CItemViews.h"

#include "CItemView.h"
#include "CScreenModel.h"
#include "ItemTree.h"
#include "ItemViewFactory.h"

#include <QGraphicsScene>

#include <algorithm>
#include <utility>

CItemView *CItemViews::of(const CItemModel *item) const
{
    updateGroupFrames();
    return m_views.value(item);
}

const QVector<CItemView *> &CItemViews::order() const
{
    if (m_due)
        restack();
    updateGroupFrames();
    return m_order;
}

void CItemViews::add(CItemModel *item)
{
    CItemView *&view = m_views[item];
    if (!view) {
        view = ItemViewFactory::create(item, m_canvas);
        m_scene.addItem(view);
    }
    CItemView *const its = view; // the table may grow
    for (int row = 0; row < item->rowCount(); ++row) {
        if (CItemModel *member = item->childItem(row))
            add(member);
    }
    its->updateFlags(); // about its members
}

void CItemViews::remove(const CItemModel *item)
{
    m_dueGroups.remove(item);
    delete m_views.take(item);
}

void CItemViews::clear()
{
    m_views.clear();
    m_order.clear();
    m_dueGroups.clear();
    m_due = nullptr;
}

void CItemViews::rowsChanged(const CScreenModel *screen)
{
    m_due = screen;
}

void CItemViews::membersChanged(const CItemModel *group)
{
    for (; group && group->parentItem(); group = group->parentItem())
        m_dueGroups.insert(group);
}

/// Brings the stacking into the order of the rows, all between the frame and the snap cross, and
/// groups about their members.
void CItemViews::restack() const
{
    m_order.clear();
    forEachItem(*std::exchange(m_due, nullptr), [this](const CItemModel &each) {
        if (CItemView *view = m_views.value(&each))
            m_order.append(view);
    });
    const double step = 1.0 / (m_order.size() + 1);
    double z = 1.0;
    for (CItemView *view : qAsConst(m_order)) {
        view->setZValue(z -= step);
        if (view->item()->kind() == CItemModel::Kind::Group)
            m_dueGroups.insert(view->item());
    }
}

/// Brings the frames of groups about what their members are now, members that are groups first.
void CItemViews::updateGroupFrames() const
{
    if (m_dueGroups.isEmpty())
        return;
    const QSet<const CItemModel *> due = std::exchange(m_dueGroups, {});
    const auto depthOf = [](const CItemModel *item) {
        int depth = 0;
        while ((item = item->parentItem()))
            ++depth;
        return depth;
    };
    QVector<QPair<int, const CItemModel *>> groups;
    for (const CItemModel *each : due)
        groups.append({-depthOf(each), each});
    std::sort(groups.begin(), groups.end());
    for (const auto &each : qAsConst(groups)) {
        if (CItemView *view = m_views.value(each.second))
            view->updateBounds();
    }
}
