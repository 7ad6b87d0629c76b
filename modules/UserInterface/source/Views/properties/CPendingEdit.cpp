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
      m_rest(this),
      m_pause(this)
{
    m_pause.setObjectName(QStringLiteral("pause"));
    m_pause.setSingleShot(true);
    m_pause.setInterval(Pause);
    m_rest.setObjectName(QStringLiteral("rest"));
    m_rest.setSingleShot(true);
    m_rest.setInterval(Rest);
    connect(&m_rest, &QTimer::timeout, this, &CPendingEdit::commitWhenAtRest);
    m_editor->installEventFilter(this);
}

void CPendingEdit::touch()
{
    if (!m_isPending)
        m_goesOn = m_pause.isActive();
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
    if (m_isPending && m_goesOn) {
        if (!commitStep())
            return;
    } else if (m_isPending) {
        m_isPending = false;
        const QPointer<CPendingEdit> self(this); // a commit may end the editor
        m_commit();
        if (!self)
            return;
    }
    m_hasSteps = false;
    m_pause.stop();
}

/// False when it has ended the editor.
bool CPendingEdit::commitStep()
{
    m_isPending = false;
    const QPointer<CPendingEdit> self(this);
    Q_EMIT stepping(!m_hasSteps, m_goesOn);
    m_commit();
    if (!self)
        return false;
    m_hasSteps = true;
    m_goesOn = false;
    m_pause.start();
    Q_EMIT stepped();
    return true;
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
    if (m_isPending)
        commitStep();
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
bool CPendingEdit::pressKey(const QKeyEvent &event)
{
    const int key = event.key();
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
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        m_pause.stop(); // what is typed is an edit of its own
        break;
    default:
        if (!event.text().isEmpty() && event.text().at(0).isPrint())
            m_pause.stop();
        break;
    }
    m_isKeyHeld = true;
    return false;
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
        return pressKey(*static_cast<QKeyEvent *>(event));
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
