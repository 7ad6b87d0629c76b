#pragma once

#include <QWidget>

/// A ruler along one side of a canvas: scene units, with a mark at the pointer and a band along the
/// selection.
class CRuler final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Thickness = 20; ///< pixels

    explicit CRuler(Qt::Orientation orientation, QWidget *parent = nullptr);

    QSize sizeHint() const override;

    /// `origin`: where the scene's zero lies along the ruler, in pixels; `scale`: pixels per unit.
    void setMapping(double origin, double scale);
    void setPointer(double position); ///< scene units
    void clearPointer();
    /// The selection's extent in scene units; an end that is not above its start clears it.
    void setExtent(double from, double to);

    /// Units between two labelled marks, so that they are at least 56 pixels apart.
    static int labelStep(double scale);

Q_SIGNALS:
    // A guide is drawn out of the ruler. Places are global.
    void pressed();
    void dragged(const QPoint &place, Qt::KeyboardModifiers modifiers);
    void released();
    void cancelled();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int length() const;
    double toPixels(double position) const { return m_origin + position * m_scale; }
    void drawMarks(QPainter &painter) const;
    void drawLabel(QPainter &painter, int pixel, int unit) const;
    QRect across(int from, int to, int depth) const;

    const Qt::Orientation m_orientation;
    double m_origin = 0;
    double m_scale = 1;
    double m_pointer = 0;
    bool m_hasPointer = false;
    double m_extentFrom = 0;
    double m_extentTo = 0;
};
