#pragma once

#include <QSpinBox>

class CNumberEntry;

/// A spin box for whole numbers that takes expressions; what they give is rounded, halves away from
/// zero, and cut to its range.
class CIntegerSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit CIntegerSpinBox(QWidget *parent = nullptr);

    CNumberEntry *entry() const { return m_entry; }

protected:
    int valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &position) const override;
    void fixup(QString &text) const override;

private:
    CNumberEntry *const m_entry;
};
