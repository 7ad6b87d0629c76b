// Mouse, wheel, keys, drops and the context menu of a screen.
#include "CEditorState.h"
#include "CGuideTool.h"
#include "CItemDrop.h"
#include "CItemModel.h"
#include "CItemView.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "CSelectionCommands.h"
#include "CViewZoom.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>
#include <utility>

bool CScreenView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isPointerHeld()) {
        event->accept(); // an undo in the middle of a drag would pull the ground from under it
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && m_guides->hasChosen() &&
        static_cast<QKeyEvent *>(event)->matches(QKeySequence::Delete)) {
        event->accept(); // of the guide, not of items
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && mayMeasure(*static_cast<QKeyEvent *>(event))) {
        event->accept(); // else the menu bar would take the keys with the release
        return true;
    }
    return QGraphicsView::event(event);
}

/// Alt alone, with the pointer on the canvas.
bool CScreenView::mayMeasure(const QKeyEvent &event) const
{
    return event.key() == Qt::Key_Alt && (event.modifiers() & ~Qt::AltModifier) == 0 &&
           viewport()->underMouse() && !isPointerHeld() && m_measure.isPossible();
}

bool CScreenView::focusNextPrevChild(bool next)
{
    return next ? false : QGraphicsView::focusNextPrevChild(next); // Tab goes through the items
}

void CScreenView::keyPressEvent(QKeyEvent *event)
{
    const bool isShiftAlone = event->modifiers() == Qt::ShiftModifier;
    const CEditorState &state = *CEditorState::instance();
    const int step = isShiftAlone ? state.fineNudgeStep() : state.nudgeStep();
    if (isPointerHeld()) {
        if (event->key() == Qt::Key_Escape) {
            m_scene->cancelGesture();
            m_guides->cancel();
            cancelRubberBand();
            m_altPress.reset();
        }
        followControl(*event);
        event->accept();
        return;
    }
    if (m_guides->hasChosen() && event->matches(QKeySequence::Delete)) {
        m_guides->removeChosen();
        event->accept();
        return;
    }
    if (mayMeasure(*event))
        m_measure.show(viewport()->mapFromGlobal(QCursor::pos()));
    else
        m_measure.hide();
    switch (event->key()) {
    case Qt::Key_Left:
        return m_commands->nudge(-step, 0);
    case Qt::Key_Right:
        return m_commands->nudge(step, 0);
    case Qt::Key_Up:
        return m_commands->nudge(0, -step);
    case Qt::Key_Down:
        return m_commands->nudge(0, step);
    case Qt::Key_Tab:
        if (isShiftAlone) {
            event->ignore();
            return;
        }
        showNext();
        event->accept();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_commands->enterGroup();
        event->accept();
        return;
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            m_pan.setReady(true);
        event->accept();
        return;
    default:
        break;
    }
    QGraphicsView::keyPressEvent(event); // the focused item may know it
    event->ignore();
}

/// Control lets go of what is snapped to, also while the pointer rests.
void CScreenView::followControl(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_Control && !event.isAutoRepeat())
        m_scene->followModifiers(event.modifiers());
}

void CScreenView::keyReleaseEvent(QKeyEvent *event)
{
    followControl(*event);
    if (event->key() == Qt::Key_Alt)
        m_measure.hide();
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        m_pan.setReady(false);
        event->accept();
        return;
    }
    QGraphicsView::keyReleaseEvent(event);
}

void CScreenView::showNext()
{
    if (const CItemView *next = m_scene->viewOf(m_commands->selectNext()))
        ensureVisible(next->sceneRect());
}

// --- mouse ---

/// Something is dragged, or may be with the next move. Until it is over, no other button, key or
/// menu reaches the items, but for the key that breaks it off.
bool CScreenView::isPointerHeld() const
{
    return m_leftHeld || m_pan.isActive() || isGestureActive();
}

void CScreenView::selectUnder(const QPoint &position)
{
    const QList<CItemView *> views =
        m_scene->selectableViewsAt(mapToScene(position), viewportTransform());
    for (const CItemView *view : views) {
        if (view->isSelected())
            return; // a menu for several items
    }
    m_scene->chooseModelItems(views.isEmpty() ? QVector<CItemModel *>()
                                              : QVector<CItemModel *>{views.constFirst()->item()});
}

/// Each time the next item behind the selected one, and then the front one again.
void CScreenView::selectCovered(const QPoint &position)
{
    const QList<CItemView *> views =
        m_scene->selectableViewsAt(mapToScene(position), viewportTransform());
    if (views.isEmpty())
        return;
    int next = 0;
    for (int index = 0; index < views.size(); ++index) {
        if (views.at(index)->isSelected())
            next = (index + 1) % views.size();
    }
    m_scene->chooseModelItems({views.at(next)->item()});
}

void CScreenView::cancelRubberBand()
{
    if (rubberBandRect().isEmpty())
        return;
    const QPoint position = viewport()->mapFromGlobal(QCursor::pos());
    QMouseEvent lifted(QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QGraphicsView::mouseMoveEvent(&lifted); // a rubber band ends when no button is held
    m_scene->chooseModelItems(m_selectedAtPress);
}

void CScreenView::mousePressEvent(QMouseEvent *event)
{
    m_measure.hide();
    if (isPointerHeld() && !m_pan.isActive() &&
        (event->button() == Qt::LeftButton || !event->buttons().testFlag(Qt::LeftButton)))
        dropGesture();
    if (m_guides->isHeld())
        m_guides->press(*event); // breaks it off
    if (isPointerHeld())
        return;
    m_selectedAtPress = selectedItems();
    if (m_pan.press(*event) || m_guides->press(*event))
        return;
    m_leftHeld = event->button() == Qt::LeftButton;
    if (event->button() == Qt::RightButton) {
        selectUnder(event->pos());
        return;
    }
    const bool isOnHandle =
        m_scene->handleAt(mapToScene(event->pos()), viewportTransform()) != nullptr;
    m_altPress.reset();
    if (m_leftHeld && event->modifiers() == Qt::AltModifier && !isOnHandle) {
        m_altPress = event->pos();
        if (m_scene->selectableViewsAt(mapToScene(event->pos()), viewportTransform()).isEmpty())
            return; // nothing to be copied or chosen
    }
    if (event->modifiers() == Qt::ShiftModifier && !isOnHandle &&
        m_scene->selectableViewsAt(mapToScene(event->pos()), viewportTransform()).isEmpty()) {
        QMouseEvent adding(event->type(), event->localPos(), event->windowPos(), event->screenPos(),
                           event->button(), event->buttons(), Qt::ControlModifier);
        QGraphicsView::mousePressEvent(&adding); // a rubber band knows only Control
        return;
    }
    QGraphicsView::mousePressEvent(event);
    if (m_scene
            ->isBandOnLocked()) // the band has cleared the selection; without a drag it is a click
        selectUnder(event->pos());
}

void CScreenView::reportPointer(const QPoint &position)
{
    const QPointF scenePos = mapToScene(position);
    Q_EMIT mouseMovedSC(QPoint(static_cast<int>(std::floor(scenePos.x())),
                               static_cast<int>(std::floor(scenePos.y()))));
}

void CScreenView::mouseMoveEvent(QMouseEvent *event)
{
    reportPointer(event->pos());
    if (m_pan.move(*event))
        return;
    if (m_pan.isReady() && event->buttons() == Qt::NoButton)
        return; // the cursors of items would take the hand for their ground and put it back later
    if (isPointerHeld() && !event->buttons().testFlag(Qt::LeftButton))
        dropGesture();
    if (event->buttons() == Qt::NoButton && event->modifiers() == Qt::AltModifier)
        m_measure.show(event->pos());
    else
        m_measure.hide();
    if (m_guides->move(*event))
        return;
    QGraphicsView::mouseMoveEvent(event);
}

/// For items, and their cursors, the pointer is elsewhere now.
void CScreenView::leaveItems()
{
    constexpr double away = -1e6;
    QMouseEvent left(QEvent::MouseMove, QPointF(away, away), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QGraphicsView::mouseMoveEvent(&left);
}

/// The button was released where the view has not heard of it.
void CScreenView::dropGesture()
{
    m_leftHeld = false;
    m_guides->cancel();
    m_guides->drop();
    m_scene->cancelGesture();
    if (QGraphicsItem *grabber = m_scene->mouseGrabberItem())
        grabber->ungrabMouse();
}

void CScreenView::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_pan.release(*event))
        return;
    if (event->button() == Qt::RightButton || m_guides->release(*event))
        return;
    if (event->button() == Qt::LeftButton)
        m_leftHeld = false;
    const bool isAltClick = m_altPress && !isGestureActive();
    const bool isDoubleClick = std::exchange(m_isDoubleClick, false) && !isGestureActive();
    QGraphicsView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && isDoubleClick)
        m_commands->enterGroupAt(mapToScene(event->pos()));
    if (event->button() == Qt::LeftButton && isAltClick)
        selectCovered(*m_altPress);
}

void CScreenView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (!isPointerHeld() && m_guides->doubleClick(*event))
        return;
    mousePressEvent(event); // two quick presses are two presses
    m_isDoubleClick = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
}

void CScreenView::leaveEvent(QEvent *event)
{
    QGraphicsView::leaveEvent(event);
    m_guides->leave();
    m_measure.hide();
    m_scene->hideTarget();
    Q_EMIT pointerLeft();
}

void CScreenView::focusOutEvent(QFocusEvent *event)
{
    if (m_leftHeld || m_guides->isHeld()) { // whatever has the keys now may change the items
        cancelRubberBand();
        dropGesture();
    }
    QGraphicsView::focusOutEvent(event);
    m_measure.hide();
    m_pan.setReady(false); // the release of the key will go elsewhere
}

void CScreenView::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        event->accept();
        m_zoom->step(event->position().toPoint(), event->angleDelta().y());
        return;
    }
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        QWheelEvent plain(event->position(), event->globalPosition(), event->pixelDelta(),
                          event->angleDelta(), event->buttons(),
                          event->modifiers() & ~Qt::ShiftModifier, event->phase(),
                          event->inverted(), event->source());
        QCoreApplication::sendEvent(horizontalScrollBar(), &plain);
        event->accept();
        return;
    }
    QGraphicsView::wheelEvent(event);
}

void CScreenView::dragEnterEvent(QDragEnterEvent *event)
{
    event->setAccepted(CItemDrop::isWelcome(*event->mimeData()));
}

void CScreenView::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(CItemDrop::isWelcome(*event->mimeData()));
    reportPointer(event->pos());
    if (event->isAccepted())
        m_drop->showPlace(*event->mimeData(), mapToScene(event->pos()), event->keyboardModifiers());
}

void CScreenView::dragLeaveEvent(QDragLeaveEvent *event)
{
    m_drop->hidePlace();
    event->accept();
}

void CScreenView::dropEvent(QDropEvent *event)
{
    m_drop->hidePlace();
    if (m_drop->drop(*event->mimeData(), mapToScene(event->pos()), m_graphicsMemory,
                     event->keyboardModifiers()))
        event->acceptProposedAction();
    else
        event->ignore();
    setFocus();
}

void CScreenView::contextMenuEvent(QContextMenuEvent *event)
{
    if (isPointerHeld() || m_guides->showMenu(*event))
        return;
    QMenu menu(this);
    m_commands->addTo(&menu);
    Q_EMIT menuAboutToShow(&menu);
    menu.exec(event->globalPos());
}
