#pragma once

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QTabWidget>
#include <QVector>

#include <cstddef>

class CItemModel;
class CProjectModel;
class CScreenCompositeView;
class CScreenModel;
class CScreenView;
class QLabel;
class QMenu;
class QModelIndex;
class QStandardItem;

/// The tab area: a tab for each screen that is open. Closing a tab leaves the screen in the
/// project; it is opened again from elsewhere. A screen that is removed loses its tab, and gets it
/// back when it comes back.
class CScreen final : public QTabWidget
{
    Q_OBJECT

public:
    explicit CScreen(QWidget *parent = nullptr);
    ~CScreen() override;

    /// Shows the tabs of another project, none at first. Null closes all.
    void setProject(CProjectModel *project);
    /// Shows the tab of a screen, made when there is none.
    void openScreen(CScreenModel *screen);
    /// Tabs for all of these, in this order when none is open yet, of which only the one for
    /// `current` is shown: the others are not laid out before they are seen.
    void openScreens(const QVector<CScreenModel *> &screens, CScreenModel *current);
    CScreenView *viewOf(const CScreenModel *screen) const; ///< null when it has no tab
    void closeScreen(CScreenModel *screen);
    void clear();

    CScreenView *currentView() const; ///< null when no tab is open
    CScreenModel *currentScreen() const;
    QString currentErrors() const;             ///< of its last render, a line each
    QList<CItemModel *> selectedItems() const; ///< of the current screen
    /// Whether something is being dragged on a canvas.
    bool isGestureActive() const;
    /// What is said while no tab is open.
    void setHint(const QString &text);

public Q_SLOTS:
    /// Adds a new screen to the project and opens it.
    void newTab();
    void rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    /// Selects exactly these items on the canvases; not told by selectionChanged().
    void selectItems(const QList<CItemModel *> &items);
    /// Resolution or emulator have changed: everything that is shown is drawn anew.
    void updateRepaint();

Q_SIGNALS:
    void currentScreenChanged(CScreenModel *screen);
    void selectionChanged(const QList<CItemModel *> &items);
    /// The user turns to the canvas of the current screen, by a press or with the keys.
    void canvasEntered();
    void cursorMoved(QPoint position); ///< scene units
    void viewResized();
    void widgetCountChanged(int widgets);
    void bitmapCountChanged(int bitmaps);
    void hiddenCountChanged(int hidden);
    void memoryUsageChanged(size_t displayListBytes, size_t graphicsMemoryBytes);
    void renderErrors(CScreenModel *screen, const QString &errors);
    void message(const QString &text);
    /// A gesture is changing the item.
    void liveGeometry(CItemModel *item);
    void keyItemChanged();
    void menuAboutToShow(QMenu *menu); ///< of a canvas
    void gestureEnded();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void tabInserted(int index) override;
    void tabRemoved(int index) override;

private:
    CScreenCompositeView *page(int index) const;
    CScreenCompositeView *pageOf(const QStandardItem *screen) const;
    CScreenCompositeView *addPage(CScreenModel *screen, int index);
    void showName(int index, const CItemModel &screen);
    void connectView(CScreenCompositeView *page);
    void removePage(CScreenCompositeView *page);
    void rowsInserted(const QModelIndex &parent, int first, int last);
    void propertyChanged(CItemModel *item, const QString &key);
    void currentTabChanged();
    void renameTab(int index);
    void showTabMenu(const QPoint &position);
    void updateHint();

    QPointer<CProjectModel> m_project; ///< not owned
    QLabel *m_hint;
    QString m_hintText;                        ///< empty: the usual one
    QSet<const QStandardItem *> m_removedOpen; ///< screens that had a tab; never followed
};
