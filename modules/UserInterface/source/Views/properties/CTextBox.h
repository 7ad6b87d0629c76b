#pragma once

#include <QPlainTextEdit>

/// An editor of several lines for one cell: higher than its row, over the rows around it.
class CTextBox : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CTextBox(QWidget *parent);

Q_SIGNALS:
    void confirmed(); ///< by Ctrl + Enter; Enter alone breaks the line

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
};
