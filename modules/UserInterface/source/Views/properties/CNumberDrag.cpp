#include "CNumberDrag.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QScreen>

#include <cstdlib>

namespace {
constexpr int Threshold = 3; ///< pixels; a press that moves less is a click
constexpr int ManySteps = 10;
} // namespace

CNumberDrag::CNumberDrag(QWidget *watched, const SUse &use)
    : QObject(watched), m_watched(watched), m_use(use)
{
    watched->setMouseTracking(true);
    watched->installEventFilter(this);
}

CNumberDrag::~CNumberDrag()
{
    qApp->removeEventFilter(this);
}

bool CNumberDrag::eventFilter(QObject *watched, QEvent *event)
{
    if (m_isActive && (event->type() == QEvent::ShortcutOverride ||
                       event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)) {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
            cancel();
        event->accept(); // no shortcut comes between
        return true;
    }
    if (watched != m_watched)
        return false;
    const auto *mouse = dynamic_cast<QMouseEvent *>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_isPressed = mouse->button() == Qt::LeftButton && m_use.isLabel(mouse->pos());
        m_press = mouse->pos();
        m_last = mouse->globalPos();
        return m_isActive; // by another button
    case QEvent::MouseMove:
        if (m_isPressed && mouse->buttons().testFlag(Qt::LeftButton))
            return moved(mouse->globalPos(), mouse->modifiers());
        showCursor(mouse->pos());
        return false;
    case QEvent::MouseButtonRelease:
        if (mouse->button() == Qt::LeftButton) {
            m_isPressed = false;
            end(true);
        }
        return false;
    case QEvent::Leave:
        if (!m_isPressed)
            showCursor({-1, -1});
        return false;
    case QEvent::Hide:
        cancel();
        return false;
    default:
        return false;
    }
}

bool CNumberDrag::moved(const QPoint &global, Qt::KeyboardModifiers modifiers)
{
    if (!m_isActive) {
        const int travelled = global.x() - m_last.x();
        if (std::abs(travelled) < Threshold)
            return true;
        m_isActive = true;
        m_steps = 0;
        m_last = global;
        qApp->installEventFilter(this);
        m_use.begin(m_press);
        return true;
    }
    const bool isFast = modifiers & (Qt::ShiftModifier | Qt::ControlModifier);
    const int more = (global.x() - m_last.x()) * (isFast ? ManySteps : 1);
    m_last = global;
    wrap(global);
    if (more == 0)
        return true;
    m_steps += more;
    m_use.show(m_steps);
    return true;
}

void CNumberDrag::wrap(const QPoint &global)
{
    const QScreen *screen = QGuiApplication::screenAt(global);
    if (!screen)
        return;
    const QRect area = screen->geometry();
    int to = global.x();
    if (to >= area.right())
        to = area.left() + 1;
    else if (to <= area.left())
        to = area.right() - 1;
    else
        return;
    QCursor::setPos(to, global.y());
    if (QCursor::pos().x() == to) // not every display lets a program do that
        m_last.setX(to);
}

void CNumberDrag::cancel()
{
    end(false);
}

void CNumberDrag::end(bool isKept)
{
    if (!m_isActive)
        return;
    m_isActive = false;
    m_isPressed = false;
    qApp->removeEventFilter(this);
    m_use.end(isKept);
}

void CNumberDrag::showCursor(const QPoint &place)
{
    const bool isLabel = m_watched->rect().contains(place) && m_use.isLabel(place);
    if (isLabel == m_hasCursor)
        return;
    m_hasCursor = isLabel;
    if (isLabel)
        m_watched->setCursor(Qt::SizeHorCursor);
    else
        m_watched->unsetCursor();
}
