#pragma once

#include <QDoubleSpinBox>

/// A spin box for real numbers that shows no idle zeros and rounds what is typed.
class CNumberSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    using QDoubleSpinBox::QDoubleSpinBox;

protected:
    QString textFromValue(double value) const override;
    double valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &position) const override;
};
