#include "CProblemLabel.h"

#include <QEvent>

CProblemLabel::CProblemLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setMinimumHeight(fontMetrics().height());
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    updateColour();
}

void CProblemLabel::setProblem(const QString &text)
{
    setText(text);
    setToolTip(text); // for a text that is longer than the line
}

void CProblemLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateColour();
}

/// Red with at least 4.5 : 1 on the window's ground.
void CProblemLabel::updateColour()
{
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    const QString style =
        isDark ? QStringLiteral("color: #ffb0aa;") : QStringLiteral("color: #8c0d0d;");
    if (styleSheet() != style)
        setStyleSheet(style);
}
