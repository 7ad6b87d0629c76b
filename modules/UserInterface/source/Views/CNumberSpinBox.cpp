#include "CNumberSpinBox.h"

#include "CPropertyManager.h"

QString CNumberSpinBox::textFromValue(double value) const
{
    QString text = CPropertyManager::numberText(value);
    return text.replace(QLatin1Char('.'), locale().decimalPoint());
}
