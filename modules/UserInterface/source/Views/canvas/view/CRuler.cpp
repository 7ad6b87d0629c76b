#include "CRuler.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace {
constexpr double LeastLabelDistance = 56; ///< pixels
constexpr double LeastMarkDistance = 5;
constexpr int MarkDepth = 4;
constexpr int LabelMarkDepth = 8;
constexpr int LabelPixelSize = 9;

QColor faded(QColor colour, double alpha)
{
    colour.setAlphaF(alpha);
    return colour;
}
} // namespace

CRuler::CRuler(Qt::Orientation orientation, QWidget *parent)
    : QWidget(parent), m_orientation(orientation)
{
    if (orientation == Qt::Horizontal)
        setFixedHeight(Thickness);
    else
        setFixedWidth(Thickness);
    setCursor(orientation == Qt::Horizontal ? Qt::SplitVCursor : Qt::SplitHCursor);
}

QSize CRuler::sizeHint() const
{
    return {Thickness, Thickness};
}

void CRuler::setMapping(double origin, double scale)
{
    if (origin == m_origin && scale == m_scale)
        return;
    m_origin = origin;
    m_scale = scale;
    update();
}

void CRuler::setPointer(double position)
{
    m_pointer = position;
    m_hasPointer = true;
    update();
}

void CRuler::clearPointer()
{
    m_hasPointer = false;
    update();
}

void CRuler::setExtent(double from, double to)
{
    if (from == m_extentFrom && to == m_extentTo)
        return;
    m_extentFrom = from;
    m_extentTo = to;
    update();
}

int CRuler::labelStep(double scale)
{
    int step = 1;
    for (int decade = 1; decade <= 100000; decade *= 10) {
        for (const int factor : {1, 2, 5}) {
            step = factor * decade;
            if (step * scale >= LeastLabelDistance)
                return step;
        }
    }
    return step;
}

int CRuler::length() const
{
    return m_orientation == Qt::Horizontal ? width() : height();
}

/// The rectangle from one place to another along the ruler, `depth` pixels deep from its inner
/// side.
QRect CRuler::across(int from, int to, int depth) const
{
    return m_orientation == Qt::Horizontal ? QRect(from, Thickness - depth, to - from, depth)
                                           : QRect(Thickness - depth, from, depth, to - from);
}

void CRuler::drawLabel(QPainter &painter, int pixel, int unit) const
{
    const QString text = QString::number(unit);
    if (m_orientation == Qt::Horizontal) {
        painter.drawText(QRect(pixel + 3, 0, 60, Thickness - MarkDepth),
                         Qt::AlignLeft | Qt::AlignVCenter, text);
        return;
    }
    painter.save();
    painter.translate(0, pixel - 3);
    painter.rotate(-90);
    painter.drawText(QRect(0, 0, 60, Thickness - MarkDepth), Qt::AlignLeft | Qt::AlignVCenter,
                     text);
    painter.restore();
}

void CRuler::drawMarks(QPainter &painter) const
{
    const int step = labelStep(m_scale);
    int marks = step % 10 == 0 ? 10 : (step % 5 == 0 ? 5 : step);
    if (step * m_scale / marks < LeastMarkDistance)
        marks = step % 5 == 0 ? 5 : 2;
    const QColor text = palette().color(QPalette::WindowText);
    const int first = static_cast<int>(std::floor(-m_origin / m_scale / step));
    const int last = static_cast<int>(std::ceil((length() - m_origin) / m_scale / step));
    for (int label = first; label <= last; ++label) {
        painter.setPen(faded(text, 0.6));
        drawLabel(painter, qRound(toPixels(double(label) * step)), label * step);
        for (int mark = 0; mark < marks; ++mark) {
            const double unit = (label + double(mark) / marks) * step;
            const int pixel = static_cast<int>(std::floor(toPixels(unit)));
            painter.fillRect(across(pixel, pixel + 1, mark == 0 ? LabelMarkDepth : MarkDepth),
                             faded(text, mark == 0 ? 0.5 : 0.3));
        }
    }
}

void CRuler::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor text = palette().color(QPalette::WindowText);
    const QColor accent = palette().color(QPalette::Highlight);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    if (m_extentTo > m_extentFrom)
        painter.fillRect(
            across(qRound(toPixels(m_extentFrom)), qRound(toPixels(m_extentTo)), Thickness),
            faded(accent, 0.22));
    QFont small = font();
    small.setPixelSize(LabelPixelSize);
    painter.setFont(small);
    drawMarks(painter);
    painter.fillRect(across(0, length(), 1), faded(text, 0.12));
    if (m_hasPointer) {
        const int pixel = static_cast<int>(std::floor(toPixels(m_pointer)));
        painter.fillRect(across(pixel, pixel + 1, Thickness), accent);
    }
}

void CRuler::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT pressed();
    else
        Q_EMIT cancelled();
}

void CRuler::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        Q_EMIT dragged(event->globalPos(), event->modifiers());
}

void CRuler::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT released();
}
