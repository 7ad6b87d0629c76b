#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointF>
#include <QRectF>

#include <optional>

class QGraphicsView;
class QPoint;

/// How large a view shows its scene: a free percentage, or one that fits the view. It sets the
/// view's transformation, scroll bars and the rectangle that can be scrolled to.
class CViewZoom final : public QObject
{
    Q_OBJECT

public:
    /// A child of the view, which has its scene.
    explicit CViewZoom(QGraphicsView *view);

    int percent() const { return m_percent; }
    int type() const { return m_type; } ///< as CZoomComboWidget::Type
    bool isFree() const;

    /// Free percentages are kept within their limits. A view that is not visible takes the zoom
    /// when it is shown.
    void set(int percent, int type);
    /// Before the last change, in which quick steps count as one; the next change is another one.
    /// Nothing when there was none.
    struct SPlace
    {
        int percent;
        int type;
        QPointF centre; ///< scene units
    };
    std::optional<SPlace> previous();
    bool hasPrevious() const { return m_previous.has_value(); }
    /// Works out the percentage anew: the view was shown or resized.
    void fit();
    /// The scene's rectangle is another one.
    void sceneResized();
    /// Brings a part of the scene into sight, which can be scrolled to beside the screen too, until
    /// another is.
    void reveal(const QRectF &part);
    /// A turn of the wheel, about the place under the pointer. Only for the free zoom.
    void step(const QPoint &position, int angleDelta);

Q_SIGNALS:
    void scaled(qreal scale);
    void changed(int percent, int type);
    void moved(); ///< another part of the scene is seen

private:
    int fitted(int percent) const;
    void apply(int percent);
    void scaleTo(int percent);
    void updateMargins();
    void remember();

    QGraphicsView *m_view;
    int m_percent = 100;
    int m_type = 0;
    QRectF m_beside; ///< what was revealed there
    std::optional<SPlace> m_previous;
    QElapsedTimer m_sinceChange;
};
