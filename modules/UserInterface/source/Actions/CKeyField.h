#pragma once

#include <QKeySequence>
#include <QLineEdit>

/// A field that shows the keys that are pressed in it, whatever they are for elsewhere. Escape
/// leaves it.
class CKeyField final : public QLineEdit
{
    Q_OBJECT

public:
    explicit CKeyField(QWidget *parent = nullptr);

Q_SIGNALS:
    void pressed(const QKeySequence &keys);
    void left(); ///< with Escape, or to something else

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};
