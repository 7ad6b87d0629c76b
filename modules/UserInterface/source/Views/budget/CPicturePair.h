#pragma once

#include <QImage>
#include <QWidget>

/// A picture beside another one of the same size; the wheel, + and - zoom, a drag and
/// the arrow keys move both, 0 shows them whole.
class CPicturePair final : public QWidget
{
    Q_OBJECT

public:
    explicit CPicturePair(QWidget *parent = nullptr);

    void setOriginal(const QImage &picture); ///< seen whole again
    void setMade(const QImage &picture);
    QSize sizeHint() const override { return {360, 160}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    double scale() const;
    QRect half(int side) const;
    void zoom(double steps, const QPointF &still);
    void move(const QPointF &by);

    QImage m_original;
    QImage m_made;
    double m_zoom = 1;  ///< to what fits
    QPointF m_middle;   ///< of what is seen, in pixels of the picture
    QPoint m_pressedAt; ///< the pointer, as it was told last
};
