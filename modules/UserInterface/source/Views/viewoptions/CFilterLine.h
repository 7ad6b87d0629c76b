#pragma once

#include <QLineEdit>

/// The line above a list that filters it: Down leads into the list, Esc shows all again.
class CFilterLine final : public QLineEdit
{
    Q_OBJECT

public:
    /// Neither the list nor the parent's other children are owned.
    CFilterLine(QWidget *list, QWidget *parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *const m_list;
};
