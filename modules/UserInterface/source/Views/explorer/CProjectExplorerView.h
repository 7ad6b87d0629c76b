#pragma once

#include "CExplorerItemDrag.h"
#include "CProjectModel.h"

#include <QFileDialog>
#include <QItemSelection>
#include <QPointer>
#include <QSet>
#include <QTreeView>

#include <memory>

class CExplorerDelegate;
class CExplorerFilter;
class CItemModel;
class CScreenModel;
class QDrag;
class QMenu;

/// The open project as a tree: screens with their widgets and groups. Its selection goes with the
/// canvas's; screens and items are reordered by dragging, items also dragged to a place on a
/// canvas; marks at the end of its row hide and lock an item; pages are cut, copied, pasted, saved
/// and loaded through the context menu. While a screen is dragged over the tree it is out of the
/// model, see isDragging().
class CProjectExplorerView : public QTreeView
{
    Q_OBJECT

public:
    explicit CProjectExplorerView(QWidget *parent = nullptr);
    ~CProjectExplorerView() override;

    /// Shows a project, all expanded; null shows none. The project is not owned.
    void setProject(CProjectModel *project);
    CProjectModel *project() const { return m_project; }

    /// Only to be compared.
    const CScreenModel *shownScreen() const { return m_shownScreen; }
    CExplorerFilter *filter() const { return m_filter; }

    /// Selects exactly these items and reports nothing.
    void selectItems(const QList<CItemModel *> &items);

    /// True while a screen is out of the model: not the time to save the project.
    bool isDragging() const { return m_taken != nullptr; }

    /// The page operations for the current selection and clipboard; owned by the parent.
    QMenu *makeContextMenu(QWidget *parent);

public Q_SLOTS:
    /// The screen that the editor shows; null for none.
    void setShownScreen(CScreenModel *screen);
    void showContextMenu(QPoint position);
    void cut();
    void copy();
    void paste();
    void saveScreen();
    void loadScreen();

Q_SIGNALS:
    void screenActivated(CScreenModel *screen);
    /// By the user. That rows have left the project or moved within it is no choice of his.
    void onSelectionChanged(const QModelIndexList &selected);
    /// A double-click on an item: it is to be seen as large as it can be.
    void zoomWanted(CItemModel *item);
    /// They are where they were dropped in the tree.
    void itemsMoved(const QVector<CItemModel *> &items);
    /// The keys have come to a member of a group, which cannot be selected.
    void memberReached(CItemModel *member);
    /// Something for the output window.
    void message(const QString &text);

protected Q_SLOTS:
    void processDoubleClickedItem(const QModelIndex index);

protected:
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

    /// Runs the drag to its end; tests play the user here.
    virtual void execute(QDrag *drag);

private:
    void watchRemovals();
    void keepExpanded(const QModelIndex &parent, int first, int last);
    void expandAgain(const QModelIndex &parent, int first, int last);
    QVector<CItemModel *> markedBy(CItemModel &item) const;
    CItemModel *itemAt(const QModelIndex &index) const;
    QVector<CScreenModel *> selectedScreens() const;
    QVector<CItemModel *> draggedItems(CItemModel *pressed) const;
    static QMimeData *memberData();
    bool areItems(const QMimeData &payload) const;
    void followItems(QDropEvent *event);
    void scrollAtEdges(int y);
    void takeDraggedScreen();
    CItemModel *putScreenBack();
    void showReturned(CItemModel &screen);
    int bottomOf(QModelIndex item) const;
    void followPointer(const QPoint &position);
    void parkIndicator();
    void selectPagesFrom(int row);
    void toClipboard(QMimeData *pages, const QString &error);
    QString askForPageFile(QFileDialog::AcceptMode mode, const QString &proposed = {});

    QPointer<CProjectModel> m_project;
    QItemSelection m_reportedSelected;
    QItemSelection m_reportedDeselected;
    QMetaObject::Connection m_removalBegins;
    QMetaObject::Connection m_removalEnds;
    bool m_syncing = false;     ///< a selection of the canvas is being applied
    bool m_rowsLeaving = false; ///< what is deselected meanwhile nobody has chosen

    CExplorerDelegate *const m_delegate;
    CExplorerFilter *const m_filter;
    CExplorerItemDrag m_itemDrag{this};
    QSet<const CItemModel *> m_openWhenGone; ///< were expanded when they went; only compared
    QPersistentModelIndex m_pressedMember;   ///< of a group, which may become a drag
    QPoint m_pressPos;
    bool m_isMarkPressed = false; ///< until the release, which is no click on the row
    QWidget *const m_indicator;
    CItemModel *m_dragged = nullptr; ///< set from the start of a drag to its end
    std::unique_ptr<CItemModel> m_taken;
    int m_takenRow = -1;
    QRect m_takenRect;    ///< where its row was seen, in a tree that is not scrolled
    int m_targetRow = -1; ///< as if the taken row were not there; -1: behind all
    bool m_wasShown = false;
    bool m_wasExpanded = false;
    CScreenModel *m_shownScreen = nullptr; ///< compared only, never followed
};
