#include "CGuideTool.h"

#include "CEditorState.h"
#include "CGuideEdits.h"
#include "CGuideMenu.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "GuideLook.h"
#include "GuideRule.h"
#include "SnapReferences.h"

#include <QContextMenuEvent>
#include <QGraphicsView>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <cmath>

namespace {
constexpr double Reach = 5;     ///< screen pixels
constexpr int DragDistance = 3; ///< screen pixels, as for items
constexpr int CoarseStep = 10;  ///< scene units, while Shift is held
constexpr int Repainted = 4;    ///< screen pixels to either side of a guide

Qt::CursorShape cursorFor(Qt::Orientation guide)
{
    return guide == Qt::Vertical ? Qt::SplitHCursor : Qt::SplitVCursor;
}
} // namespace

CGuideTool::CGuideTool(CScreenModel *screen, QGraphicsView *view, ItemsKeep itemsKeep)
    : QObject(view),
      m_screen(screen),
      m_view(view),
      m_menu(new CGuideMenu(screen, view)),
      m_itemsKeep(std::move(itemsKeep))
{
    connect(screen->project(), &CProjectModel::guidesChanged, this, &CGuideTool::onGuidesChanged);
    connect(CEditorState::instance(), &CEditorState::guidesShownChanged, this, [this] {
        chooseNone();
        setHover(-1);
        updateAll();
    });
}

void CGuideTool::detach()
{
    if (m_screen)
        m_screen->project()->disconnect(this);
    CEditorState::instance()->disconnect(this);
    m_drag.reset();
    m_hover = m_chosen = -1;
    m_screen = nullptr;
    m_menu->detach();
}

/// What others have changed need not be where it was.
void CGuideTool::onGuidesChanged(CScreenModel *screen)
{
    if (screen != m_screen)
        return;
    cancel();
    setHover(-1);
    m_chosen = -1;
    updateAll();
}

int CGuideTool::guideAt(const QPoint &place, bool isWithLocked) const
{
    if (!m_screen || !CEditorState::instance()->areGuidesShown())
        return -1;
    const GuideRule::SHit hit =
        GuideRule::at(m_screen->guides(), place, m_view->viewportTransform(), Reach, isWithLocked);
    if (hit.index < 0)
        return -1;
    const SScreenGuide &guide = m_screen->guides().at(hit.index);
    // A locked one is only for menus, and for those where there is nothing else.
    const double distance = guide.isLocked ? Reach : hit.distance;
    return m_itemsKeep(place, guide.orientation, distance) ? -1 : hit.index;
}

void CGuideTool::updateLine(const SScreenGuide &guide) const
{
    const int pixel = static_cast<int>(GuideRule::pixelOf(guide, m_view->viewportTransform()));
    QRect strip = m_view->viewport()->rect();
    if (guide.orientation == Qt::Vertical)
        strip.setRect(pixel - Repainted, 0, 2 * Repainted + 1, strip.height());
    else
        strip.setRect(0, pixel - Repainted, strip.width(), 2 * Repainted + 1);
    m_view->viewport()->update(strip);
}

void CGuideTool::updateAll() const
{
    m_view->viewport()->update();
}

void CGuideTool::setHover(int index)
{
    if (index == m_hover)
        return;
    QWidget *viewport = m_view->viewport();
    if (m_hover < 0)
        Q_EMIT hovered(); // who puts cursors back does so now
    if (index >= 0) {
        viewport->setCursor(cursorFor(m_screen->guides().at(index).orientation));
    } else {
        viewport->unsetCursor();
    }
    for (const int each : {m_hover, index}) {
        if (each >= 0 && each < m_screen->guides().size()) // what was hot may be gone
            updateLine(m_screen->guides().at(each));
    }
    m_hover = index;
}

void CGuideTool::choose(int index)
{
    m_chosen = index;
    updateAll();
    if (index >= 0)
        Q_EMIT chosen();
}

void CGuideTool::chooseNone()
{
    if (m_chosen >= 0)
        choose(-1);
}

void CGuideTool::removeChosen()
{
    if (m_screen && m_chosen >= 0 && !m_screen->guides().at(m_chosen).isLocked)
        CGuideEdits(m_screen).remove(m_chosen);
}

bool CGuideTool::press(const QMouseEvent &event)
{
    if (m_drag) { // another button
        cancel();
        return true;
    }
    chooseNone();
    const bool isMenu = event.button() == Qt::RightButton;
    if ((!isMenu && event.button() != Qt::LeftButton) || event.modifiers() != Qt::NoModifier)
        return false;
    const int index = guideAt(event.pos(), isMenu);
    if (index < 0)
        return false;
    choose(index);
    if (isMenu)
        return true;
    hold(index, m_screen->guides().at(index));
    m_drag->press = event.pos();
    return true;
}

bool CGuideTool::move(const QMouseEvent &event)
{
    if (m_drag) {
        dragTo(event.pos(), event.modifiers());
        return true;
    }
    const bool isHover = event.buttons() == Qt::NoButton && event.modifiers() == Qt::NoModifier;
    setHover(isHover ? guideAt(event.pos()) : -1);
    return m_hover >= 0;
}

bool CGuideTool::release(const QMouseEvent &event)
{
    if (!m_drag)
        return false;
    if (event.button() == Qt::LeftButton)
        drop();
    return true;
}

bool CGuideTool::doubleClick(const QMouseEvent &event)
{
    const int index = event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier
                          ? guideAt(event.pos())
                          : -1;
    if (index < 0 || m_drag)
        return false;
    QTimer::singleShot(0, m_menu, [menu = m_menu, index] { menu->askPosition(index); });
    return true;
}

bool CGuideTool::showMenu(const QContextMenuEvent &event)
{
    const int index =
        event.reason() == QContextMenuEvent::Mouse ? guideAt(event.pos(), true) : m_chosen;
    if (index < 0)
        return false;
    QMenu menu(m_view);
    m_menu->fill(&menu, index);
    menu.exec(event.globalPos());
    return true;
}

void CGuideTool::leave()
{
    if (!m_drag)
        setHover(-1);
}

void CGuideTool::beginNew(Qt::Orientation ruler)
{
    if (!m_screen || m_drag)
        return;
    chooseNone();
    SScreenGuide guide;
    guide.orientation = ruler;
    hold(-1, guide);
    m_drag->isMoved = m_drag->isOver = true;
}

void CGuideTool::hold(int index, const SScreenGuide &guide)
{
    m_drag = SDrag();
    m_drag->index = index;
    m_drag->guide = guide;
    m_drag->references = SnapReferences::of(*m_screen, {});
}

int CGuideTool::positionAt(const QPoint &place, Qt::KeyboardModifiers modifiers) const
{
    const Qt::Orientation guide = m_drag->guide.orientation;
    const QTransform toView = m_view->viewportTransform();
    const int position = GuideRule::positionAt(guide, place, toView);
    if (modifiers.testFlag(Qt::ShiftModifier))
        return static_cast<int>(std::lround(double(position) / CoarseStep)) * CoarseStep;
    if (modifiers.testFlag(Qt::ControlModifier))
        return position;
    return GuideRule::snapped(guide, position, m_drag->references,
                              CEditorState::instance()->activeSnapKinds(), Reach / toView.m11());
}

void CGuideTool::dragTo(const QPoint &place, Qt::KeyboardModifiers modifiers)
{
    if (!m_drag || m_drag->isCancelled)
        return;
    if (!m_drag->isMoved && (place - m_drag->press).manhattanLength() < DragDistance)
        return;
    m_drag->isMoved = true;
    SScreenGuide &guide = m_drag->guide;
    updateLine(guide);
    m_drag->isOver = GuideRule::across(guide.orientation, place) < 0;
    guide.position = positionAt(place, modifiers);
    updateLine(guide);
    Q_EMIT reported(readout());
}

QString CGuideTool::readout() const
{
    if (m_drag->isOver)
        return m_drag->index < 0 ? tr("No guide") : tr("Delete guide");
    return (m_drag->guide.orientation == Qt::Vertical ? tr("X %1") : tr("Y %1"))
        .arg(m_drag->guide.position);
}

void CGuideTool::drop()
{
    if (!m_drag)
        return;
    const SDrag drag = *m_drag; // over from here on
    m_drag.reset();
    updateAll();
    Q_EMIT ended();
    if (drag.isCancelled || !drag.isMoved)
        return;
    const CGuideEdits edits(m_screen);
    if (drag.index < 0 && !drag.isOver) {
        CEditorState::instance()->setGuidesShown(true);
        choose(edits.add(drag.guide));
    } else if (drag.index >= 0 && drag.isOver) {
        edits.remove(drag.index);
    } else if (drag.index >= 0) {
        edits.move(drag.index, drag.guide.position);
        choose(drag.index);
    }
}

void CGuideTool::cancel()
{
    if (!m_drag || m_drag->isCancelled)
        return;
    m_drag->isCancelled = true;
    updateAll();
    Q_EMIT ended();
}

void CGuideTool::paint(QPainter &painter) const
{
    if (!m_screen)
        return;
    painter.save();
    painter.resetTransform(); // from here on in pixels of the view
    const QTransform toView = m_view->viewportTransform();
    const QSizeF size = m_view->viewport()->size();
    const auto paintOne = [&](const SScreenGuide &guide, bool isHot) {
        GuideLook::paint(painter, guide, isHot ? GuideLook::EState::Hot : GuideLook::EState::Quiet,
                         GuideRule::pixelOf(guide, toView), size);
    };
    const bool isDragged = m_drag && m_drag->isMoved && !m_drag->isCancelled;
    const ScreenGuideList guides =
        CEditorState::instance()->areGuidesShown() ? m_screen->guides() : ScreenGuideList();
    for (int index = 0; index < guides.size(); ++index) {
        if (!isDragged || index != m_drag->index)
            paintOne(guides.at(index), index == m_hover || index == m_chosen);
    }
    if (isDragged && !m_drag->isOver)
        paintOne(m_drag->guide, true);
    painter.restore();
}
