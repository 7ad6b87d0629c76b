#pragma once

#include <QLabel>

/// One line of plain text that ends in an ellipsis, or begins with one, where there is no room for
/// all of it.
class CElidedLabel : public QLabel
{
public:
    explicit CElidedLabel(Qt::TextElideMode mode, QWidget *parent = nullptr);
    /// Takes the room of `widest`, whatever it says, and gives it up down to that of `least`.
    void reserve(const QString &widest, const QString &least);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QSize sizeFor(const QString &text) const;

    const Qt::TextElideMode m_mode;
    QString m_widest; ///< empty: what it says
    QString m_least;
};
