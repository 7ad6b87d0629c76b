#include "CViewZoom.h"

#include "CZoomComboWidget.h"
#include "ZoomRule.h"

#include <QGraphicsView>
#include <QScrollBar>

namespace {
constexpr int Margin = 48; ///< screen pixels about the screen that can be scrolled to

void scrollBy(QGraphicsView &view, double across, double down)
{
    QScrollBar *horizontal = view.horizontalScrollBar();
    horizontal->setValue(horizontal->value() + static_cast<int>(across));
    QScrollBar *vertical = view.verticalScrollBar();
    vertical->setValue(vertical->value() + static_cast<int>(down));
}
} // namespace

CViewZoom::CViewZoom(QGraphicsView *view) : QObject(view), m_view(view)
{
}

bool CViewZoom::isFree() const
{
    return m_type == CZoomComboWidget::FreeValue;
}

int CViewZoom::fitted(int percent) const
{
    const QSizeF scene = m_view->scene()->sceneRect().size();
    if (m_type == CZoomComboWidget::FitToPage)
        return ZoomRule::pageFit(m_view->size(), scene);
    if (m_type == CZoomComboWidget::FitToWidth) {
        const QScrollBar *bar = m_view->verticalScrollBar();
        return ZoomRule::widthFit(m_view->width(), bar->isVisible() ? bar->width() : 0,
                                  scene.width());
    }
    return percent;
}

void CViewZoom::set(int percent, int type)
{
    if (m_view->isVisible() && (percent != m_percent || type != m_type))
        remember();
    if (type != m_type) {
        m_type = type;
        const bool page = type == CZoomComboWidget::FitToPage;
        const bool width = type == CZoomComboWidget::FitToWidth;
        if (page || width)
            m_beside = QRectF();
        m_view->setHorizontalScrollBarPolicy(page || width ? Qt::ScrollBarAlwaysOff
                                                           : Qt::ScrollBarAsNeeded);
        m_view->setVerticalScrollBarPolicy(page ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
        updateMargins();
        percent = fitted(percent);
    }
    if (m_view->isVisible())
        apply(percent);
    m_percent = isFree() ? ZoomRule::clamped(percent) : percent;
}

/// The turns of a wheel follow each other quickly, and a fit tells its percentage afterwards.
void CViewZoom::remember()
{
    constexpr int OneChange = 700; // milliseconds
    if (!m_sinceChange.isValid() || m_sinceChange.elapsed() > OneChange)
        m_previous =
            SPlace{m_percent, m_type, m_view->mapToScene(m_view->viewport()->rect().center())};
    m_sinceChange.start();
}

std::optional<CViewZoom::SPlace> CViewZoom::previous()
{
    m_sinceChange.invalidate();
    return m_previous;
}

void CViewZoom::fit()
{
    apply(fitted(m_percent));
}

void CViewZoom::sceneResized()
{
    updateMargins();
    set(fitted(m_percent), m_type);
}

void CViewZoom::step(const QPoint &position, int angleDelta)
{
    if (!isFree())
        return;
    const QPointF under = m_view->mapToScene(position);
    const QPoint before = m_view->mapFromScene(under);
    remember();
    scaleTo(ZoomRule::wheelStep(m_percent, angleDelta));
    const QPoint by = m_view->mapFromScene(under) - before;
    scrollBy(*m_view, by.x(), by.y());
    Q_EMIT moved();
}

/// About the scene point in the middle of the view, also while all of the screen is in sight and
/// nothing can be scrolled yet.
void CViewZoom::apply(int percent)
{
    const QWidget *viewport = m_view->viewport();
    const QPointF middle(viewport->width() * 0.5, viewport->height() * 0.5);
    const QPointF centre = m_view->viewportTransform().inverted().map(middle);
    scaleTo(percent);
    const QPointF by = m_view->viewportTransform().map(centre) - middle;
    scrollBy(*m_view, by.x(), by.y());
    Q_EMIT moved();
}

void CViewZoom::scaleTo(int percent)
{
    if (isFree())
        percent = ZoomRule::clamped(percent);
    if (percent <= 0) // a view without an area
        return;
    const double factor = percent / (m_view->transform().m11() * 100);
    m_view->scale(factor, factor);
    updateMargins();
    Q_EMIT scaled(m_view->transform().m11());
    if (percent == m_percent)
        return;
    m_percent = percent;
    Q_EMIT changed(percent, m_type);
}

void CViewZoom::reveal(const QRectF &part)
{
    const QRectF screen = m_view->scene()->sceneRect();
    const bool isOn = screen.contains(part.topLeft()) && screen.contains(part.bottomRight());
    if (!isOn && !isFree()) { // what is shown no longer is the page that was fitted
        set(m_percent, CZoomComboWidget::FreeValue);
        Q_EMIT changed(m_percent, m_type);
    }
    m_beside = isOn ? QRectF() : part.adjusted(0, 0, 1, 1); // not empty
    updateMargins();
    m_view->ensureVisible(part);
    Q_EMIT moved();
}

/// Lets the free zoom scroll a little beyond the screen, where handles may lie.
void CViewZoom::updateMargins()
{
    const double margin = isFree() ? Margin / m_view->transform().m11() : 0;
    const double beside = Margin / m_view->transform().m11();
    QRectF rect = m_view->scene()->sceneRect().adjusted(-margin, -margin, margin, margin);
    if (!m_beside.isNull())
        rect |= m_beside.adjusted(-beside, -beside, beside, beside);
    m_view->setSceneRect(rect);
}
