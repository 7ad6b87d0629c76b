#include "CGestureReadout.h"

#include <QGuiApplication>
#include <QPainter>

#include <algorithm>

namespace {
constexpr QPoint Distance(18, 20); ///< from the pointer, pixels
}

CGestureReadout::CGestureReadout(QWidget *viewport) : QLabel(viewport)
{
    setObjectName(QStringLiteral("gestureReadout"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setMargin(4);
    hide();
}

void CGestureReadout::showAt(const QPoint &position, const QString &text)
{
    setText(text);
    adjustSize();
    const QSize room = parentWidget()->size() - size();
    const QPoint corner = position + Distance;
    move(std::max(0, std::min(corner.x(), room.width())),
         std::max(0, std::min(corner.y(), room.height())));
    show();
    raise();
}

/// By itself, since style sheets make labels transparent.
void CGestureReadout::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QGuiApplication::palette().color(QPalette::Window));
    painter.drawRoundedRect(rect(), 4, 4);
    painter.setPen(QGuiApplication::palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignCenter, text());
}
