#include "CViewPan.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QScrollBar>

void CViewPan::setReady(bool isReady)
{
    m_isReady = isReady;
    if (isReady)
        m_view.viewport()->setCursor(Qt::OpenHandCursor);
    else if (!isActive())
        m_view.viewport()->unsetCursor();
}

bool CViewPan::press(const QMouseEvent &event)
{
    const bool isSpaceDrag = m_isReady && event.button() == Qt::LeftButton;
    if (isActive() || (event.button() != Qt::MiddleButton && !isSpaceDrag))
        return false;
    m_button = event.button();
    m_pos = event.pos();
    m_view.viewport()->setCursor(Qt::ClosedHandCursor);
    return true;
}

bool CViewPan::move(const QMouseEvent &event)
{
    if (isActive() && !event.buttons().testFlag(m_button))
        end();
    if (!isActive())
        return false;
    const QPoint by = event.pos() - m_pos;
    m_pos = event.pos();
    for (const auto &[bar, distance] : {std::pair(m_view.horizontalScrollBar(), by.x()),
                                        std::pair(m_view.verticalScrollBar(), by.y())})
        bar->setValue(bar->value() - distance);
    return true;
}

bool CViewPan::release(const QMouseEvent &event)
{
    if (!isActive() || event.button() != m_button)
        return false;
    end();
    return true;
}

void CViewPan::end()
{
    m_button = Qt::NoButton;
    setReady(m_isReady); // the cursor
}
