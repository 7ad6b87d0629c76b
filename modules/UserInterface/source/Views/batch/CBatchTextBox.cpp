#include "CBatchTextBox.h"

#include "CBatchEditor.h"
#include "CPendingEdit.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QSignalBlocker>

CBatchTextBox::CBatchTextBox(CBatchEditor *editor, const QString &key, QWidget *parent)
    : CBatchField(editor, key, parent), m_box(new QPlainTextEdit(this))
{
    constexpr int lines = 3;
    m_box->setFixedHeight(lines * fontMetrics().lineSpacing() +
                          2 * int(m_box->document()->documentMargin()) + 4);
    m_box->setTabChangesFocus(true);
    setContent(m_box);
    m_pending = new CPendingEdit(
        m_box,
        [this] {
            const QString text = m_box->toPlainText();
            if (isBeingEdited() && text != m_shown && !(m_isMixed && text.isEmpty()))
                this->editor()->set(this->key(), text);
            else
                showAgain();
        },
        [this] { showAgain(); });
    m_box->installEventFilter(this);
    connect(m_box, &QPlainTextEdit::textChanged, m_pending, &CPendingEdit::change);
    connect(m_pending, &CPendingEdit::left, this, &CBatchField::left);
}

void CBatchTextBox::show(const CBatchItems::SProperty &property)
{
    const bool wasTouched = isBeingEdited();
    m_isMixed = property.isMixed;
    m_shown = m_isMixed ? QString() : property.property.text();
    m_box->setPlaceholderText(m_isMixed ? mixedText() : QString());
    if (!wasTouched || !m_box->hasFocus())
        showAgain();
}

/// The box gives some characters back as others: it is asked for its text only when it was edited.
void CBatchTextBox::showAgain()
{
    const QSignalBlocker noEdit(m_box);
    if (isBeingEdited() || m_loaded != m_shown)
        m_box->setPlainText(m_shown);
    m_loaded = m_shown;
    m_box->document()->setModified(false);
}

bool CBatchTextBox::isBeingEdited() const
{
    return m_box->document()->isModified();
}

void CBatchTextBox::commit()
{
    m_pending->commit();
}

bool CBatchTextBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isEnter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (isEnter && key->modifiers().testFlag(Qt::ControlModifier)) {
            commit();
            return true;
        }
    }
    return CBatchField::eventFilter(watched, event);
}
