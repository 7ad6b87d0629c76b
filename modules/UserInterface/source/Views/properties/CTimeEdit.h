#pragma once

#include <QTimeEdit>

/// Hours, minutes and seconds that can be typed with their colons: where two digits have led on to
/// the next part already, the colon behind them does not lead on once more.
class CTimeEdit : public QTimeEdit
{
    Q_OBJECT

public:
    explicit CTimeEdit(QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void selectPartAtCursor();

    bool m_hasLedOn = false; ///< the digit typed last has
    int m_editedAt = -1;     ///< place of the cursor behind the digits typed so far
};
