#pragma once

#include <QLabel>

/// Position and size beside the pointer while something is dragged.
class CGestureReadout final : public QLabel
{
    Q_OBJECT

public:
    explicit CGestureReadout(QWidget *viewport);

    /// Beside a place of the viewport, inside of it.
    void showAt(const QPoint &position, const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;
};
