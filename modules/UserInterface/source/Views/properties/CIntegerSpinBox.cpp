#include "CIntegerSpinBox.h"

#include "CNumberEntry.h"
#include "ItemGeometry.h"

namespace {
int wholeOf(double number)
{
    return static_cast<int>(roundedToInteger(number));
}
} // namespace

CIntegerSpinBox::CIntegerSpinBox(QWidget *parent)
    : QSpinBox(parent),
      m_entry(new CNumberEntry(
          this, [this] { return value(); },
          [this](double number) {
              return textFromValue(qBound(minimum(), wholeOf(number), maximum()));
          }))
{
}

int CIntegerSpinBox::valueFromText(const QString &text) const
{
    return wholeOf(m_entry->result(text).value);
}

QValidator::State CIntegerSpinBox::validate(QString &text, int &) const
{
    return m_entry->state(text);
}

/// No sign is taken out of what is typed.
void CIntegerSpinBox::fixup(QString &) const
{
}
