#include "CColourSwatches.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace {
constexpr int Side = 22; // pixels from one to the next
constexpr int Gap = 4;
constexpr int UsualColumns = 12;
} // namespace

CColourSwatches::CColourSwatches(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void CColourSwatches::setColours(const QVector<QColor> &colours, const QStringList &texts)
{
    m_colours = colours;
    m_texts = texts;
    m_current = 0;
    updateGeometry();
    update();
}

int CColourSwatches::columns(int width) const
{
    return std::max(1, (width + Gap) / Side);
}

int CColourSwatches::heightForWidth(int width) const
{
    const int rows = (m_colours.size() + columns(width) - 1) / columns(width);
    return std::max(1, rows) * Side;
}

QSize CColourSwatches::sizeHint() const
{
    return {UsualColumns * Side, heightForWidth(UsualColumns * Side)};
}

QRect CColourSwatches::rectOf(int index) const
{
    const int perRow = columns(width());
    return {index % perRow * Side, index / perRow * Side, Side - Gap, Side - Gap};
}

int CColourSwatches::indexAt(const QPoint &position) const
{
    for (int index = 0; index < m_colours.size(); ++index) {
        if (rectOf(index).contains(position))
            return index;
    }
    return -1;
}

bool CColourSwatches::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), m_texts.value(indexAt(help->pos())), this);
    return true;
}

void CColourSwatches::mousePressEvent(QMouseEvent *event)
{
    const int index = indexAt(event->pos());
    if (event->button() != Qt::LeftButton || index < 0)
        return;
    m_current = index;
    update();
    Q_EMIT chosen(m_colours.at(index));
}

void CColourSwatches::keyPressEvent(QKeyEvent *event)
{
    int step = 0;
    switch (event->key()) {
    case Qt::Key_Left:
        step = -1;
        break;
    case Qt::Key_Right:
        step = 1;
        break;
    case Qt::Key_Up:
        step = -columns(width());
        break;
    case Qt::Key_Down:
        step = columns(width());
        break;
    case Qt::Key_Space:
        if (m_current < m_colours.size())
            Q_EMIT chosen(m_colours.at(m_current));
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (m_current + step >= 0 && m_current + step < m_colours.size())
        m_current += step;
    update();
}

void CColourSwatches::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor outline = palette().color(QPalette::WindowText);
    outline.setAlphaF(0.35);
    for (int index = 0; index < m_colours.size(); ++index) {
        const QRectF cell = QRectF(rectOf(index)).adjusted(0.5, 0.5, -0.5, -0.5);
        const QColor &colour = m_colours.at(index);
        painter.setPen(Qt::NoPen);
        if (colour.alpha() < 255) { // half over black, half over white
            painter.setBrush(Qt::white);
            painter.drawRoundedRect(cell, 3, 3);
            painter.fillRect(cell.adjusted(cell.width() / 2, 1, -1, -1), Qt::black);
        }
        painter.setBrush(colour);
        painter.setPen(outline);
        painter.drawRoundedRect(cell, 3, 3);
        if (hasFocus() && index == m_current) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.drawRoundedRect(cell.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        }
    }
}
