#include "CBatchLine.h"

#include "CBatchEditor.h"
#include "CNumberEntry.h"
#include "CPendingEdit.h"

#include <QLineEdit>

CBatchLine::CBatchLine(CBatchEditor *editor, const QString &key, QWidget *parent)
    : CBatchField(editor, key, parent),
      m_line(new QLineEdit(this)),
      m_pending(new CPendingEdit(
          m_line, [this] { takePending(); },
          [this, editor] {
              editor->cancel();
              showAgain();
          }))
{
    setContent(m_line);
    connect(m_line, &QLineEdit::textEdited, m_pending, &CPendingEdit::change);
    connect(m_line, &QLineEdit::returnPressed, m_pending, &CPendingEdit::commit);
    connect(m_pending, &CPendingEdit::stepping, editor,
            [editor](bool isFirst) { editor->steps().begin(isFirst, false); });
    connect(m_pending, &CPendingEdit::stepped, editor, [editor] { editor->steps().end(); });
    connect(m_pending, &CPendingEdit::takenBack, editor, &CBatchEditor::takeStepsBack);
    connect(m_pending, &CPendingEdit::left, this, &CBatchField::left);
}

QString CBatchLine::textOf(const CWidgetProperty &property) const
{
    return property.text();
}

void CBatchLine::show(const CBatchItems::SProperty &property)
{
    m_isMixed = property.isMixed;
    m_shown = m_isMixed ? QString() : textOf(property.property);
    m_line->setPlaceholderText(m_isMixed ? mixedText() : QString());
    if (!m_line->isModified() || !m_line->hasFocus())
        showAgain();
}

void CBatchLine::showAgain()
{
    if (m_line->text() != m_shown)
        m_line->setText(m_shown);
    m_line->setModified(false);
}

bool CBatchLine::isBeingEdited() const
{
    return m_line->isModified();
}

void CBatchLine::commit()
{
    m_pending->commit();
}

QString CBatchLine::take(const QString &text)
{
    editor()->set(key(), text);
    return {};
}

/// An empty line where they differ is no text yet.
void CBatchLine::takePending()
{
    if (!m_line->isModified())
        return;
    const QString error = m_isMixed && m_line->text().isEmpty() ? QString() : take(m_line->text());
    if (!error.isEmpty() && m_line->hasFocus()) {
        CNumberEntry::showBelow(m_line, error);
        m_pending->change(); // it goes on
        return;
    }
    showAgain();
    if (m_line->hasFocus())
        m_line->selectAll();
}
