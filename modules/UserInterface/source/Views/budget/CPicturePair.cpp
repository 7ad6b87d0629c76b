#include "CPicturePair.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int Gap = 6;   // pixels
constexpr int Check = 8; // side of a square behind what is transparent
constexpr double WheelStep = 1.25;
constexpr double MostZoom = 64;

QBrush checks()
{
    QPixmap tile(2 * Check, 2 * Check);
    tile.fill(QColor(0x99, 0x99, 0x99));
    QPainter painter(&tile);
    painter.fillRect(0, 0, Check, Check, QColor(0x66, 0x66, 0x66));
    painter.fillRect(Check, Check, Check, Check, QColor(0x66, 0x66, 0x66));
    return tile;
}

} // namespace

CPicturePair::CPicturePair(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(120, 60);
    setCursor(Qt::OpenHandCursor);
    setFocusPolicy(Qt::StrongFocus);
}

void CPicturePair::setOriginal(const QImage &picture)
{
    m_original = picture;
    m_made = {};
    m_zoom = 1;
    m_middle = QRectF(picture.rect()).center();
    update();
}

void CPicturePair::setMade(const QImage &picture)
{
    m_made = picture;
    update();
}

QRect CPicturePair::half(int side) const
{
    const int width = std::max(1, (this->width() - Gap) / 2);
    return {side == 0 ? 0 : this->width() - width, 0, width, height()};
}

double CPicturePair::scale() const
{
    const QRect room = half(0);
    return m_zoom * std::min(double(room.width()) / std::max(1, m_original.width()),
                             double(room.height()) / std::max(1, m_original.height()));
}

void CPicturePair::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const double scale = this->scale();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale < 1);
    for (int side = 0; side < 2; ++side) {
        const QImage &picture = side == 0 ? m_original : m_made;
        if (picture.isNull())
            continue;
        const QRect room = half(side);
        const QPointF corner = QRectF(room).center() - m_middle * scale;
        const QRectF target(corner, QSizeF(picture.size()) * scale);
        painter.setClipRect(room);
        painter.fillRect(target, checks());
        painter.drawImage(target, picture);
    }
    if (!hasFocus())
        return;
    painter.setClipping(false);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void CPicturePair::wheelEvent(QWheelEvent *event)
{
    constexpr double Step = 120;
    zoom(event->angleDelta().y() / Step, event->position());
    event->accept();
}

/// What is at `still` stays there.
void CPicturePair::zoom(double steps, const QPointF &still)
{
    const QPointF away = still - QRectF(half(still.x() < width() / 2.0 ? 0 : 1)).center();
    const double before = scale();
    m_zoom = qBound(1.0, m_zoom * std::pow(WheelStep, steps), MostZoom);
    move(away / before - away / scale());
}

/// In pixels of the picture, which never leaves the middle.
void CPicturePair::move(const QPointF &by)
{
    const QRectF whole = QRectF(m_original.rect());
    m_middle += by;
    m_middle.setX(qBound(0.0, m_middle.x(), whole.width()));
    m_middle.setY(qBound(0.0, m_middle.y(), whole.height()));
    if (m_zoom <= 1)
        m_middle = whole.center();
    update();
}

void CPicturePair::mousePressEvent(QMouseEvent *event)
{
    m_pressedAt = event->pos();
}

void CPicturePair::mouseMoveEvent(QMouseEvent *event)
{
    move(-QPointF(event->pos() - m_pressedAt) / scale());
    m_pressedAt = event->pos();
}

void CPicturePair::keyPressEvent(QKeyEvent *event)
{
    const double step = width() / 20.0 / scale();
    const QPointF middle = QRectF(half(0)).center();
    switch (event->key()) {
    case Qt::Key_Plus:
        return zoom(1, middle);
    case Qt::Key_Minus:
        return zoom(-1, middle);
    case Qt::Key_0:
        m_zoom = 1;
        return move({});
    case Qt::Key_Left:
        return move({-step, 0});
    case Qt::Key_Right:
        return move({step, 0});
    case Qt::Key_Up:
        return move({0, -step});
    case Qt::Key_Down:
        return move({0, step});
    default:
        QWidget::keyPressEvent(event);
    }
}
