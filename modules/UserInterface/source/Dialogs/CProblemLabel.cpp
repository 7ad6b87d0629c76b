#include "CProblemLabel.h"

#include "ShownText.h"

#include <QApplication>
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
    setText(ShownText::message(text));
    setToolTip(text); // for a text that is longer than the line
}

void CProblemLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
        updateColour();
}

/// Red with at least 4.5 : 1 on the window's ground.
void CProblemLabel::updateColour()
{
    const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    const QColor red = isDark ? QColor(0xff, 0xb0, 0xaa) : QColor(0x8c, 0x0d, 0x0d);
    if (palette().color(QPalette::WindowText) == red)
        return; // setting a palette changes it, which calls this again
    QPalette changed = palette();
    changed.setColor(QPalette::WindowText, red);
    setPalette(changed);
}
