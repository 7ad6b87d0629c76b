#include "CTimeEdit.h"

#include <QKeyEvent>
#include <QLineEdit>

CTimeEdit::CTimeEdit(QWidget *parent) : QTimeEdit(parent)
{
    setDisplayFormat(QStringLiteral("HH:mm:ss"));
}

void CTimeEdit::keyPressEvent(QKeyEvent *event)
{
    const QString typed = event->text();
    if (typed.isEmpty() && event->key() == Qt::Key_Shift)
        return; // on the way to a colon
    const bool isColon = typed == QLatin1String(":");
    if (isColon && m_hasLedOn) {
        m_hasLedOn = false;
        return;
    }
    const bool isDigit = typed.size() == 1 && typed.at(0).isDigit();
    if (isDigit && lineEdit()->cursorPosition() != m_editedAt)
        selectPartAtCursor();
    const int before = currentSectionIndex();
    QTimeEdit::keyPressEvent(event);
    m_hasLedOn = isDigit && currentSectionIndex() != before;
    const bool isEdited =
        isDigit || event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    m_editedAt = isEdited ? lineEdit()->cursorPosition() : -1;
}

/// A part that is full takes no further digit. All of the text is typed anew from its first part.
void CTimeEdit::selectPartAtCursor()
{
    const bool isAll = lineEdit()->selectedText() == lineEdit()->text();
    setSelectedSection(isAll ? HourSection : currentSection());
}
