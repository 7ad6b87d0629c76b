#pragma once

#include <QLabel>

/// A line below a field that says what is wrong with it. Takes its place also when there is
/// nothing to say, so that a dialog does not move while the user types.
class CProblemLabel : public QLabel
{
    Q_OBJECT

public:
    explicit CProblemLabel(QWidget *parent = nullptr);

    void setProblem(const QString &text); ///< empty: none
    bool hasProblem() const { return !text().isEmpty(); }

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateColour();
};
