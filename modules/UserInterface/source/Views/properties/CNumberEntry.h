#pragma once

#include "NumberExpression.h"

#include <QObject>
#include <QValidator>

class QAbstractSpinBox;
class QLineEdit;

/// What is typed into a number field: a number or an expression (see NumberExpression). While one
/// is typed, its result is shown below the field, or what is wrong with it; Enter and Tab do not
/// leave a field in which something is wrong. Shift with the arrow keys makes steps of ten, as Ctrl
/// does. Lives as a child of its field.
class CNumberEntry : public QObject
{
    Q_OBJECT

public:
    /// `current` and `shown`: the number that is there, and how another one would be taken over.
    CNumberEntry(QAbstractSpinBox *box, std::function<double()> current,
                 std::function<QString(double)> shown);
    void setNames(const NumberExpression::Names &names) { m_names = names; }

    NumberExpression::SResult result(const QString &text) const;
    QValidator::State state(const QString &text) const;
    /// What an expression may be, for a tool tip.
    static QString hint();
    /// Tells something about what is typed.
    static void showBelow(QWidget *field, const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void tell(const QString &text) const;
    bool refuses() const;

    QAbstractSpinBox *const m_box; ///< the parent
    QLineEdit *const m_line;
    const std::function<double()> m_current;
    const std::function<QString(double)> m_shown;
    NumberExpression::Names m_names;
};
