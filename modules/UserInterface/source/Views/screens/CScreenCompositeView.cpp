#include "CScreenCompositeView.h"

#include "CGuideTool.h"
#include "CProjectModel.h"
#include "CRuler.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "ItemGeometry.h"
#include "ItemTree.h"

#include <QGridLayout>

CScreenCompositeView::CScreenCompositeView(CScreenModel *screen, QWidget *parent)
    : QWidget(parent),
      m_view(new CScreenView(screen, this)),
      m_horizontalRuler(new CRuler(Qt::Horizontal, this)),
      m_verticalRuler(new CRuler(Qt::Vertical, this)),
      m_request(nullptr, CFrameRequest::EHidden::LeftOut)
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_horizontalRuler, 0, 1);
    layout->addWidget(m_verticalRuler, 1, 0);
    layout->addWidget(m_view, 1, 1);
    setFocusProxy(m_view);
    connectRuler(m_horizontalRuler, Qt::Horizontal);
    connectRuler(m_verticalRuler, Qt::Vertical);

    connect(m_view, &CScreenView::frameWanted, this, &CScreenCompositeView::requestFrame);
    connect(m_view, &CScreenView::viewportMoved, this, &CScreenCompositeView::updateRulers);
    connect(m_view, &CScreenView::mouseMovedSC, this, &CScreenCompositeView::showPointer);
    connect(m_view, &CScreenView::pointerLeft, this, &CScreenCompositeView::hidePointer);
    connect(m_view->screenScene(), &QGraphicsScene::selectionChanged, this,
            &CScreenCompositeView::updateExtent);
    connect(m_view->screenScene(), &CScreenScene::selectionShown, this,
            &CScreenCompositeView::updateExtent);
    connect(&m_request, &CFrameRequest::aboutToAsk, this, &CScreenCompositeView::beforeRequest);
    connect(&m_request, &CFrameRequest::displayListTaken, this,
            &CScreenCompositeView::showDisplayList);
    connect(&m_request, &CFrameRequest::frameTaken, this, &CScreenCompositeView::showFrame);
    connect(&m_exportedSize, &CExportedSize::known, m_view, &CScreenView::setMemoryUsage);
}

CScreenCompositeView::~CScreenCompositeView()
{
    detach();
}

void CScreenCompositeView::connectRuler(CRuler *ruler, Qt::Orientation orientation)
{
    CGuideTool *guides = m_view->guides();
    connect(ruler, &CRuler::pressed, this, [this, guides, orientation] {
        m_view->setFocus(Qt::MouseFocusReason); // whose keys break it off
        guides->beginNew(orientation);
    });
    connect(ruler, &CRuler::dragged, this,
            [this, guides](const QPoint &place, Qt::KeyboardModifiers modifiers) {
                guides->dragTo(m_view->viewport()->mapFromGlobal(place), modifiers);
            });
    connect(ruler, &CRuler::released, guides, &CGuideTool::drop);
    connect(ruler, &CRuler::cancelled, guides, &CGuideTool::cancel);
}

CScreenModel *CScreenCompositeView::screen() const
{
    return m_view->screen();
}

void CScreenCompositeView::detach()
{
    m_request.withdraw();
    m_exportedSize.withdraw();
    m_view->disconnect(this);
    m_view->screenScene()->disconnect(this);
    m_view->detach();
}

void CScreenCompositeView::requestFrame()
{
    if (m_request.isDue() || !isVisible())
        return;
    if (m_view->isGestureActive() && CFrameRequest::isPossible())
        m_view->awaitFrame();
    m_request.askSoon(screen());
}

void CScreenCompositeView::beforeRequest()
{
    updateExtent();
    if (!isVisible())
        m_request.withdraw();
}

void CScreenCompositeView::showDisplayList(const QString &text, const QByteArray &bytes,
                                           const QString &errors)
{
    m_view->setDisplayList(text, bytes);
    if (errors != m_errors) { // not again with every move of the pointer
        m_errors = errors;
        Q_EMIT renderErrors(screen(), errors);
    }
}

void CScreenCompositeView::showFrame(const QPixmap &frame, size_t displayList,
                                     size_t graphicsMemory)
{
    const auto isHidden = [](const CItemModel &each) { return each.isHidden(); };
    if (screen() && findItem(*screen(), isHidden)) {
        m_exportedSize.askSoon(screen()); // they take their place all the same
    } else {
        m_exportedSize.withdraw();
        m_view->setMemoryUsage(displayList, graphicsMemory);
    }
    if (!frame.isNull())
        m_view->setFrame(frame);
}

void CScreenCompositeView::updateRulers()
{
    const QPointF origin = m_view->viewportTransform().map(QPointF());
    m_horizontalRuler->setMapping(origin.x(), m_view->scale());
    m_verticalRuler->setMapping(origin.y(), m_view->scale());
}

void CScreenCompositeView::updateExtent()
{
    const QRectF extent = ItemGeometry::frameOf(m_view->selectedItems());
    m_horizontalRuler->setExtent(extent.left(), extent.right());
    m_verticalRuler->setExtent(extent.top(), extent.bottom());
}

void CScreenCompositeView::showPointer(const QPoint &position)
{
    m_horizontalRuler->setPointer(position.x());
    m_verticalRuler->setPointer(position.y());
}

void CScreenCompositeView::hidePointer()
{
    m_horizontalRuler->clearPointer();
    m_verticalRuler->clearPointer();
}
