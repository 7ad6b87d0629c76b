#pragma once

#include <QDoubleSpinBox>

/// A spin box for real numbers that shows no idle zeros.
class CNumberSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    using QDoubleSpinBox::QDoubleSpinBox;

protected:
    QString textFromValue(double value) const override;
};
