#include "CNumberEntry.h"

#include <QAbstractSpinBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextDocument>
#include <QToolTip>

namespace {
constexpr int ManySteps = 10; // of the field's own, at once
} // namespace

CNumberEntry::CNumberEntry(QAbstractSpinBox *box, std::function<double()> current,
                           std::function<QString(double)> shown)
    : QObject(box),
      m_box(box),
      m_line(box->findChild<QLineEdit *>()),
      m_current(std::move(current)),
      m_shown(std::move(shown))
{
    box->setToolTip(hint());
    box->installEventFilter(this);
    connect(m_line, &QLineEdit::textEdited, this, &CNumberEntry::tell);
}

QString CNumberEntry::hint()
{
    return tr("A number, or an expression: +4, -=4, *2 and 50% go on from the number that is "
              "there; =width/2 and (x+8)*2 name other numbers of the item.\n"
              "Arrow keys make steps, with Shift or Ctrl ten at a time.");
}

NumberExpression::SResult CNumberEntry::result(const QString &text) const
{
    return NumberExpression::evaluate(text, m_current(), m_names);
}

/// What is wrong may still be typed right.
QValidator::State CNumberEntry::state(const QString &text) const
{
    if (text.size() > NumberExpression::MaxLength)
        return QValidator::Invalid;
    return result(text) ? QValidator::Acceptable : QValidator::Intermediate;
}

/// Parts of it are typed or pasted, and no HTML.
void CNumberEntry::showBelow(QWidget *field, const QString &text)
{
    QToolTip::showText(field->mapToGlobal(QPoint(0, field->height())),
                       Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text, field);
}

void CNumberEntry::tell(const QString &text) const
{
    const NumberExpression::SResult typed = result(text);
    QString told;
    if (!typed && !typed.isIncomplete)
        told = typed.error;
    else if (typed && !NumberExpression::isPlain(text))
        told = QStringLiteral("= ") + m_shown(typed.value);
    showBelow(m_box, told);
}

bool CNumberEntry::refuses() const
{
    if (m_line->text().trimmed().isEmpty())
        return false; // nothing typed leaves what was there
    const NumberExpression::SResult typed = result(m_line->text());
    if (!typed)
        showBelow(m_box, typed.error);
    return !typed;
}

bool CNumberEntry::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show)
        m_box->installEventFilter(this); // in front of the filter of a view's delegate
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    switch (key->key()) {
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return refuses();
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!key->modifiers().testFlag(Qt::ShiftModifier) || m_box->isReadOnly())
            return false;
        m_box->stepBy(key->key() == Qt::Key_Up ? ManySteps : -ManySteps);
        return true;
    default:
        return false;
    }
}
