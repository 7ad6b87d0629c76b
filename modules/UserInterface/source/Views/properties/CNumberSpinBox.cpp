#include "CNumberSpinBox.h"

#include "CNumberEntry.h"
#include "CPropertyManager.h"

CNumberSpinBox::CNumberSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent),
      m_entry(new CNumberEntry(
          this, [this] { return value(); },
          [this](double number) { return textFromValue(qBound(minimum(), number, maximum())); }))
{
}

QString CNumberSpinBox::textFromValue(double value) const
{
    QString text = CPropertyManager::numberText(value);
    return text.replace(QLatin1Char('.'), locale().decimalPoint());
}

double CNumberSpinBox::valueFromText(const QString &text) const
{
    return CPropertyManager::rounded(m_entry->result(text).value);
}

/// More decimals than are shown may be typed: they decide how the last one is rounded.
QValidator::State CNumberSpinBox::validate(QString &text, int &) const
{
    return m_entry->state(text);
}

/// No sign is taken out of what is typed.
void CNumberSpinBox::fixup(QString &) const
{
}
