#pragma once

#include "CGesture.h"
#include "CItemViews.h"
#include "CSnapGuides.h"
#include "CSnapping.h"
#include "ICanvas.h"

#include <QColor>
#include <QGraphicsScene>
#include <QPointer>

#include <memory>

class CFrameItem;
class CScreenModel;
class CSelectionFrame;
class QStandardItem;

/// The canvas of one screen: an item view for each model item, the emulator's frame behind them,
/// the grid over them. It follows the model's rows and properties.
/// It holds the one gesture of the pointer.
class CScreenScene final : public QGraphicsScene, public ICanvas
{
    Q_OBJECT

public:
    /// The screen belongs to a project and must outlive the scene, or detach() be called.
    explicit CScreenScene(CScreenModel *screen, QObject *parent = nullptr);
    ~CScreenScene() override;

    CScreenModel *screen() const { return m_screen; }
    /// Shows nothing from now on, since the screen is about to go.
    void detach();

    CItemView *viewOf(const CItemModel *item) const override;
    /// The views, front first.
    QVector<CItemView *> itemViews() const { return m_views.order(); }
    /// Front first.
    QVector<CItemModel *> selectedModelItems() const;
    /// What was chosen elsewhere, which knows of it.
    void selectModelItems(const QVector<CItemModel *> &items);
    /// The same for what is chosen here: tells selectionChanged().
    void chooseModelItems(const QVector<CItemModel *> &items);
    /// The selectable views at a place, front first.
    QList<CItemView *> selectableViewsAt(const QPointF &scenePos,
                                         const QTransform &deviceTransform) const;
    /// The handle of a selected view at a place, also where other items cover it.
    QGraphicsItem *handleAt(const QPointF &scenePos, const QTransform &deviceTransform) const;
    bool isBandOnLocked() const; ///< it leaves out locked items
    bool isLeftOutOfBand(const CItemModel &item) const override;
    bool isReachable(const CItemModel &item) const override;
    bool isEntered(const CItemModel &item) const override { return m_entered == &item; }
    /// The group whose members are selected one by one; null for none. It is the one of the members
    /// that are selected: choosing something else leaves it.
    CItemModel *entered() const { return m_entered; }
    /// What new items become rows of: the group that was entered, or the screen.
    CItemModel *holder() const;
    /// The one of several selected items that others are arranged by; null for none.
    CItemModel *keyItem() const { return m_keyItem; }
    void setKeyItem(CItemModel *item);
    bool hasOwnHandles(const CItemView &view) const override { return m_single == &view; }
    const CSelectionFrame *selectionFrame() const { return m_selectionFrame; }
    /// Frames what a click at a place would take, until hideTarget().
    void showTargetAt(const QPointF &scenePos, const QTransform &deviceTransform);
    void hideTarget();
    const CItemView *target() const { return m_target; } ///< null for none

    void setFrame(const QPixmap &frame);
    CFrameItem *frameItem() const { return m_frame; }
    void highlightObjectBehind(bool repaint);
    /// Where something dropped at a place lands; what moves there is not snapped to. Shows the snap
    /// cross there and the guide lines, until hideGuides().
    QPointF snapped(const QPointF &proposed, const QVector<CItemModel *> &moving = {});
    void hideGuides();
    /// What is dragged over the canvas from elsewhere; until hideGuides().
    CSnapping &snapping() { return m_snapping; }

    /// A key that a gesture heeds went down or up while the pointer rests.
    void followModifiers(Qt::KeyboardModifiers modifiers);
    bool isGestureActive() const; ///< it has changed the model live, or will
    /// Puts everything back as it was when the gesture began; what is pressed is not dragged then.
    void cancelGesture();

public Q_SLOTS:
    /// Of this and all other scenes: CEditorState owns it.
    void setGrid(bool on, int spacing, QColor colour, Qt::PenStyle style);
    void selectionChanged();

Q_SIGNALS:
    void keyItemChanged();
    void selectionShown(); ///< of what was chosen elsewhere; selectionChanged() tells the others
    void gestureReported(const QString &readout);
    void gestureEnded();
    /// A drag has moved items; they stand at their old positions again.
    void itemsDragged(const QVector<CItemModel *> &items, const QVector<QPointF> &newPositions);
    /// A drag has made copies, which are selected; the frame of what they are of begins at `from`.
    void itemsCopied(const QVector<CItemModel *> &copies, const QPointF &from);
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
    void removeViews(const CItemModel *item);
    void deleteViews();
    void updateHandles();
    void enter(CItemModel *group);
    QList<CItemView *> viewsForPress(const QGraphicsSceneMouseEvent &event);
    void rowsChanged(const CItemModel *parent);
    void followChangesSoon();
    void followChanges();
    void beginGesture(std::unique_ptr<CGesture> gesture, const QGraphicsSceneMouseEvent &press);
    std::unique_ptr<CGesture> moveOf(CItemView *pressed);
    std::unique_ptr<CGesture> copyOf(const CItemView &pressed);
    void followPointer(const SGesturePointer &pointer);
    void finishGesture();
    void dropGesture();

    CScreenModel *m_screen; ///< not owned; null once detached
    CSnapGuides m_guides;
    CSnapping m_snapping;
    CItemViews m_views;
    CFrameItem *m_frame = nullptr;
    CSelectionFrame *m_selectionFrame; ///< the scene's
    QPointer<CItemView> m_single;      ///< the one selected view
    CItemModel *m_entered = nullptr;
    CItemModel *m_keyItem = nullptr;
    CItemModel *m_keyPressed = nullptr; ///< becomes the key item unless it is dragged
    QPointer<CItemView> m_target;       ///< that is framed as what a click would take
    bool m_isFollowingDue = false;      ///< once many changes are over
    bool m_haveRowsChanged = false;
    std::unique_ptr<CGesture> m_gesture; ///< from a press to its release
    SGesturePointer m_pointer;           ///< where it was told of last
};
