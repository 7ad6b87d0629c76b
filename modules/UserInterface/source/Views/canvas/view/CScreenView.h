#pragma once

#include "CMeasureTool.h"
#include "CViewPan.h"

#include <QGraphicsView>

#include <cstddef>
#include <optional>

class CGestureReadout;
class CGuideTool;
class CItemDrop;
class CItemModel;
class CScreenModel;
class CScreenScene;
class CSelectionCommands;
class CViewZoom;
class QMenu;

/// Shows the canvas of one screen and takes what the user does there: mouse, wheel, keys, drops and
/// the context menu. What is done to the selected items is CSelectionCommands', drops are
/// CItemDrop's, the zoom is CViewZoom's.
class CScreenView final : public QGraphicsView
{
    Q_OBJECT

public:
    explicit CScreenView(CScreenModel *screen, QWidget *parent = nullptr);
    ~CScreenView() override;

    CScreenModel *screen() const;
    CScreenScene *screenScene() const { return m_scene; }
    CSelectionCommands *commands() const { return m_commands; }
    CGuideTool *guides() const { return m_guides; }
    const CMeasureTool &measure() const { return m_measure; }
    /// Lets go of the screen, which is about to go.
    void detach();

    // The answers of the emulator.
    void setFrame(const QPixmap &frame);
    /// Paints nothing until the next frame, or for a moment when none comes: items and their
    /// picture then move together, and are painted once.
    void awaitFrame();
    void setMemoryUsage(size_t displayListBytes, size_t graphicsMemoryBytes);
    void setDisplayList(const QString &text, const QByteArray &bytes);
    QString lastDisplayListText() const; ///< one command a line
    QByteArray lastDisplayListBytes() const { return m_displayListBytes; }

    QVector<CItemModel *> selectedItems() const; ///< front first
    bool isGestureActive() const;
    int zoomPercent() const;
    /// Asks for the zoom and the place of before the last change.
    void showPreviousZoom();
    bool hasPreviousZoom() const;
    double scale() const { return transform().m11(); }
    /// Adds a widget of a kind to the middle of what is seen, selects it and takes the keys.
    void placeInMiddle(const QString &type);
    /// Counts widgets and bitmaps and tells them.
    void reportCounts();

Q_SIGNALS:
    void mouseMovedSC(QPoint position); ///< scene units
    void pointerLeft();
    void widgetDropped(qint32 widgets); ///< how many the screen has
    void bitmapDropped(qint32 bitmaps);
    void hiddenCounted(int hidden); ///< items that are not drawn here
    void memoryUsageChanged(size_t displayListBytes, size_t graphicsMemoryBytes);
    void zoomChanged(int percent);
    void zoomChanged(int percent, int type);
    void scaleChanged(qreal scale);
    void viewportMoved(); ///< scrolled, zoomed or resized
    void resized();
    void itemMoved(CItemModel *item, QPointF oldPosition, QPointF newPosition);
    void message(const QString &text);
    void menuAboutToShow(QMenu *menu); ///< for the items; more may be added
    void frameWanted();                ///< the screen looks different now

public Q_SLOTS:
    // Those of commands() that are connected to by name.
    void copy();
    void paste();
    void cut();
    void orderingToFront();
    void orderingToBack();
    void orderingForward();
    void orderingBackward();
    void lockItems();
    void group();
    void ungroup();
    void updateRepaint();
    /// Brings a part of the scene into sight, also beside the page.
    void reveal(const QRectF &part);
    /// Percentage and CZoomComboWidget::Type: what CEditorState says is to be shown.
    void zoom(int percent, int type);
    /// Writes a move back to the model: from where the item is to the new position.
    void itemsMoved(CItemModel *item, QPointF oldPosition, QPointF newPosition);

protected:
    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    void connectScene();
    void showReadout(const QString &text);
    void connectCommands();
    void connectGuides();
    bool doItemsKeep(const QPoint &position, Qt::Orientation guide, double distance) const;
    void showNext();
    void leaveItems();
    void followControl(const QKeyEvent &event);
    void reportPointer(const QPoint &position);
    bool isPointerHeld() const;
    bool mayMeasure(const QKeyEvent &event) const;
    void selectUnder(const QPoint &position);
    void selectCovered(const QPoint &position);
    void cancelRubberBand();
    void dropGesture();
    void showAtRest();
    void becomeBusy();
    void paintAgain();

    CScreenScene *m_scene;
    CSelectionCommands *m_commands; ///< a child
    CItemDrop *m_drop;              ///< a child
    CViewZoom *m_zoom;              ///< a child
    CGuideTool *m_guides;           ///< a child
    CMeasureTool m_measure;
    CViewPan m_pan;
    QTimer *m_restTimer;
    QTimer *m_waitTimer; ///< runs while a frame is awaited
    CGestureReadout *m_readout;
    QString m_displayListText;
    QByteArray m_displayListBytes;
    size_t m_graphicsMemory = 0;
    QVector<CItemModel *> m_selectedAtPress; ///< only compared, since items may have gone since
    std::optional<QPoint> m_altPress;        ///< until the release; without a drag it is a click
    bool m_leftHeld = false;      ///< pressed here and, as far as is known, not released yet
    bool m_isDoubleClick = false; ///< until the release
};
