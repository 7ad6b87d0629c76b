#include "CNumberSpinBox.h"

#include "CPropertyManager.h"

#include <algorithm>

QString CNumberSpinBox::textFromValue(double value) const
{
    QString text = CPropertyManager::numberText(value);
    return text.replace(QLatin1Char('.'), locale().decimalPoint());
}

double CNumberSpinBox::valueFromText(const QString &text) const
{
    return CPropertyManager::rounded(locale().toDouble(text.trimmed()));
}

/// More decimals than are shown may be typed: they decide how the last one is rounded.
QValidator::State CNumberSpinBox::validate(QString &text, int &position) const
{
    const int shown = text.indexOf(locale().decimalPoint()) + 1 + decimals();
    const QString rest = text.mid(shown);
    const bool areDigits =
        std::all_of(rest.begin(), rest.end(), [](QChar each) { return each.isDigit(); });
    if (shown <= decimals() || rest.isEmpty() || !areDigits)
        return QDoubleSpinBox::validate(text, position);
    QString cut = text.left(shown);
    int within = 0;
    return QDoubleSpinBox::validate(cut, within);
}
