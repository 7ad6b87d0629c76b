// What a press on a canvas takes hold of, and the gesture that follows from it.
#include "CBandGesture.h"
#include "CCopyGesture.h"
#include "CEditorState.h"
#include "CItemModel.h"
#include "CItemView.h"
#include "CMoveGesture.h"
#include "CScreenScene.h"
#include "CSelectionFrame.h"
#include "GestureFactory.h"
#include "ItemClipboard.h"
#include "ItemGeometry.h"

#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPointer>

#include <algorithm>

namespace {
constexpr int DragDistance = 3; ///< screen pixels; a hand that trembles has clicked all the same

/// Raises a view for one press, so that the press reaches it also where other items cover it.
class CRaised
{
public:
    explicit CRaised(CItemView *view) : m_view(view), m_z(view->zValue())
    {
        view->setZValue(m_z + 10);
    }
    ~CRaised()
    {
        if (m_view)
            m_view->setZValue(m_z);
    }
    Q_DISABLE_COPY(CRaised)

private:
    const QPointer<CItemView> m_view; ///< what the press selects may have it deleted
    const double m_z;
};

SGesturePointer pointerOf(const QGraphicsSceneMouseEvent &event)
{
    const QPoint travelled = event.screenPos() - event.buttonDownScreenPos(Qt::LeftButton);
    return {event.scenePos(), travelled.manhattanLength(), event.modifiers()};
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
    dropGesture();
    hideTarget();
    m_keyPressed = nullptr;
    if (event->button() != Qt::LeftButton) {
        event->accept(); // else the selection would be lost
        return;
    }
    const QTransform transform = transformOf(*event);
    // What a drag will act on is settled before the press selects anything: handles that come with
    // the selection were not there to be taken hold of.
    if (QGraphicsItem *handle = handleAt(event->scenePos(), transform)) {
        handle->parentItem()->setFocus(Qt::MouseFocusReason);
        beginGesture(GestureFactory::forHandle(*handle, m_snapping), *event);
        event->accept();
        return;
    }
    const QList<CItemView *> under = viewsForPress(*event);
    if (event->modifiers() == Qt::AltModifier && !under.isEmpty()) {
        const auto isSelected = [](const CItemView *view) { return view->isSelected(); };
        const auto chosen = std::find_if(under.begin(), under.end(), isSelected);
        beginGesture(copyOf(chosen != under.end() ? **chosen : *under.constFirst()), *event);
        event->accept();
        return;
    }
    const QPointer<CItemView> pressed(under.value(0));
    // A locked item is the ground for what lies before it.
    const bool isBandOnLocked = pressed && pressed->item()->isLocked() &&
                                event->modifiers() == Qt::NoModifier &&
                                (!pressed->isSelected() || selectedItems().size() == 1);
    if (isBandOnLocked || !pressed) {
        setFocusItem(nullptr);
        beginGesture(std::make_unique<CBandGesture>(isBandOnLocked), *event);
        event->ignore(); // the view begins a rubber band
        return;
    }
    if (pressed->isSelected() && !m_single && event->modifiers() == Qt::NoModifier)
        m_keyPressed = pressed->item();
    const bool isShift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (isShift)
        event->setModifiers(event->modifiers() | Qt::ControlModifier); // adds to the selection
    {
        const CRaised raised(pressed);
        QGraphicsScene::mousePressEvent(event);
    }
    if (pressed && !isShift)
        beginGesture(moveOf(pressed), *event);
}

/// What lies at the place, front first. A press beside the members leaves their group.
QList<CItemView *> CScreenScene::viewsForPress(const QGraphicsSceneMouseEvent &event)
{
    const QTransform transform = transformOf(event);
    const QList<CItemView *> under = selectableViewsAt(event.scenePos(), transform);
    if (!m_entered)
        return under;
    const bool isInside = under.isEmpty()
                              ? viewOf(m_entered)->sceneRect().contains(event.scenePos())
                              : under.constFirst()->item()->parentItem() == m_entered;
    if (isInside)
        return under;
    enter(nullptr);
    return selectableViewsAt(event.scenePos(), transform);
}

void CScreenScene::beginGesture(std::unique_ptr<CGesture> gesture,
                                const QGraphicsSceneMouseEvent &press)
{
    m_gesture = std::move(gesture);
    m_gesture->start(pointerOf(press));
}

std::unique_ptr<CGesture> CScreenScene::moveOf(CItemView *pressed)
{
    QVector<CItemView *> others;
    for (CItemView *view : m_views.order()) {
        if (view != pressed && view->isSelected())
            others.append(view);
    }
    CMoveGesture::Snap snap;
    if (CEditorState::instance()->isSnapToGrid())
        snap = [this](const QPointF &place, const QVector<CItemModel *> &moving) {
            return snapped(place, moving);
        };
    return std::make_unique<CMoveGesture>(
        pressed, others, m_snapping, snap,
        [this](const QVector<CItemModel *> &items, const QVector<QPointF> &places) {
            Q_EMIT itemsDragged(items, places);
        });
}

/// Of all that is selected, when that is pressed.
std::unique_ptr<CGesture> CScreenScene::copyOf(const CItemView &pressed)
{
    const QVector<CItemModel *> selected = selectedModelItems();
    const QVector<CItemModel *> items =
        pressed.isSelected() ? selected : QVector<CItemModel *>{pressed.item()};
    const int grip = items.indexOf(pressed.item());
    const QPointF from = ItemGeometry::frameOf(items).topLeft();
    return std::make_unique<CCopyGesture>(
        [this, items] {
            CCopyGesture::SCopies copies;
            copies.command = ItemClipboard::duplication(*holder(), items, QPoint(), &copies.items);
            return copies;
        },
        [this, grip](const QVector<CItemModel *> &copies) {
            chooseModelItems(copies);
            return moveOf(viewOf(copies.at(grip)));
        },
        [this, selected, from](const QVector<CItemModel *> *copies) {
            chooseModelItems(copies ? *copies : selected);
            if (copies)
                Q_EMIT itemsCopied(*copies, from);
        });
}

void CScreenScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const bool isDrag = m_gesture && event->buttons().testFlag(Qt::LeftButton);
    if (!isDrag) {
        if (!mouseGrabberItem()) // the handles that the pointer comes near are to be there, too
            showTargetAt(event->scenePos(), transformOf(*event));
        // A pressed view would move itself, and its item would not know.
        if (!mouseGrabberItem() || !event->buttons().testFlag(Qt::LeftButton))
            QGraphicsScene::mouseMoveEvent(event);
        return;
    }
    followPointer(pointerOf(*event));
    if (isGestureActive())
        event->accept(); // the cursor of the press stays
}

void CScreenScene::followPointer(const SGesturePointer &pointer)
{
    m_pointer = pointer;
    const QString readout = m_gesture->update(pointer);
    if (!isGestureActive())
        return;
    m_selectionFrame->follow();
    highlightObjectBehind(false);
    if (!readout.isEmpty())
        Q_EMIT gestureReported(readout);
}

void CScreenScene::followModifiers(Qt::KeyboardModifiers modifiers)
{
    if (isGestureActive())
        followPointer({m_pointer.place, m_pointer.travelled, modifiers});
}

QPointF CScreenScene::snapped(const QPointF &proposed, const QVector<CItemModel *> &moving)
{
    return m_guides.place(proposed, m_views.order(), moving,
                          CEditorState::instance()->gridSpacing());
}

void CScreenScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ShiftModifier) &&
        !isGestureActive())
        event->setModifiers(event->modifiers() | Qt::ControlModifier);
    const bool isClick = !isGestureActive() && pointerOf(*event).travelled < DragDistance;
    CItemModel *clicked = std::exchange(m_keyPressed, nullptr);
    const bool isNewKey = isClick && clicked && clicked != m_keyItem && m_views.contains(clicked);
    if (isClick)
        event->setScenePos(event->buttonDownScenePos(Qt::LeftButton));
    if (isNewKey) { // for the view a drag, which leaves the selection as it is
        event->setScenePos(event->scenePos() + QPointF(1, 1));
        setKeyItem(clicked);
    }
    QGraphicsScene::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    finishGesture();
    highlightObjectBehind(true);
}

bool CScreenScene::isGestureActive() const
{
    return m_gesture && m_gesture->isUnderWay();
}

bool CScreenScene::isLeftOutOfBand(const CItemModel &item) const
{
    return (item.isLocked() && isBandOnLocked()) || (m_entered && item.parentItem() != m_entered);
}

bool CScreenScene::isBandOnLocked() const
{
    return m_gesture && m_gesture->leavesOutLocked();
}

void CScreenScene::finishGesture()
{
    const std::unique_ptr<CGesture> gesture = std::move(m_gesture); // over from here on
    hideGuides();
    if (!gesture || !gesture->isUnderWay())
        return;
    gesture->commit();
    Q_EMIT gestureEnded();
}

void CScreenScene::cancelGesture()
{
    const bool wasActive = isGestureActive();
    if (std::unique_ptr<CGesture> gesture = std::move(m_gesture)) { // which may take rows away
        gesture->cancel();
        m_gesture = std::move(gesture); // moves until the release are still its own
    }
    if (!wasActive)
        return;
    hideGuides();
    m_selectionFrame->follow();
    highlightObjectBehind(true);
    Q_EMIT gestureEnded();
}

void CScreenScene::dropGesture()
{
    m_gesture.reset();
    hideGuides();
}
