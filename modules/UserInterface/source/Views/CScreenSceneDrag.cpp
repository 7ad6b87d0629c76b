// How items are dragged on a canvas, and where they snap to.
#include "CEditorState.h"
#include "CItemView.h"
#include "CMoveGesture.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CSnapCross.h"
#include "CanvasRoles.h"
#include "SnapRule.h"

#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>

namespace {
constexpr int DragDistance = 3; ///< screen pixels; a press that trembles is no drag

/// Raises a view for one press, so that the press reaches it, or its handle, also where other items
/// cover it.
class CRaised
{
public:
    explicit CRaised(CItemView *view) : m_view(view)
    {
        if (!m_view)
            return;
        m_z = m_view->zValue();
        m_view->setZValue(m_z + 10);
    }
    ~CRaised()
    {
        if (m_view)
            m_view->setZValue(m_z);
    }
    Q_DISABLE_COPY(CRaised)

private:
    const QPointer<CItemView> m_view; ///< what the press selects may have it deleted
    double m_z = 0;
};

bool isDrag(const QGraphicsSceneMouseEvent &event)
{
    const QPoint travelled = event.screenPos() - event.buttonDownScreenPos(Qt::LeftButton);
    return travelled.manhattanLength() >= DragDistance;
}

QTransform transformOf(const QGraphicsSceneMouseEvent &event)
{
    const QWidget *viewport = event.widget();
    const auto *view = viewport ? qobject_cast<QGraphicsView *>(viewport->parentWidget()) : nullptr;
    return view ? view->viewportTransform() : QTransform();
}
} // namespace

void CScreenScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    m_cancelled = false;
    m_bandOnLocked = false;
    forgetPress();
    if (event->button() != Qt::LeftButton) {
        event->accept(); // else the selection would be lost
        return;
    }
    const QTransform transform = transformOf(*event);
    // What a drag will act on is settled before the press selects anything: handles that come with
    // the selection were not there to be taken hold of.
    QGraphicsItem *handle = handleAt(event->scenePos(), transform);
    const QPointer<CItemView> pressed(
        handle ? nullptr : selectableViewsAt(event->scenePos(), transform).value(0));
    m_bandOnLocked = pressed && pressed->item()->isLocked() &&
                     event->modifiers() == Qt::NoModifier &&
                     (!pressed->isSelected() || selectedItems().size() == 1);
    if (m_bandOnLocked || (!handle && !pressed)) {
        setFocusItem(nullptr);
        event->ignore(); // a rubber band begins
        return;
    }
    const bool isShift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (isShift && !handle)
        event->setModifiers(event->modifiers() | Qt::ControlModifier); // adds to the selection
    {
        const QScopedValueRollback<QGraphicsItem *> meant(m_pressedHandle, handle);
        const CRaised raised(handle ? static_cast<CItemView *>(handle->parentItem())
                                    : pressed.data());
        QGraphicsScene::mousePressEvent(event);
    }
    if (pressed && !isShift && !isGestureActive())
        beginMove(pressed, event->scenePos());
}

void CScreenScene::beginMove(CItemView *pressed, const QPointF &scenePos)
{
    m_pressed = pressed;
    m_pressPos = scenePos;
    m_pressOffset = scenePos - pressed->pos();
    m_pressedStart = pressed->pos();
    m_snapping = CEditorState::instance()->isSnapToGrid();
    m_others.clear();
    for (CItemView *view : itemViews()) {
        if (view != pressed && view->isSelected())
            m_others.append({view, view->pos()});
    }
}

void CScreenScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (m_cancelled)
        return;
    QGraphicsItem *grabber = mouseGrabberItem();
    const bool isHandle =
        grabber && grabber->data(CanvasRole::RoleKey).toInt() == CanvasRole::Handle;
    if (!grabber) // the handles that the pointer comes near are to be there
        handleAt(event->scenePos(), transformOf(*event));
    if (isHandle || !event->buttons().testFlag(Qt::LeftButton)) {
        QGraphicsScene::mouseMoveEvent(event);
        if (isHandle)
            highlightObjectBehind(false); // another size lies over other items
        return;
    }
    if (event->modifiers().testFlag(Qt::ShiftModifier))
        return;
    if (grabber)
        highlightObjectBehind(false);
    if (!m_pressed) {
        if (!grabber) // a pressed view would move itself, and its item would not know
            QGraphicsScene::mouseMoveEvent(event);
        return;
    }
    if (!m_move) {
        if (!isDrag(*event))
            return;
        m_pressed->setSelected(true); // a press with Control has left that to the release
        if (m_pressed->item()->isLocked())
            return;
        QVector<CItemModel *> moving{m_pressed->item()};
        for (const auto &other : qAsConst(m_others)) {
            if (!other.first->item()->isLocked())
                moving.append(other.first->item());
        }
        m_move = std::make_unique<CMoveGesture>(moving);
        beginGesture(moving, CItemChanges::geometryKeys());
    }
    if (m_snapping)
        snapMove(event->scenePos());
    else
        m_move->moveBy(event->scenePos() - m_pressPos);
    const CItemModel *item = m_pressed->item();
    reportGesture(tr("%1, %2").arg(item->x()).arg(item->y()));
}

/// Moves everything so that the pressed item lands on the nearest candidates.
void CScreenScene::snapMove(const QPointF &scenePos)
{
    const QPointF chosen = snappedPosition(scenePos - m_pressOffset, m_move->items());
    const QPointF delta = chosen - m_pressedStart;
    m_move->moveBy(delta);
    // Edges and centres of others may lie between whole units. The views show that; what is
    // recorded are the whole numbers that the model holds.
    for (const auto &[view, start] : qAsConst(m_others)) {
        if (!view->item()->isLocked())
            view->setPos(start + delta);
    }
    m_pressed->setPos(chosen);
    m_snapCross->setPos(chosen);
    m_snapCross->show();
}

bool CScreenScene::isUnderSelection(const CItemModel *item, const QSet<CItemModel *> &selection)
{
    for (; item; item = item->parentItem()) {
        if (selection.contains(const_cast<CItemModel *>(item)))
            return true;
    }
    return false;
}

QPointF CScreenScene::snappedPosition(const QPointF &proposed, const QVector<CItemModel *> &moving)
{
    QVector<SnapRule::Candidate> across;
    QVector<SnapRule::Candidate> down;
    const QSet<CItemModel *> away(moving.begin(), moving.end());
    for (CItemView *view : order()) {
        if (view->isSelected() || isUnderSelection(view->item(), away))
            continue;
        const QRectF rect = view->sceneRect();
        across << SnapRule::Candidate{rect.left(), view} << SnapRule::Candidate{rect.right(), view}
               << SnapRule::Candidate{(rect.left() + rect.right()) / 2, view};
        down << SnapRule::Candidate{rect.top(), view} << SnapRule::Candidate{rect.bottom(), view}
             << SnapRule::Candidate{(rect.top() + rect.bottom()) / 2, view};
    }
    SnapRule::appendGridLines(across, proposed.x(), m_gridSpacing);
    SnapRule::appendGridLines(down, proposed.y(), m_gridSpacing);
    const SnapRule::Candidate x = SnapRule::nearest(across, proposed.x());
    const SnapRule::Candidate y = SnapRule::nearest(down, proposed.y());

    hideGuides();
    for (CItemView *view : {x.view, y.view}) {
        if (!view)
            continue;
        view->showGuides(visibleRect());
        m_guided.append(view);
    }
    return {x.position, y.position};
}

QPointF CScreenScene::snapped(const QPointF &proposed, const QVector<CItemModel *> &moving)
{
    const QPointF place = snappedPosition(proposed, moving);
    m_snapCross->setPos(place);
    m_snapCross->show();
    return place;
}

void CScreenScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ShiftModifier) &&
        !isGestureActive())
        event->setModifiers(event->modifiers() | Qt::ControlModifier);
    if (!m_move && !isDrag(*event)) // a trembling hand has clicked all the same
        event->setScenePos(event->buttonDownScenePos(Qt::LeftButton));
    QGraphicsScene::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    finishMove();
    forgetPress();
    m_cancelled = false;
    m_bandOnLocked = false;
    highlightObjectBehind(true);
}

/// Puts the dragged items back and tells where they were left.
void CScreenScene::finishMove()
{
    const auto move = std::move(m_move); // over from here on
    if (!move || !isGestureActive())
        return;
    const QVector<CItemChanges> gesture = std::exchange(m_gesture, {});
    QVector<CItemModel *> items;
    QVector<QPointF> positions;
    for (const CItemChanges &each : gesture) {
        if (!each.isAnyChanged())
            continue;
        items.append(each.item());
        positions.append(QPointF(each.item()->x(), each.item()->y()));
    }
    for (const CItemChanges &each : gesture) {
        each.restore();
        viewOf(each.item())->updatePosition();
    }
    if (!items.isEmpty())
        Q_EMIT itemsDragged(items, positions);
    Q_EMIT gestureEnded();
}

void CScreenScene::forgetPress()
{
    m_pressed = nullptr;
    m_others.clear();
    m_move.reset();
    hideGuides();
}
