#include "CPendingEdit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
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

void CPendingEdit::change()
{
    m_isPending = true;
}

void CPendingEdit::commit()
{
    m_rest.stop();
    m_hasSteps = false;
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
    if (m_isKeyHeld || QApplication::mouseButtons() != Qt::NoButton) {
        m_rest.start();
        return;
    }
    const QPointer<CPendingEdit> self(this); // a commit may end the editor
    Q_EMIT stepping(!m_hasSteps);
    commit();
    if (!self)
        return;
    m_hasSteps = true;
    Q_EMIT stepped();
}

bool CPendingEdit::leavesToWindow(const QKeyEvent &shortcut) const
{
    if (const auto *text = qobject_cast<const QPlainTextEdit *>(m_editor))
        return (shortcut.matches(QKeySequence::Undo) && !text->document()->isUndoAvailable()) ||
               (shortcut.matches(QKeySequence::Redo) && !text->document()->isRedoAvailable());
    const auto *line = qobject_cast<const QLineEdit *>(m_editor);
    if (!line)
        line = m_editor->findChild<const QLineEdit *>();
    return (shortcut.matches(QKeySequence::Undo) && !(line && line->isUndoAvailable())) ||
           (shortcut.matches(QKeySequence::Redo) && !(line && line->isRedoAvailable()));
}

/// True when the editor is not to see it.
bool CPendingEdit::pressKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        discard();
        if (m_hasSteps) {
            m_hasSteps = false;
            Q_EMIT takenBack();
        }
        m_revert();
        return false;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        m_isKeyHeld = false;
        Q_EMIT left(key == Qt::Key_Tab);
        return true;
    default:
        m_isKeyHeld = true;
        return false;
    }
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
        return pressKey(static_cast<QKeyEvent *>(event)->key());
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
