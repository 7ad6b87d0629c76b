#pragma once

#include <QGraphicsObject>

#include <array>
#include <memory>
#include <optional>

class CGuideLines;
class CHandleMarks;
class CItemModel;
class CLockMark;
class CResizeHandle;
class CRotateHandle;
class CRotationOutline;
class ICanvas;

/// One model item on the canvas: its outline, handles and guide lines. The item itself is seen in
/// the emulator's frame behind.
/// What it shows it reads from the model item. That and the canvas must outlive it;
/// onPropertyChanged() follows.
class CItemView : public QGraphicsObject
{
    Q_OBJECT

public:
    static constexpr int HandleCount = 8;
    static constexpr double HandleReach = 12; ///< screen pixels from the centre, at least
    /// How far handles stand off a frame whose side has so many screen pixels: those of a small one
    /// lie outside and leave room between them to take hold of the item itself.
    static double standOff(double side);

    CItemView(CItemModel *item, const ICanvas &canvas);
    ~CItemView() override;

    CItemModel *item() const { return m_item; }
    const ICanvas &canvas() const { return m_canvas; }

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    bool contains(const QPointF &point) const override;
    bool collidesWithPath(const QPainterPath &path, Qt::ItemSelectionMode mode) const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// The item's frame as the view was last told; see ItemGeometry::ownFrameOf().
    QRectF frameRect() const { return m_frame; }
    /// What others snap to: the frame where it lies on the screen.
    QRectF sceneRect() const { return m_frame.normalized().translated(pos()); }

    virtual void onPropertyChanged(const QString &key);
    void updatePosition();
    void updateBounds();
    /// The canvas shows other handles now.
    void updateHandlesShown() { showHandles(isSelected()); }
    /// Whether it can be selected, moved, resized and rotated.
    void updateFlags();

    /// Framed as the one that others are arranged by.
    void setKey(bool isKey);
    /// Framed as what a click would take.
    void setTarget(bool isTarget);
    bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted);
    /// Those of the twelve guide lines that lie at the places; they reach across `visible` (all in
    /// scene units).
    void showGuides(const QRectF &visible, std::optional<double> across,
                    std::optional<double> down);
    void hideGuides();

    /// The item can be resized by its handles now.
    bool isResizable() const;
    bool isRotatable() const;
    double shownAngle() const { return m_angle; } ///< degrees, of the frame as it is drawn
    QTransform turn() const;                      ///< from the frame to where it is seen
    CRotationOutline *rotationOutline() const { return m_outline; } ///< null before it is selected
    /// Of a list that the item is drawn through, in the view's coordinates.
    virtual QVector<QPointF> points() const { return {}; }
    double zoom() const; ///< screen pixels of a scene unit
    /// How far handles stand off the frame, in screen pixels across and down.
    QPointF handleStandOff() const;
    /// Where handles lie, but for how far they stand off; in the view's coordinates.
    QRectF handlesRect() const;
    /// All handles, seen or not, as children that are made when they are first asked for: of many
    /// selected items the pointer comes near few.
    QVector<QGraphicsItem *> handles();
    /// The visible handle of this view at a scene position; null when there is none.
    QGraphicsItem *handleAt(const QPointF &scenePos, const QTransform &deviceTransform);

protected:
    /// Where a press takes the item, before it is turned. They may overlap.
    virtual QVector<QPainterPath> hitParts() const;
    bool isLeftOutOfBand() const;
    /// Along a line that the item draws, thick enough to be hit.
    QPainterPath alongPath(const QPainterPath &path) const;
    bool areHandlesMade() const { return m_handles.front() != nullptr; }
    virtual void makeHandles();
    /// Handles where the frame is now.
    virtual void updateHandles();
    virtual void showHandles(bool visible);

    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;

private:
    void paintTarget(QPainter &painter) const;
    bool isDrawnByLines() const;
    double lineWidth() const; ///< scene units, enough to be hit
    QVector<QPainterPath> turnedParts() const;

    CItemModel *const m_item; ///< not owned
    const ICanvas &m_canvas;
    QRectF m_frame; ///< what handles and the scene were last told
    bool m_hovered = false;
    bool m_isTarget = false;
    bool m_isKey = false;
    bool m_highlighted = false; ///< what data() says as well, where it is slow to read
    double m_angle = 0;
    // Children, made when they are first of use.
    std::array<CResizeHandle *, HandleCount> m_handles{};
    std::unique_ptr<CGuideLines> m_guides;
    CRotateHandle *m_rotateHandle = nullptr;
    CHandleMarks *m_marks = nullptr;
    CRotationOutline *m_outline = nullptr;
    CLockMark *m_lockMark = nullptr;
};
