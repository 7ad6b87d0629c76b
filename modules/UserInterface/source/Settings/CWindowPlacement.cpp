#include "CWindowPlacement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>

namespace {
int areaOf(const QRect &rect)
{
    return rect.isValid() ? rect.width() * rect.height() : 0;
}
} // namespace

CWindowPlacement::CWindowPlacement(QWidget *window) : QObject(window), m_window(window)
{
    m_window->installEventFilter(this);
}

QRect CWindowPlacement::placed(const QRect &wanted, const QMargins &frame,
                               const QVector<QRect> &screens)
{
    if (screens.isEmpty())
        return wanted;
    QRect screen = screens.first();
    for (const QRect &each : screens) {
        if (areaOf(each.intersected(wanted)) > areaOf(screen.intersected(wanted)))
            screen = each;
    }
    const QRect room = screen.marginsRemoved(frame);
    QRect placed(wanted.topLeft(), wanted.size().boundedTo(room.size()));
    placed.moveRight(qMin(placed.right(), room.right()));
    placed.moveBottom(qMin(placed.bottom(), room.bottom()));
    placed.moveLeft(qMax(placed.left(), room.left()));
    placed.moveTop(qMax(placed.top(), room.top()));
    return placed;
}

QVector<QRect> CWindowPlacement::screensOf(const QWidget &window)
{
    QVector<QRect> areas = {window.screen()->availableGeometry()};
    const auto screens = QGuiApplication::screens();
    for (const QScreen *each : screens) {
        if (each != window.screen())
            areas.append(each->availableGeometry());
    }
    return areas;
}

QMargins CWindowPlacement::likelyFrame(const QWidget &window)
{
    const QStyle *style = window.style();
    const int side = style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return {side, style->pixelMetric(QStyle::PM_TitleBarHeight) + side, side, side};
}

/// There is no signal for the frame, but it comes before the window is first active or painted
/// with it.
bool CWindowPlacement::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Paint:
    case QEvent::WindowActivate:
        if (m_window->windowHandle() && !m_window->windowHandle()->frameMargins().isNull()) {
            m_window->removeEventFilter(this); // from here on it is where the user wants it
            QMetaObject::invokeMethod(this, &CWindowPlacement::fit, Qt::QueuedConnection);
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void CWindowPlacement::fit()
{
    const Qt::WindowStates whole = Qt::WindowMaximized | Qt::WindowFullScreen;
    if (m_window->isVisible() && !(m_window->windowState() & whole))
        m_window->setGeometry(placed(m_window->geometry(), m_window->windowHandle()->frameMargins(),
                                     screensOf(*m_window)));
}
