#include "CPendingEdit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

CPendingEdit::CPendingEdit(QWidget *editor, std::function<void()> commit,
                           std::function<void()> revert)
    : QObject(editor),
      m_editor(editor),
      m_commit(std::move(commit)),
      m_revert(std::move(revert)),
      m_rest(this)
{
    m_rest.setObjectName(QStringLiteral("rest"));
    m_rest.setSingleShot(true);
    m_rest.setInterval(Rest);
    connect(&m_rest, &QTimer::timeout, this, &CPendingEdit::commitWhenAtRest);
    m_editor->installEventFilter(this);
}

void CPendingEdit::touch()
{
    m_isPending = true;
    m_rest.start();
}

void CPendingEdit::commit()
{
    m_rest.stop();
    if (!m_isPending)
        return;
    m_isPending = false;
    m_commit();
}

void CPendingEdit::discard()
{
    m_rest.stop();
    m_isPending = false;
}

void CPendingEdit::commitWhenAtRest()
{
    if (m_isKeyHeld || QApplication::mouseButtons() != Qt::NoButton)
        m_rest.start();
    else
        commit();
}

bool CPendingEdit::leavesToWindow(const QKeyEvent &shortcut) const
{
    const auto *line = qobject_cast<const QLineEdit *>(m_editor);
    if (!line)
        line = m_editor->findChild<const QLineEdit *>();
    return (shortcut.matches(QKeySequence::Undo) && !(line && line->isUndoAvailable())) ||
           (shortcut.matches(QKeySequence::Redo) && !(line && line->isRedoAvailable()));
}

bool CPendingEdit::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (!leavesToWindow(*static_cast<QKeyEvent *>(event)))
            break;
        commit(); // steps that have not come to rest are the first to be undone
        event->ignore();
        return true;
    case QEvent::Show: // the view's delegate has put a filter of its own in front, which takes
                       // Escape
        m_editor->installEventFilter(this);
        break;
    case QEvent::KeyPress:
        m_isKeyHeld = true;
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
            discard();
            m_revert();
        }
        break;
    case QEvent::KeyRelease:
        if (!static_cast<QKeyEvent *>(event)->isAutoRepeat())
            m_isKeyHeld = false;
        break;
    case QEvent::FocusOut:
        m_isKeyHeld = false;
        if (static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason)
            commit();
        break;
    default:
        break;
    }
    return false;
}
