#include "CScreenScene.h"

#include "CEditorState.h"
#include "CFrameItem.h"
#include "CItemView.h"
#include "CMoveGesture.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CSnapCross.h"
#include "CanvasRoles.h"
#include "ItemViewFactory.h"
#include "PropertyKey.h"
#include "SnapRule.h"

#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QUndoStack>

#include <algorithm>

CScreenScene::CScreenScene(CScreenModel *screen, QObject *parent)
    : QGraphicsScene(parent), m_screen(screen), m_snapCross(new CSnapCross)
{
    setItemIndexMethod(NoIndex); // handles and guide lines move with every step of a drag
    addItem(m_snapCross);
    CProjectModel *project = screen->project();
    setSceneRect(QRectF(QPointF(), QSizeF(project->resolution())));

    const CEditorState *state = CEditorState::instance();
    connect(state, &CEditorState::gridChanged, this, &CScreenScene::setGrid);
    setGrid(state->isGridShown(), state->gridSpacing(), state->gridColour(), state->gridStyle());
    connect(this, &QGraphicsScene::selectionChanged, this, &CScreenScene::selectionChanged);

    connect(project, &QAbstractItemModel::rowsInserted, this, &CScreenScene::onRowsInserted);
    connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &CScreenScene::onRowsAboutToBeRemoved);
    connect(project, &CProjectModel::propertyChanged, this, &CScreenScene::onPropertyChanged);
    connect(project, &CProjectModel::geometryChanged, this, [this](CItemModel *item) {
        if (CItemView *view = viewOf(item))
            view->updateFlags();
    });
    for (int row = 0; row < screen->rowCount(); ++row) {
        if (CItemModel *item = screen->childItem(row))
            addViews(item);
    }
    restack();
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
    m_gesture.clear();
    m_move.reset();
    forgetPress();
    qDeleteAll(m_views);
    m_views.clear();
    m_order.clear();
    m_screen = nullptr;
}

CItemView *CScreenScene::viewOf(const CItemModel *item) const
{
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
    if (!m_views.contains(item)) { // an item that only changes its row still has its view
        CItemView *view = ItemViewFactory::create(item);
        m_views.insert(item, view);
        addItem(view);
        view->updateBounds();
    }
    viewOf(item)->updateFlags();
    for (int row = 0; row < item->rowCount(); ++row) {
        if (CItemModel *member = item->childItem(row))
            addViews(member);
    }
}

void CScreenScene::removeViews(const CItemModel *item)
{
    for (int row = 0; row < item->rowCount(); ++row) {
        if (const CItemModel *member = item->childItem(row))
            removeViews(member);
    }
    CItemView *view = m_views.take(item);
    m_order.removeOne(view);
    delete view;
}

void CScreenScene::onRowsInserted(const QModelIndex &parent, int first, int last)
{
    CItemModel *parentItem = CItemModel::fromItem(m_screen->model()->itemFromIndex(parent));
    if (!parentItem || !isBelowScreen(parentItem))
        return;
    for (int row = first; row <= last; ++row) {
        if (CItemModel *item = parentItem->childItem(row))
            addViews(item);
    }
    restack();
    Q_EMIT itemsChanged();
    Q_EMIT contentChanged();
}

void CScreenScene::onRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    CItemModel *parentItem = CItemModel::fromItem(m_screen->model()->itemFromIndex(parent));
    if (!parentItem || !isBelowScreen(parentItem))
        return;
    cancelGesture();
    forgetPress();
    for (int row = first; row <= last; ++row) {
        const CItemModel *item = parentItem->childItem(row);
        if (item && !item->isMoving())
            removeViews(item);
    }
    // The rows are still there; what listens looks at them once they are gone.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!m_screen)
                return;
            restack();
            Q_EMIT itemsChanged();
            Q_EMIT contentChanged();
        },
        Qt::QueuedConnection);
}

void CScreenScene::onPropertyChanged(CItemModel *item, const QString &key)
{
    if (item == m_screen) {
        Q_EMIT contentChanged();
        return;
    }
    CItemView *view = viewOf(item);
    if (!view)
        return;
    view->onPropertyChanged(key);
    for (CItemModel *group = item->parentItem(); group && group != m_screen;
         group = group->parentItem()) {
        if (CItemView *groupView = viewOf(group))
            groupView->updateBounds();
    }
    highlightSoon();
    Q_EMIT contentChanged();
}

/// Once for all changes of a command.
void CScreenScene::highlightSoon()
{
    if (std::exchange(m_highlightIsDue, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_highlightIsDue = false;
            highlightObjectBehind(true);
        },
        Qt::QueuedConnection);
}

void CScreenScene::collectOrder(const QStandardItem *parent)
{
    for (int row = 0; row < parent->rowCount(); ++row) {
        const CItemModel *item = CItemModel::fromItem(parent->child(row));
        if (CItemView *view = item ? viewOf(item) : nullptr)
            m_order.append(view);
        if (item)
            collectOrder(item);
    }
}

/// Brings the stacking into the order of the rows, all between the frame and the snap cross, and
/// groups about their members.
void CScreenScene::restack()
{
    m_order.clear();
    collectOrder(m_screen);
    const double step = 1.0 / (m_order.size() + 1);
    double z = 1.0;
    for (CItemView *view : qAsConst(m_order))
        view->setZValue(z -= step);
    for (auto view = m_order.crbegin(); view != m_order.crend(); ++view) { // members first
        if ((*view)->item()->kind() == CItemModel::Kind::Group)
            (*view)->updateBounds();
    }
    highlightSoon();
}

QVector<CItemModel *> CScreenScene::selectedModelItems() const
{
    QVector<CItemModel *> items;
    for (const CItemView *view : m_order) {
        if (view->isSelected())
            items.append(view->item());
    }
    return items;
}

void CScreenScene::selectModelItems(const QVector<CItemModel *> &items)
{
    {
        const QSignalBlocker quiet(this);
        for (CItemView *view : qAsConst(m_order))
            view->setSelected(items.contains(view->item()));
    }
    highlightObjectBehind(true);
    update();
    Q_EMIT selectionShown();
}

QList<CItemView *> CScreenScene::selectableViewsAt(const QPointF &scenePos,
                                                   const QTransform &deviceTransform) const
{
    QList<CItemView *> found;
    for (QGraphicsItem *each :
         items(scenePos, Qt::IntersectsItemShape, Qt::DescendingOrder, deviceTransform)) {
        if (each->data(CanvasRole::RoleKey).toInt() == CanvasRole::ItemView &&
            each->flags().testFlag(QGraphicsItem::ItemIsSelectable))
            found.append(static_cast<CItemView *>(each));
    }
    return found;
}

QGraphicsItem *CScreenScene::handleAt(const QPointF &scenePos,
                                      const QTransform &deviceTransform) const
{
    for (const CItemView *view : m_order) {
        if (!view->isSelected())
            continue;
        if (QGraphicsItem *handle = view->handleAt(scenePos, deviceTransform))
            return handle;
    }
    return nullptr;
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
    highlightObjectBehind(true);
}

/// Called with every move of the pointer: one walk from front to back, and only what changes is
/// repainted.
void CScreenScene::highlightObjectBehind(bool repaint)
{
    QVector<QRectF> inFront; // of selected items
    for (CItemView *view : qAsConst(m_order)) {
        const QRectF rect = view->sceneRect();
        const bool isBehind =
            !view->item()->isGrouped() &&
            std::any_of(inFront.cbegin(), inFront.cend(),
                        [&rect](const QRectF &each) { return each.intersects(rect); });
        if (view->isSelected())
            inFront.append(rect);
        if (view->isHighlighted() == isBehind)
            continue;
        view->setHighlighted(isBehind);
        if (isBehind || repaint)
            view->update();
    }
}

void CScreenScene::hideGuides()
{
    for (CItemView *view : qAsConst(m_order))
        view->hideGuides();
    m_snapCross->hide();
}

QRectF CScreenScene::visibleRect() const
{
    if (views().isEmpty())
        return sceneRect();
    const QGraphicsView *view = views().constFirst();
    return view->mapToScene(view->viewport()->rect()).boundingRect();
}

// --- gestures ---

void CScreenScene::beginGesture(const QVector<CItemModel *> &items, const QStringList &keys)
{
    m_gesture.clear();
    m_cancelled = false;
    for (CItemModel *item : items)
        m_gesture.append(CItemChanges(item, keys));
}

void CScreenScene::reportGesture(const QString &readout)
{
    Q_EMIT gestureReported(readout);
}

void CScreenScene::finishGesture(const QString &macroText)
{
    const QVector<CItemChanges> gesture = std::exchange(m_gesture, {});
    const bool changed = std::any_of(gesture.begin(), gesture.end(),
                                     [](const CItemChanges &each) { return each.isAnyChanged(); });
    if (changed) {
        QUndoStack &stack = *m_screen->project()->undoStack();
        if (!macroText.isEmpty())
            stack.beginMacro(macroText);
        for (const CItemChanges &each : gesture)
            each.commit(stack);
        if (!macroText.isEmpty())
            stack.endMacro();
    }
    Q_EMIT gestureEnded();
}

void CScreenScene::cancelGesture()
{
    if (!isGestureActive()) {
        m_cancelled = m_cancelled || m_pressed;
        return;
    }
    const QVector<CItemChanges> gesture = std::exchange(m_gesture, {});
    m_move.reset();
    m_cancelled = true;
    for (const CItemChanges &each : gesture)
        each.restore();
    for (const CItemChanges &each : gesture) {
        if (CItemView *view = viewOf(each.item()))
            view->updatePosition(); // it may stand between two whole units
    }
    hideGuides();
    highlightObjectBehind(true);
    Q_EMIT gestureEnded();
}
