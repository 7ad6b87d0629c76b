#include "CTimeEdit.h"

#include <QKeyEvent>

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
    const int before = currentSectionIndex();
    QTimeEdit::keyPressEvent(event);
    const bool isDigit = typed.size() == 1 && typed.at(0).isDigit();
    m_hasLedOn = isDigit && currentSectionIndex() != before;
}
