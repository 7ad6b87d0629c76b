#include "CScreenCompositeView.h"

#include "CEmulatorAdapter.h"
#include "CProjectModel.h"
#include "CRuler.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CScreenView.h"
#include "ItemGeometry.h"

#include <QGridLayout>

CScreenCompositeView::CScreenCompositeView(CScreenModel *screen, QWidget *parent)
    : QWidget(parent),
      m_view(new CScreenView(screen, this)),
      m_horizontalRuler(new CRuler(Qt::Horizontal, this)),
      m_verticalRuler(new CRuler(Qt::Vertical, this))
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_horizontalRuler, 0, 1);
    layout->addWidget(m_verticalRuler, 1, 0);
    layout->addWidget(m_view, 1, 1);
    setFocusProxy(m_view);

    connect(m_view, &CScreenView::frameWanted, this, &CScreenCompositeView::requestFrame);
    connect(m_view, &CScreenView::viewportMoved, this, &CScreenCompositeView::updateRulers);
    connect(m_view, &CScreenView::mouseMovedSC, this, &CScreenCompositeView::showPointer);
    connect(m_view, &CScreenView::pointerLeft, this, &CScreenCompositeView::hidePointer);
    connect(m_view->screenScene(), &QGraphicsScene::selectionChanged, this,
            &CScreenCompositeView::updateExtent);
    connect(m_view->screenScene(), &CScreenScene::selectionShown, this,
            &CScreenCompositeView::updateExtent);
    const CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
    connect(adapter, &CEmulatorAdapter::emulatorFrameCallback, this,
            &CScreenCompositeView::emulatorFrameCallback);
    connect(adapter, &CEmulatorAdapter::emulatorFrameDLCallback, this,
            &CScreenCompositeView::emulatorFrameDLCallback);
}

CScreenCompositeView::~CScreenCompositeView()
{
    detach();
}

CScreenModel *CScreenCompositeView::screen() const
{
    return m_view->screen();
}

void CScreenCompositeView::detach()
{
    CEmulatorAdapter::instance()->withdraw(this);
    CEmulatorAdapter::instance()->disconnect(this);
    m_view->disconnect(this);
    m_view->screenScene()->disconnect(this);
    m_view->detach();
}

void CScreenCompositeView::requestFrame()
{
    if (m_frameRequested || !isVisible())
        return;
    m_frameRequested = true;
    if (m_view->isGestureActive() && CEmulatorAdapter::instance()->isRegistered())
        m_view->awaitFrame();
    QMetaObject::invokeMethod(this, &CScreenCompositeView::render, Qt::QueuedConnection);
}

void CScreenCompositeView::render()
{
    m_frameRequested = false;
    if (!screen())
        return;
    updateExtent();
    if (isVisible())
        CEmulatorAdapter::instance()->renderForeground(screen(), this);
}

void CScreenCompositeView::emulatorFrameDLCallback(QString dlTextBuffer, QByteArray dlBinBuffer,
                                                   void *observer, size_t RAM_G_Usage,
                                                   char *errorMessages)
{
    if (observer != this || !screen())
        return;
    m_view->setDisplayList(dlTextBuffer, dlBinBuffer);
    m_graphicsMemory = RAM_G_Usage;
    const QString errors = QString::fromUtf8(errorMessages);
    if (errors != m_errors) { // not again with every move of the pointer
        m_errors = errors;
        Q_EMIT renderErrors(screen(), errors);
    }
}

void CScreenCompositeView::emulatorFrameCallback(bool output, QPixmap buffer, uint32_t, uint32_t,
                                                 void *observer, size_t RAM_DL_Usage)
{
    if (observer != this || !screen())
        return;
    m_view->setMemoryUsage(RAM_DL_Usage, m_graphicsMemory);
    if (output && !buffer.isNull())
        m_view->setFrame(buffer);
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
