#include "CElidedLabel.h"

#include <QPainter>
#include <QStyle>

CElidedLabel::CElidedLabel(Qt::TextElideMode mode, QWidget *parent) : QLabel(parent), m_mode(mode)
{
}

void CElidedLabel::reserve(const QString &widest, const QString &least)
{
    m_widest = widest;
    m_least = least;
    updateGeometry();
}

QSize CElidedLabel::sizeHint() const
{
    return sizeFor(m_widest.isEmpty() ? text() : m_widest);
}

QSize CElidedLabel::minimumSizeHint() const
{
    return sizeFor(m_least.isEmpty() ? text() : m_least);
}

QSize CElidedLabel::sizeFor(const QString &text) const
{
    const QMargins around = contentsMargins();
    return {fontMetrics().horizontalAdvance(text) + 1 + around.left() + around.right(),
            fontMetrics().height() + around.top() + around.bottom()};
}

void CElidedLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    drawFrame(&painter);
    const QRect room = contentsRect();
    style()->drawItemText(&painter, room, int(Qt::AlignLeft | Qt::AlignVCenter), palette(),
                          isEnabled(), fontMetrics().elidedText(text(), m_mode, room.width()),
                          foregroundRole());
}
