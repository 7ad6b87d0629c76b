#pragma once

#include <QColor>
#include <QWidget>

/// A colour by its parts: a square of saturation and brightness, and two bars below it for hue and
/// alpha. The mouse drags, the arrow keys step in the part that was touched last (Tab leads on to
/// the next part).
class CColourField : public QWidget
{
    Q_OBJECT

public:
    explicit CColourField(QWidget *parent = nullptr);

    QColor colour() const;
    /// Tells nobody. A grey keeps the hue that was there.
    void setColour(const QColor &colour);
    QSize sizeHint() const override;

Q_SIGNALS:
    void colourChanged(const QColor &colour); ///< by the user

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    enum EPart { Shade, Hue, Alpha, PartCount };

    QRect rectOf(int part) const;
    void drag(const QPoint &position);
    void change(qreal hue, qreal saturation, qreal value, qreal alpha);
    void paintKnob(QPainter *painter, int part, const QPointF &middle) const;

    qreal m_hue = 0; ///< all 0 to 1
    qreal m_saturation = 0;
    qreal m_value = 0;
    qreal m_alpha = 1;
    int m_part = Shade; ///< what is dragged, and what keys are for
};
