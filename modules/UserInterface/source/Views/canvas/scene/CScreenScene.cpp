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
#include "PropertyKey.h"

#include <algorithm>

CScreenScene::CScreenScene(CScreenModel *screen, QObject *parent)
    : QGraphicsScene(parent),
      m_screen(screen),
      m_guides(*this),
      m_snapping(*this, *screen),
      m_views(*this, *this),
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
        if (CItemView *view = m_views.find(item))
            view->updateFlags();
    });
    for (int row = 0; row < screen->rowCount(); ++row) {
        if (CItemModel *item = screen->childItem(row))
            m_views.add(item);
    }
    m_views.rowsChanged(m_screen);
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
    return m_views.of(item);
}

bool CScreenScene::isBelowScreen(const QStandardItem *item) const
{
    while (item && item != m_screen)
        item = item->parent();
    return item != nullptr;
}

void CScreenScene::removeViews(const CItemModel *item)
{
    for (int row = 0; row < item->rowCount(); ++row) {
        if (const CItemModel *member = item->childItem(row))
            removeViews(member);
    }
    if (m_entered == item)
        enter(nullptr);
    if (m_keyItem == item)
        setKeyItem(nullptr);
    m_views.remove(item);
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
        m_views.add(item);
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
    m_views.membersChanged(parent);
    m_views.rowsChanged(m_screen);
    m_haveRowsChanged = true;
    followChangesSoon();
}

void CScreenScene::onPropertyChanged(CItemModel *item, const QString &key)
{
    if (item == m_screen) {
        Q_EMIT contentChanged();
        return;
    }
    CItemView *view = m_views.find(item);
    if (!view)
        return;
    if (m_entered && (m_entered->isUnderLock() || m_entered->isUnderHidden()))
        enter(nullptr);
    view->onPropertyChanged(key);
    m_views.membersChanged(item->parentItem());
    m_haveRowsChanged = m_haveRowsChanged || key == PropertyKey::Hidden; // what is to be counted
    followChangesSoon();
    Q_EMIT contentChanged();
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

QVector<CItemModel *> CScreenScene::selectedModelItems() const
{
    QVector<CItemModel *> items;
    for (const CItemView *view : m_views.order()) {
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
        for (CItemView *view : m_views.order())
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
    m_views.order(); // as they are stacked
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

/// One selected item has handles of its own, several have a common frame. What is hidden has
/// neither: nothing is seen to change.
void CScreenScene::updateHandles()
{
    const QVector<CItemModel *> items = selectedModelItems();
    const bool isAnySeen = std::any_of(
        items.begin(), items.end(), [](const CItemModel *each) { return !each->isUnderHidden(); });
    CItemView *single = items.size() == 1 && isAnySeen ? m_views.find(items.constFirst()) : nullptr;
    if (m_single != single) {
        const QPointer<CItemView> before = std::exchange(m_single, single);
        for (CItemView *each : {before.data(), single}) {
            if (each)
                each->updateHandlesShown();
        }
    }
    m_selectionFrame->setItems(isAnySeen ? items : QVector<CItemModel *>());
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
            if (CItemView *view = m_views.find(item))
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
        if (CItemView *view = m_views.find(each))
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
    for (CItemView *view : m_views.order()) {
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
