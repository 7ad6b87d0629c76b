#include "CKeyField.h"

#include <QKeyEvent>

namespace {
bool isModifier(int key)
{
    return key == Qt::Key_unknown || key == 0 ||
           (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) ||
           (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R) || key == Qt::Key_AltGr;
}
} // namespace

CKeyField::CKeyField(QWidget *parent) : QLineEdit(parent)
{
    setReadOnly(true);
    setFocusPolicy(Qt::ClickFocus); // Tab would lead into it, and not out again
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

bool CKeyField::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress) { // Tab too
        keyPressEvent(static_cast<QKeyEvent *>(event));
        return true;
    }
    return QLineEdit::event(event);
}

void CKeyField::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (isModifier(event->key()) || event->isAutoRepeat())
        return;
    const int modifiers = int(event->modifiers() & ~Qt::KeypadModifier);
    if (event->key() == Qt::Key_Escape && modifiers == 0) {
        Q_EMIT left();
        return;
    }
    const int key = event->key() == Qt::Key_Backtab ? int(Qt::Key_Tab) : event->key();
    const QKeySequence keys(modifiers | key);
    setText(keys.toString(QKeySequence::NativeText));
    Q_EMIT pressed(keys);
}

void CKeyField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        Q_EMIT left();
}
