#include "CScreenView.h"

#include "CEditorState.h"
#include "CFrameItem.h"
#include "CGestureReadout.h"
#include "CGuideTool.h"
#include "CItemDrop.h"
#include "CItemModel.h"
#include "CItemView.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CSelectionCommands.h"
#include "CViewZoom.h"
#include "ItemTree.h"
#include "PagePaint.h"
#include "SaveRenderHandler.h"

#include <QPainter>
#include <QTimer>

namespace {
constexpr int RestAfter = 150;  ///< milliseconds without a change
constexpr int LongestWait = 40; ///< milliseconds that a change is kept back for its frame
constexpr double GuideReachOnItems = 3;
constexpr double SmallForGuides = 12; ///< screen pixels across
} // namespace

CScreenView::CScreenView(CScreenModel *screen, QWidget *parent)
    : QGraphicsView(parent),
      m_scene(new CScreenScene(screen, this)),
      m_commands(new CSelectionCommands(m_scene, this)),
      m_drop(new CItemDrop(m_scene, this)),
      m_zoom(new CViewZoom(this)),
      m_guides(
          new CGuideTool(screen, this,
                         [this](const QPoint &position, Qt::Orientation guide, double distance) {
                             return doItemsKeep(position, guide, distance);
                         })),
      m_measure(*m_scene, *this),
      m_pan(*this),
      m_restTimer(new QTimer(this)),
      m_waitTimer(new QTimer(this)),
      m_readout(new CGestureReadout(viewport()))
{
    setScene(m_scene);
    setFrameShape(NoFrame);
    setDragMode(RubberBandDrag);
    setAcceptDrops(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setTransformationAnchor(NoAnchor);
    setResizeAnchor(AnchorViewCenter); // a new view gets its size only after it is shown
    setViewportUpdateMode(BoundingRectViewportUpdate);
    m_restTimer->setSingleShot(true);
    m_restTimer->setInterval(RestAfter);
    connect(m_restTimer, &QTimer::timeout, this, &CScreenView::showAtRest);
    m_waitTimer->setSingleShot(true);
    m_waitTimer->setInterval(LongestWait);
    connect(m_waitTimer, &QTimer::timeout, this, &CScreenView::paintAgain);
    connectScene();
    connectCommands();
    connectGuides();

    CEditorState *state = CEditorState::instance();
    connect(m_zoom, &CViewZoom::scaled, this, &CScreenView::becomeBusy);
    connect(m_zoom, &CViewZoom::scaled, this, &CScreenView::scaleChanged);
    connect(m_zoom, &CViewZoom::moved, this, &CScreenView::viewportMoved);
    connect(m_zoom, &CViewZoom::changed, this, [this](int percent, int type) {
        Q_EMIT zoomChanged(percent);
        Q_EMIT zoomChanged(percent, type);
    });
    connect(state, &CEditorState::zoomChanged, this, &CScreenView::zoom);
    connect(this, QOverload<int, int>::of(&CScreenView::zoomChanged), state,
            &CEditorState::setZoom);
    zoom(state->zoomPercent(), state->zoomType());
}

CScreenView::~CScreenView()
{
    detach();
}

void CScreenView::connectScene()
{
    connect(m_scene, &CScreenScene::gestureReported, this, &CScreenView::showReadout);
    connect(m_scene, &CScreenScene::gestureEnded, m_readout, &QWidget::hide);
    connect(m_scene, &CScreenScene::itemsDragged, m_commands, &CSelectionCommands::moveDragged);
    connect(m_scene, &CScreenScene::contentChanged, this, &CScreenView::frameWanted);
    const auto stopMeasuring = [this] { m_measure.hide(); };
    connect(m_scene, &CScreenScene::contentChanged, this, stopMeasuring);
    connect(m_scene, &QGraphicsScene::selectionChanged, this, stopMeasuring);
    connect(m_scene, &CScreenScene::selectionShown, this, stopMeasuring);
    connect(m_scene, &CScreenScene::itemsChanged, this, &CScreenView::reportCounts);
}

void CScreenView::connectCommands()
{
    connect(m_commands, &CSelectionCommands::message, this, &CScreenView::message);
    connect(m_commands, &CSelectionCommands::moveWanted, this, &CScreenView::itemMoved);
    connect(this, &CScreenView::itemMoved, this, &CScreenView::itemsMoved);
    connect(m_drop, &CItemDrop::message, this, &CScreenView::message);
    connect(m_drop, &CItemDrop::dropped, m_scene, &CScreenScene::chooseModelItems);
    connect(m_drop, &CItemDrop::movesWanted, m_commands, &CSelectionCommands::moveAll);
}

void CScreenView::connectGuides()
{
    connect(m_guides, &CGuideTool::reported, this, &CScreenView::showReadout);
    connect(m_guides, &CGuideTool::ended, m_readout, &QWidget::hide);
    connect(m_guides, &CGuideTool::hovered, this, &CScreenView::leaveItems);
    connect(m_guides, &CGuideTool::chosen, m_scene, [this] { m_scene->chooseModelItems({}); });
    const auto yield = [this] {
        if (!m_scene->selectedItems().isEmpty())
            m_guides->chooseNone();
    };
    connect(m_scene, &QGraphicsScene::selectionChanged, m_guides, yield);
    connect(m_scene, &CScreenScene::selectionShown, m_guides, yield);
}

/// A guide must not bury what it lies on: handles keep their presses, and so do items that are
/// hardly wider than the reach of the guide, which can be taken elsewhere.
bool CScreenView::doItemsKeep(const QPoint &position, Qt::Orientation guide, double distance) const
{
    const QPointF place = mapToScene(position);
    if (m_scene->handleAt(place, viewportTransform()))
        return true;
    const QList<CItemView *> views = m_scene->selectableViewsAt(place, viewportTransform());
    if (views.isEmpty())
        return false;
    const QSizeF size = views.constFirst()->sceneRect().size() * scale();
    return distance > GuideReachOnItems ||
           (guide == Qt::Vertical ? size.width() : size.height()) < SmallForGuides;
}

CScreenModel *CScreenView::screen() const
{
    return m_scene->screen();
}

void CScreenView::detach()
{
    m_restTimer->stop();
    m_readout->hide();
    m_drop->hidePlace();
    disconnect(CEditorState::instance(), nullptr, this, nullptr);
    m_scene->disconnect(this);
    m_guides->detach();
    m_measure.hide();
    m_scene->detach();
}

int CScreenView::zoomPercent() const
{
    return m_zoom->percent();
}

void CScreenView::showPreviousZoom()
{
    const auto previous = m_zoom->previous();
    if (!previous)
        return;
    CEditorState::instance()->setZoom(previous->percent, previous->type);
    centerOn(previous->centre);
}

bool CScreenView::hasPreviousZoom() const
{
    return m_zoom->hasPrevious();
}

bool CScreenView::isGestureActive() const
{
    return m_scene->isGestureActive() || m_guides->isHeld();
}

void CScreenView::setFrame(const QPixmap &frame)
{
    m_scene->setFrame(frame);
    becomeBusy();
    paintAgain();
    if (isVisible())
        viewport()->update();
}

void CScreenView::awaitFrame()
{
    viewport()->setUpdatesEnabled(false);
    if (!m_waitTimer->isActive()) // counts from the first change that is not seen
        m_waitTimer->start();
}

void CScreenView::paintAgain()
{
    m_waitTimer->stop();
    viewport()->setUpdatesEnabled(true);
}

void CScreenView::setMemoryUsage(size_t displayListBytes, size_t graphicsMemoryBytes)
{
    m_graphicsMemory = graphicsMemoryBytes;
    Q_EMIT memoryUsageChanged(displayListBytes, graphicsMemoryBytes);
}

QString CScreenView::lastDisplayListText() const
{
    return SaveRenderHandler::oneCommandPerLine(m_displayListText);
}

void CScreenView::setDisplayList(const QString &text, const QByteArray &bytes)
{
    m_displayListText = text;
    m_displayListBytes = bytes;
}

void CScreenView::reportCounts()
{
    if (!screen())
        return;
    const SItemCounts counts = countItems(*screen());
    Q_EMIT widgetDropped(counts.widgets);
    Q_EMIT bitmapDropped(counts.bitmaps);
    Q_EMIT hiddenCounted(counts.hidden);
}

void CScreenView::placeInMiddle(const QString &type)
{
    if (!screen())
        return;
    const QRectF seen = mapToScene(viewport()->rect()).boundingRect();
    const QRectF room = seen & m_scene->sceneRect();
    m_drop->place(type, room.isEmpty() ? m_scene->sceneRect() : room, m_graphicsMemory);
    setFocus();
}

void CScreenView::updateRepaint()
{
    if (!screen())
        return;
    const QRectF rect(QPointF(), QSizeF(screen()->project()->resolution()));
    if (rect != m_scene->sceneRect()) {
        m_scene->setSceneRect(rect);
        m_zoom->sceneResized();
    }
    Q_EMIT frameWanted();
    viewport()->update();
}

void CScreenView::showReadout(const QString &text)
{
    m_readout->showAt(viewport()->mapFromGlobal(QCursor::pos()), text);
}

void CScreenView::zoom(int percent, int type)
{
    m_zoom->set(percent, type);
}

void CScreenView::reveal(const QRectF &part)
{
    m_zoom->reveal(part);
}

void CScreenView::becomeBusy()
{
    if (CFrameItem *frame = m_scene->frameItem())
        frame->setAtRest(false);
    m_restTimer->start();
}

void CScreenView::showAtRest()
{
    if (CFrameItem *frame = m_scene->frameItem())
        frame->setAtRest(true);
}

void CScreenView::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    if (!m_zoom->isFree() && isVisible())
        m_zoom->fit();
    Q_EMIT viewportMoved();
    Q_EMIT resized();
}

void CScreenView::showEvent(QShowEvent *event)
{
    QGraphicsView::showEvent(event);
    m_zoom->fit();
    if (resizeAnchor() == AnchorViewCenter)
        centerOn(m_scene->sceneRect().center());
    Q_EMIT frameWanted();
    viewport()->update();
    reportCounts();
}

void CScreenView::paintEvent(QPaintEvent *event)
{
    setResizeAnchor(NoAnchor); // what has been seen stays where it is
    QGraphicsView::paintEvent(event);
}

void CScreenView::scrollContentsBy(int dx, int dy)
{
    m_measure.hide();
    QGraphicsView::scrollContentsBy(dx, dy);
    Q_EMIT viewportMoved();
}

void CScreenView::drawBackground(QPainter *painter, const QRectF &rect)
{
    const QColor colour =
        screen() ? QColor(screen()->propertyText(QStringLiteral("color"))) : QColor(Qt::black);
    PagePaint::draw(*painter, rect, {m_scene->sceneRect(), colour, palette(), 1 / scale()});
    QGraphicsView::drawBackground(painter, rect);
}

void CScreenView::drawForeground(QPainter *painter, const QRectF &rect)
{
    painter->save();
    QGraphicsView::drawForeground(painter, rect);
    painter->restore();
    m_guides->paint(*painter);
    m_measure.paint(*painter);
}

QVector<CItemModel *> CScreenView::selectedItems() const
{
    return m_commands->selectedItems();
}

void CScreenView::copy()
{
    m_commands->copy();
}

void CScreenView::paste()
{
    m_commands->paste();
}

void CScreenView::cut()
{
    m_commands->cut();
}

void CScreenView::orderingToFront()
{
    m_commands->toFront();
}

void CScreenView::orderingToBack()
{
    m_commands->toBack();
}

void CScreenView::orderingForward()
{
    m_commands->forward();
}

void CScreenView::orderingBackward()
{
    m_commands->backward();
}

void CScreenView::lockItems()
{
    m_commands->toggleLock();
}

void CScreenView::group()
{
    m_commands->group();
}

void CScreenView::ungroup()
{
    m_commands->ungroup();
}

void CScreenView::itemsMoved(CItemModel *item, QPointF, QPointF newPosition)
{
    m_commands->move(item, newPosition);
}
