#include "CTextBox.h"

#include <QKeyEvent>

#include <algorithm>

CTextBox::CTextBox(QWidget *parent) : QPlainTextEdit(parent)
{
    constexpr int lines = 5;
    setMinimumHeight(lines * fontMetrics().lineSpacing() + 2 * int(document()->documentMargin()));
    setTabChangesFocus(true);
}

void CTextBox::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && event->modifiers().testFlag(Qt::ControlModifier))
        Q_EMIT confirmed();
    else
        QPlainTextEdit::keyPressEvent(event);
}

/// Whole, also where its cell is one of the last that are seen.
void CTextBox::moveEvent(QMoveEvent *event)
{
    QPlainTextEdit::moveEvent(event);
    const int lowest = std::max(0, parentWidget()->height() - minimumHeight());
    if (y() > lowest)
        move(x(), lowest);
}
