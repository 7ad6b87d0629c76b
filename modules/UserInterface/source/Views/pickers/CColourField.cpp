#include "CColourField.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr int Bar = 14; // pixels
constexpr int Gap = 10;
constexpr int Knob = 6; // half its width, which stands out at the ends

qreal within(qreal share)
{
    return qBound(0.0, share, 1.0);
}

/// What shows through a colour.
void paintChecks(QPainter *painter, const QRect &rect)
{
    constexpr int side = 5;
    painter->fillRect(rect, QColor(255, 255, 255));
    for (int y = 0; y * side < rect.height(); ++y) {
        for (int x = y % 2; x * side < rect.width(); x += 2)
            painter->fillRect(QRect(rect.left() + x * side, rect.top() + y * side, side, side) &
                                  rect,
                              QColor(190, 190, 190));
    }
}
} // namespace

CColourField::CColourField(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 140);
}

QSize CColourField::sizeHint() const
{
    return {264, 220};
}

QColor CColourField::colour() const
{
    return QColor::fromHsvF(m_hue, m_saturation, m_value, m_alpha).toRgb();
}

void CColourField::setColour(const QColor &colour)
{
    if (colour == this->colour())
        return; // the hue of a grey stays, and nothing is lost by rounding
    const QColor hsv = colour.toHsv();
    if (hsv.hsvHueF() >= 0)
        m_hue = hsv.hsvHueF();
    m_saturation = hsv.hsvSaturationF();
    m_value = hsv.valueF();
    m_alpha = hsv.alphaF();
    update();
}

void CColourField::change(qreal hue, qreal saturation, qreal value, qreal alpha)
{
    m_hue = within(hue);
    m_saturation = within(saturation);
    m_value = within(value);
    m_alpha = within(alpha);
    update();
    Q_EMIT colourChanged(colour());
}

QRect CColourField::rectOf(int part) const
{
    const QRect all = rect().adjusted(Knob, Knob, -Knob, -Knob);
    const int bars = 2 * (Bar + Gap);
    if (part == Shade)
        return all.adjusted(0, 0, 0, -bars);
    return {all.left(), all.bottom() + 1 - bars + Gap + (part - Hue) * (Bar + Gap), all.width(),
            Bar};
}

void CColourField::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    for (int part = 0; part < PartCount; ++part) {
        if (rectOf(part).adjusted(-Knob, -Knob + 2, Knob, Knob - 2).contains(event->pos()))
            m_part = part;
    }
    drag(event->pos());
}

void CColourField::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        drag(event->pos());
}

void CColourField::drag(const QPoint &position)
{
    const QRect area = rectOf(m_part);
    const qreal x = qreal(position.x() - area.left()) / (area.width() - 1);
    const qreal y = qreal(position.y() - area.top()) / (area.height() - 1);
    if (m_part == Shade)
        change(m_hue, x, 1 - y, m_alpha);
    else if (m_part == Hue)
        change(x, m_saturation, m_value, m_alpha);
    else
        change(m_hue, m_saturation, m_value, x);
}

void CColourField::keyPressEvent(QKeyEvent *event)
{
    const qreal step = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier) ? 0.1 : 0.01;
    qreal x = 0;
    qreal y = 0;
    switch (event->key()) {
    case Qt::Key_Left:
        x = -step;
        break;
    case Qt::Key_Right:
        x = step;
        break;
    case Qt::Key_Up:
        y = step;
        break;
    case Qt::Key_Down:
        y = -step;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (m_part == Shade)
        change(m_hue, m_saturation + x, m_value + y, m_alpha);
    else if (m_part == Hue)
        change(m_hue + x + y, m_saturation, m_value, m_alpha);
    else
        change(m_hue, m_saturation, m_value, m_alpha + x + y);
}

/// From part to part before it leads out.
bool CColourField::focusNextPrevChild(bool next)
{
    const int part = m_part + (next ? 1 : -1);
    if (part < 0 || part >= PartCount)
        return QWidget::focusNextPrevChild(next);
    m_part = part;
    update();
    return true;
}

void CColourField::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::TabFocusReason)
        m_part = Shade;
    else if (event->reason() == Qt::BacktabFocusReason)
        m_part = Alpha;
    QWidget::focusInEvent(event);
}

void CColourField::paintKnob(QPainter *painter, int part, const QPointF &middle) const
{
    const bool isCurrent = hasFocus() && m_part == part;
    painter->setBrush(Qt::NoBrush);
    painter->setPen(
        QPen(isCurrent ? palette().color(QPalette::Highlight) : QColor(0, 0, 0, 160), 5));
    painter->drawEllipse(middle, Knob - 1, Knob - 1);
    painter->setPen(QPen(Qt::white, 2));
    painter->drawEllipse(middle, Knob - 1, Knob - 1);
}

void CColourField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect shade = rectOf(Shade);
    QLinearGradient across(shade.topLeft(), shade.topRight());
    across.setColorAt(0, Qt::white);
    across.setColorAt(1, QColor::fromHsvF(m_hue, 1, 1));
    painter.fillRect(shade, across);
    QLinearGradient down(shade.topLeft(), shade.bottomLeft());
    down.setColorAt(0, Qt::transparent);
    down.setColorAt(1, Qt::black);
    painter.fillRect(shade, down);

    const QRect hue = rectOf(Hue);
    QLinearGradient hues(hue.topLeft(), hue.topRight());
    constexpr int stops = 6;
    for (int stop = 0; stop <= stops; ++stop)
        hues.setColorAt(qreal(stop) / stops, QColor::fromHsvF(qreal(stop) / stops, 1, 1));
    painter.fillRect(hue, hues);

    const QRect alpha = rectOf(Alpha);
    paintChecks(&painter, alpha);
    QLinearGradient alphas(alpha.topLeft(), alpha.topRight());
    QColor solid = colour();
    solid.setAlpha(0);
    alphas.setColorAt(0, solid);
    solid.setAlpha(255);
    alphas.setColorAt(1, solid);
    painter.fillRect(alpha, alphas);

    paintKnob(&painter, Shade,
              {shade.left() + m_saturation * (shade.width() - 1),
               shade.top() + (1 - m_value) * (shade.height() - 1)});
    paintKnob(&painter, Hue, {hue.left() + m_hue * (hue.width() - 1), QRectF(hue).center().y()});
    paintKnob(&painter, Alpha,
              {alpha.left() + m_alpha * (alpha.width() - 1), QRectF(alpha).center().y()});
}
