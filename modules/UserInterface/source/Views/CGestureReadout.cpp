#include "CGestureReadout.h"

#include <algorithm>

namespace {
constexpr QPoint Distance(18, 20); ///< from the pointer, pixels
}

CGestureReadout::CGestureReadout(QWidget *viewport) : QLabel(viewport)
{
    setObjectName(QStringLiteral("gestureReadout"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
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
