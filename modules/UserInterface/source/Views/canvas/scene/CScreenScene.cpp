#include "CScreenScene.h"

#include "CEditorState.h"
#include "CFrameItem.h"
#include "CGesture.h"
#include "CItemView.h"
#include "CProjectModel.h"
#include "CRectIndex.h"
#include "CScreenModel.h"
#include "CSelectionFrame.h"
#include "CSnapMarks.h"
#include "CanvasRoles.h"
#include "ItemTree.h"
#include "ItemViewFactory.h"
#include "PropertyKey.h"

#include <algorithm>

CScreenScene::CScreenScene(CScreenModel *screen, QObject *parent)
    : QGraphicsScene(parent),
      m_screen(screen),
      m_guides(*this),
      m_snapping(*this, *screen),
      m_selectionFrame(new CSelectionFrame)
{
    addItem(m_selectionFrame);
    setItemIndexMethod(NoIndex); // handles and guide lines move with every step of a drag
    CProjectModel *project = screen->project();
    setSceneRect(QRectF(QPointF(), QSizeF(project->resolution())));

    connect(CEditorState::instance(), &CEditorState::gridChanged, this, [this] { update(); });
    connect(CEditorState::instance(), &CEditorState::gridFaintChanged, this, [this] { update(); });
    connect(this, &QGraphicsScene::selectionChanged, this, &CScreenScene::selectionChanged);

    connect(project, &QAbstractItemModel::rowsInserted, this, &CScreenScene::onRowsInserted);
    connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &CScreenScene::onRowsAboutToBeRemoved);
    connect(project, &CProjectModel::propertyChanged, this, &CScreenScene::onPropertyChanged);
    connect(project, &CProjectModel::geometryChanged, this, [this](CItemModel *item) {
        if (CItemView *view = m_views.value(item))
            view->updateFlags();
    });
    for (int row = 0; row < screen->rowCount(); ++row) {
        if (CItemModel *item = screen->childItem(row))
            addViews(item);
    }
    m_isOrderDue = true;
    followChangesSoon();
}

CScreenScene::~CScreenScene()
{
    blockSignals(true); // the items go one by one now, and nobody is to look at what is left
}

void CScreenScene::detach()
{
    if (!m_screen)
        return;
    m_screen->project()->disconnect(this);
    const QSignalBlocker quiet(this);
    dropGesture();
    deleteViews();
    m_views.clear();
    m_order.clear();
    m_dueGroups.clear();
    m_isOrderDue = false;
    m_screen = nullptr;
}

/// All at once: of views that go one by one each is looked for in the list of all items.
void CScreenScene::deleteViews()
{
    m_selectionFrame->setItems({});
    enter(nullptr);
    m_keyItem = nullptr;
    QVector<QGraphicsItem *> kept = {m_guides.cross(), m_snapping.marks(), m_selectionFrame};
    if (m_frame)
        kept.append(m_frame);
    for (QGraphicsItem *each : qAsConst(kept))
        removeItem(each);
    QGraphicsScene::clear();
    for (QGraphicsItem *each : qAsConst(kept))
        addItem(each);
}

CItemView *CScreenScene::viewOf(const CItemModel *item) const
{
    updateGroupFrames();
    return m_views.value(item);
}

bool CScreenScene::isBelowScreen(const QStandardItem *item) const
{
    while (item && item != m_screen)
        item = item->parent();
    return item != nullptr;
}

void CScreenScene::addViews(CItemModel *item)
{
    CItemView *&view = m_views[item];
    if (!view) { // an item that only changes its row still has its view
        view = ItemViewFactory::create(item, *this);
        addItem(view);
    }
    CItemView *const its = view; // the table may grow
    for (int row = 0; row < item->rowCount(); ++row) {
        if (CItemModel *member = item->childItem(row))
            addViews(member);
    }
    its->updateFlags(); // about its members
}

void CScreenScene::removeViews(const CItemModel *item)
{
    for (int row = 0; row < item->rowCount(); ++row) {
        if (const CItemModel *member = item->childItem(row))
            removeViews(member);
    }
    m_dueGroups.remove(item);
    if (m_entered == item)
        enter(nullptr);
    if (m_keyItem == item)
        setKeyItem(nullptr);
    delete m_views.take(item);
}

void CScreenScene::onRowsInserted(const QModelIndex &parent, int first, int last)
{
    CItemModel *parentItem = CItemModel::fromItem(m_screen->model()->itemFromIndex(parent));
    if (!parentItem || !isBelowScreen(parentItem))
        return;
    for (int row = first; row <= last; ++row) {
        CItemModel *item = parentItem->childItem(row);
        if (!item)
            continue;
        addViews(item);
        item->setSelectable(parentItem == m_entered || !item->isGrouped());
    }
    rowsChanged(parentItem);
}

void CScreenScene::onRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    CItemModel *parentItem = CItemModel::fromItem(m_screen->model()->itemFromIndex(parent));
    if (!parentItem || !isBelowScreen(parentItem))
        return;
    cancelGesture();
    dropGesture();
    m_selectionFrame->setItems({}); // until the rows are gone, or back
    {
        const QSignalBlocker quiet(this); // of what is selected the project's selection knows
        for (int row = first; row <= last; ++row) {
            const CItemModel *item = parentItem->childItem(row);
            if (item && !item->isMoving())
                removeViews(item);
        }
    }
    rowsChanged(parentItem);
}

/// The rows may still be there; what listens looks at them once all is over.
void CScreenScene::rowsChanged(const CItemModel *parent)
{
    membersChanged(parent);
    m_isOrderDue = true;
    m_haveRowsChanged = true;
    followChangesSoon();
}

void CScreenScene::onPropertyChanged(CItemModel *item, const QString &key)
{
    if (item == m_screen) {
        Q_EMIT contentChanged();
        return;
    }
    CItemView *view = m_views.value(item);
    if (!view)
        return;
    if (m_entered && (m_entered->isUnderLock() || m_entered->isUnderHidden()))
        enter(nullptr);
    view->onPropertyChanged(key);
    membersChanged(item->parentItem());
    m_haveRowsChanged = m_haveRowsChanged || key == PropertyKey::Hidden; // what is to be counted
    followChangesSoon();
    Q_EMIT contentChanged();
}

void CScreenScene::membersChanged(const CItemModel *group)
{
    for (; group && group != m_screen; group = group->parentItem())
        m_dueGroups.insert(group);
}

/// Once for all changes of a command.
void CScreenScene::followChangesSoon()
{
    if (std::exchange(m_isFollowingDue, true))
        return;
    QMetaObject::invokeMethod(this, &CScreenScene::followChanges, Qt::QueuedConnection);
}

void CScreenScene::followChanges()
{
    m_isFollowingDue = false;
    const bool haveRowsChanged = std::exchange(m_haveRowsChanged, false);
    if (!m_screen)
        return;
    updateHandles();
    highlightObjectBehind(true);
    if (!haveRowsChanged)
        return;
    Q_EMIT itemsChanged();
    Q_EMIT contentChanged();
}

const QVector<CItemView *> &CScreenScene::order() const
{
    if (m_isOrderDue)
        restack();
    updateGroupFrames();
    return m_order;
}

/// Brings the stacking into the order of the rows, all between the frame and the snap cross, and
/// groups about their members.
void CScreenScene::restack() const
{
    m_isOrderDue = false;
    m_order.clear();
    forEachItem(*m_screen, [this](const CItemModel &each) {
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
void CScreenScene::updateGroupFrames() const
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

QVector<CItemModel *> CScreenScene::selectedModelItems() const
{
    QVector<CItemModel *> items;
    for (const CItemView *view : order()) {
        if (view->isSelected())
            items.append(view->item());
    }
    return items;
}

void CScreenScene::selectModelItems(const QVector<CItemModel *> &items)
{
    {
        const QSignalBlocker quiet(this);
        const QSet<CItemModel *> selected(items.begin(), items.end());
        if (!items.isEmpty()) {
            CItemModel *first = items.constFirst();
            enter(m_views.contains(first) && first->isGrouped() ? first->parentItem() : nullptr);
        }
        for (CItemView *view : order())
            view->setSelected(selected.contains(view->item()));
    }
    updateHandles();
    highlightObjectBehind(true);
    update();
    Q_EMIT selectionShown();
}

void CScreenScene::chooseModelItems(const QVector<CItemModel *> &items)
{
    selectModelItems(items);
    Q_EMIT QGraphicsScene::selectionChanged();
}

QList<CItemView *> CScreenScene::selectableViewsAt(const QPointF &scenePos,
                                                   const QTransform &deviceTransform) const
{
    order(); // as they are stacked
    QList<CItemView *> found;
    for (QGraphicsItem *each :
         items(scenePos, Qt::IntersectsItemShape, Qt::DescendingOrder, deviceTransform)) {
        if (each->data(CanvasRole::RoleKey).toInt() == CanvasRole::ItemView &&
            each->flags().testFlag(QGraphicsItem::ItemIsSelectable))
            found.append(static_cast<CItemView *>(each));
    }
    if (m_entered)
        std::stable_partition(found.begin(), found.end(), [this](const CItemView *each) {
            return each->item()->parentItem() == m_entered;
        });
    return found;
}

QGraphicsItem *CScreenScene::handleAt(const QPointF &scenePos,
                                      const QTransform &deviceTransform) const
{
    QGraphicsItem *own = m_single ? m_single->handleAt(scenePos, deviceTransform) : nullptr;
    return own ? own : m_selectionFrame->handleAt(scenePos, deviceTransform);
}

/// One selected item has handles of its own, several have a common frame.
void CScreenScene::updateHandles()
{
    const QVector<CItemModel *> items = selectedModelItems();
    CItemView *single = items.size() == 1 ? m_views.value(items.constFirst()) : nullptr;
    if (m_single != single) {
        const QPointer<CItemView> before = std::exchange(m_single, single);
        for (CItemView *each : {before.data(), single}) {
            if (each)
                each->updateHandlesShown();
        }
    }
    m_selectionFrame->setItems(items);
    if (items.size() < 2 || !items.contains(m_keyItem))
        setKeyItem(nullptr);
}

bool CScreenScene::isReachable(const CItemModel &item) const
{
    if (m_entered && item.parentItem() == m_entered)
        return true;
    const CItemModel *around = m_entered; // what holds the members would cover them
    while (around && around != &item)
        around = around->parentItem();
    return !around && !item.isGrouped();
}

CItemModel *CScreenScene::holder() const
{
    return m_entered ? m_entered : m_screen;
}

void CScreenScene::enter(CItemModel *group)
{
    if (m_entered == group)
        return;
    CItemModel *before = std::exchange(m_entered, group);
    for (CItemModel *parent : {before, group, static_cast<CItemModel *>(m_screen)}) {
        for (int row = 0; parent && row < parent->rowCount(); ++row) {
            CItemModel *item = parent->childItem(row);
            item->setSelectable(parent == group || !item->isGrouped()); // in lists as well
            if (CItemView *view = m_views.value(item))
                view->updateFlags();
        }
    }
    update();
}

void CScreenScene::setKeyItem(CItemModel *item)
{
    if (m_keyItem == item)
        return;
    for (CItemModel *each : {std::exchange(m_keyItem, item), item}) {
        if (CItemView *view = m_views.value(each))
            view->setKey(each == item);
    }
    Q_EMIT keyItemChanged();
}

void CScreenScene::showTargetAt(const QPointF &scenePos, const QTransform &deviceTransform)
{
    CItemView *target = handleAt(scenePos, deviceTransform)
                            ? nullptr
                            : selectableViewsAt(scenePos, deviceTransform).value(0);
    if (m_target == target)
        return;
    hideTarget();
    m_target = target;
    if (target)
        target->setTarget(true);
}

void CScreenScene::hideTarget()
{
    if (m_target)
        m_target->setTarget(false);
    m_target = nullptr;
}

void CScreenScene::setFrame(const QPixmap &frame)
{
    if (!m_frame) {
        m_frame = new CFrameItem;
        addItem(m_frame);
    }
    m_frame->setFrame(frame);
}

void CScreenScene::selectionChanged()
{
    updateHandles();
    highlightObjectBehind(true);
}

/// Called with every move of the pointer: one walk from front to back, and only what changes is
/// repainted.
void CScreenScene::highlightObjectBehind(bool repaint)
{
    CRectIndex inFront; // of selected items
    for (CItemView *view : order()) {
        const QRectF rect = view->sceneRect();
        const bool isHidden = view->item()->isUnderHidden();
        const bool isBehind = !isHidden && !view->item()->isGrouped() && inFront.intersects(rect);
        if (view->isSelected() && !isHidden)
            inFront.add(rect);
        if (view->isHighlighted() == isBehind)
            continue;
        view->setHighlighted(isBehind);
        if (isBehind || repaint)
            view->update();
    }
}

void CScreenScene::hideGuides()
{
    m_guides.hide();
    m_snapping.end();
}
