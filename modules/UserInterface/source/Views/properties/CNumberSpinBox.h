#pragma once

#include <QDoubleSpinBox>

class CNumberEntry;

/// A spin box for real numbers that shows no idle zeros, takes expressions, and rounds what they
/// give.
class CNumberSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit CNumberSpinBox(QWidget *parent = nullptr);

    CNumberEntry *entry() const { return m_entry; }

protected:
    QString textFromValue(double value) const override;
    double valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &position) const override;
    void fixup(QString &text) const override;

private:
    CNumberEntry *const m_entry;
};
