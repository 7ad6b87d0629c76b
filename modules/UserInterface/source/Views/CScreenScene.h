#pragma once

#include "CItemChanges.h"

#include <QColor>
#include <QGraphicsScene>
#include <QHash>
#include <QPointer>
#include <QSet>

#include <memory>

class CFrameItem;
class CItemModel;
class CItemView;
class CMoveGesture;
class CScreenModel;
class CSnapCross;
class QStandardItem;

/// The canvas of one screen: an item view for each model item, the emulator's frame behind them,
/// the grid over them. It follows the model's rows and properties.
/// Drags of items with snapping are its own; they and the handles' drags change the model live and
/// are recorded once, when they are finished.
class CScreenScene final : public QGraphicsScene
{
    Q_OBJECT

public:
    /// The screen belongs to a project and must outlive the scene, or detach() be called.
    CScreenScene(CScreenModel *screen, QObject *parent = nullptr);
    ~CScreenScene() override;

    CScreenModel *screen() const { return m_screen; }
    /// Shows nothing from now on, since the screen is about to go.
    void detach();

    CItemView *viewOf(const CItemModel *item) const;
    /// The views, front first.
    QVector<CItemView *> itemViews() const { return order(); }
    /// Front first.
    QVector<CItemModel *> selectedModelItems() const;
    void selectModelItems(const QVector<CItemModel *> &items);
    /// The selectable views at a place, front first.
    QList<CItemView *> selectableViewsAt(const QPointF &scenePos,
                                         const QTransform &deviceTransform) const;
    /// The handle of a selected view at a place, also where other items cover it.
    QGraphicsItem *handleAt(const QPointF &scenePos, const QTransform &deviceTransform) const;
    /// Whether the press that is being handled is meant for this handle.
    bool isPressedHandle(const QGraphicsItem *handle) const { return handle == m_pressedHandle; }
    /// Whether the rubber band leaves out locked items: it does when it began on one, which is then
    /// the ground for what lies before it.
    bool isBandOnLocked() const { return m_bandOnLocked; }

    void setFrame(const QPixmap &frame);
    CFrameItem *frameItem() const { return m_frame; }
    void highlightObjectBehind(bool repaint);
    /// Where something dropped at a place lands; what moves there is not snapped to. Shows the snap
    /// cross there and the guide lines, until hideGuides().
    QPointF snapped(const QPointF &proposed, const QVector<CItemModel *> &moving = {});
    void hideGuides();

    // Gestures. One at a time; the model has changed live between its two ends.
    void beginGesture(const QVector<CItemModel *> &items, const QStringList &keys);
    bool isGestureActive() const { return !m_gesture.isEmpty(); }
    void reportGesture(const QString &readout);
    /// Records what has changed as one macro; without a text, as single commands.
    void finishGesture(const QString &macroText);
    /// Puts everything back as it was when the gesture began; what is pressed is not dragged then.
    void cancelGesture();

public Q_SLOTS:
    void setGrid(bool on, int spacing, QColor colour, Qt::PenStyle style);
    void selectionChanged();

Q_SIGNALS:
    void selectionShown(); ///< of what was chosen elsewhere; selectionChanged() tells the others
    void gestureReported(const QString &readout);
    void gestureEnded();
    /// A drag has moved items; they stand at their old positions again.
    void itemsDragged(const QVector<CItemModel *> &items, const QVector<QPointF> &newPositions);
    /// Something that the frame shows has changed.
    void contentChanged();
    void itemsChanged(); ///< there are more or fewer items

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    void onRowsInserted(const QModelIndex &parent, int first, int last);
    void onRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    void onPropertyChanged(CItemModel *item, const QString &key);
    bool isBelowScreen(const QStandardItem *item) const;
    void addViews(CItemModel *item);
    void removeViews(const CItemModel *item);
    void deleteViews();
    const QVector<CItemView *> &order() const;
    void restack() const;
    void settleGroups() const;
    void rowsChanged(const CItemModel *parent);
    void membersChanged(const CItemModel *group);
    void settleSoon();
    void settle();
    void collectOrder(const QStandardItem *parent) const;
    static bool isUnderSelection(const CItemModel *item, const QSet<CItemModel *> &selection);
    QRectF visibleRect() const;
    void beginMove(CItemView *pressed, const QPointF &scenePos);
    void snapMove(const QPointF &scenePos);
    void finishMove();
    QPointF snappedPosition(const QPointF &proposed, const QVector<CItemModel *> &moving);
    void forgetPress();

    CScreenModel *m_screen; ///< not owned; null once detached
    bool m_gridOn = true;
    int m_gridSpacing = 20;
    QColor m_gridColour;
    Qt::PenStyle m_gridStyle = Qt::SolidLine;
    CItemView *m_pressed = nullptr; ///< the item that is dragged
    QPointF m_pressOffset;          ///< from its position to the press
    QPointF m_pressedStart;         ///< its position at the press
    QPointF m_pressPos;
    CSnapCross *m_snapCross;
    QVector<QPair<CItemView *, QPointF>> m_others; ///< selected too, with their positions

    bool m_snapping = false; ///< the drag under way snaps
    CFrameItem *m_frame = nullptr;
    QHash<const CItemModel *, CItemView *> m_views;
    // What follows from many changes at once is worked out once, when it is asked for or when they
    // are over.
    mutable QVector<CItemView *> m_order;         ///< front first
    mutable QSet<const CItemModel *> m_dueGroups; ///< whose members have changed
    mutable bool m_isOrderDue = false;
    bool m_isSettleDue = false;
    bool m_haveRowsChanged = false;
    QVector<QPointer<CItemView>> m_guided; ///< views that show guide lines
    QVector<CItemChanges> m_gesture;
    std::unique_ptr<CMoveGesture> m_move;     ///< set exactly while items are dragged
    bool m_cancelled = false;                 ///< the rest of the drag until the release is ignored
    QGraphicsItem *m_pressedHandle = nullptr; ///< only compared, and only during a press
    bool m_bandOnLocked = false;
};
