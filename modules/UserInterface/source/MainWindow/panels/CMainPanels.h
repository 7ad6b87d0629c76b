#pragma once

#include <QList>
#include <QModelIndexList>
#include <QObject>

class CBatchEditView;
class CBatchTab;
class CItemModel;
class CMainWindow;
class COutputWindowView;
class CExplorerPanel;
class CProjectExplorerView;
class CProjectModel;
class CProjectSelection;
class CScreen;
class CScreenModel;
class CScreenNavigator;
class CStatusBar;
class CWidgetPropertiesView;
class CWidgetSelectionPanel;
class CWidgetSelectionView;
class QAction;
class QDockWidget;

/// The docks around the screens and the screens themselves: makes them, lays them out, shows the
/// open project in them, and carries what one of them tells to the others.
class CMainPanels : public QObject
{
    Q_OBJECT

public:
    /// Makes all of them as children of the window. The explorer stands first, the output last.
    explicit CMainPanels(CMainWindow *window);

    QDockWidget *explorerDock() const { return m_explorerDock; }
    QDockWidget *navigatorDock() const { return m_navigatorDock; }
    QDockWidget *paletteDock() const { return m_paletteDock; }
    QDockWidget *propertiesDock() const { return m_propertiesDock; }
    QDockWidget *batchDock() const { return m_batchDock; }
    QDockWidget *outputDock() const { return m_outputDock; }
    CScreen *screens() const { return m_screens; }
    CScreenNavigator *navigator() const { return m_navigator; }
    CProjectExplorerView *explorer() const { return m_explorer; }
    CWidgetSelectionView *palette() const;
    CWidgetPropertiesView *properties() const { return m_properties; }
    /// Items and screens that a command is for, the same that all panels show as selected. Nothing
    /// that lies below another of them.
    QList<CItemModel *> selectedItems() const;
    /// Selects exactly these in all panels.
    void select(const QList<CItemModel *> &items);
    /// Opens the page of an item and selects it; a member of a group through its group.
    void reveal(CItemModel *item);
    /// Opens the name of the only selected item, or page, wherever the keys are.
    void renameSelected();
    /// Where the keys of the action mean the selection: on a canvas and in the explorer.
    void addDeselectAction(QAction *action);

    void connectStatusBar(CStatusBar *bar);
    void showProject(CProjectModel *project);
    void clear();
    /// Platform or resolution have changed.
    void refresh();
    /// What is typed in a panel but not committed yet counts: for what reads the whole project.
    void finishEdits();
    /// Whether the user is in the middle of something that must not be saved half done.
    bool isGestureActive() const;
    /// Whether a value is being typed in a panel.
    bool isEditorOpen() const;
    /// Takes that back, for a project that is about to be saved and closed without a question.
    void cancelGestures();
    void retranslate();
    /// Gives the docks of a first start their sizes again, which those that others add disturb.
    void shareSpace();

Q_SIGNALS:
    /// All panels show what is selected now, which may be the same as before.
    void selectionShown();
    /// They are to be seen as large as they can be; their page is open.
    void zoomWanted(const QVector<CItemModel *> &items);

public Q_SLOTS:
    void write(const QString &text); ///< into the output window
    /// Why something that the user asked for was not done: seen also when that window was closed.
    void report(const QString &text);
    /// What an exported screen lacks, a line each: as errors of its render, and always seen.
    void showFindings(const QString &screenName, const QString &errors);
    /// Of the explorer: selects the items on the canvas too, on their own page.
    void selectionChanged(const QModelIndexList &selected);
    /// Selects an item or a page of the project where it is, and brings it into sight. The keys
    /// stay where they are.
    void goTo(CItemModel *item);
    /// The same, and gives the keys to the canvas; a page shows what was selected there.
    void workOn(CItemModel *item);

private:
    void makePanels();
    void connectPanels();
    void showPalette();
    void placeWidget(const QString &type);
    void showScreen(CScreenModel *screen);
    void connectSelection();
    CItemModel *itemAt(const QModelIndex &index) const;
    void takeFromCanvas(const QList<CItemModel *> &items);
    void enterCanvas();
    void explorerClicked(const QModelIndex &index);
    void explorerMoved(const QVector<CItemModel *> &items);
    void explorerZooms(CItemModel *item);
    void showPage(const QList<CItemModel *> &touched);
    void showStep();
    void showSelection();
    void showProperties(const QList<CItemModel *> &items);
    void openPageOf(CItemModel *item);
    void showItem(const QString &screenName, quint32 id);
    QDockWidget *makeDock(const char *name, QWidget *content, Qt::DockWidgetArea area);
    void layOut();

    CMainWindow *const m_window;
    CProjectExplorerView *m_explorer = nullptr;
    CScreen *m_screens = nullptr;
    CScreenNavigator *m_navigator = nullptr;
    CWidgetSelectionPanel *m_palette = nullptr;
    CWidgetPropertiesView *m_properties = nullptr;
    CBatchEditView *m_batch = nullptr;
    CBatchTab *m_batchTab = nullptr;
    COutputWindowView *m_output = nullptr;
    QDockWidget *m_explorerDock = nullptr;
    QDockWidget *m_navigatorDock = nullptr;
    QDockWidget *m_paletteDock = nullptr;
    QDockWidget *m_propertiesDock = nullptr;
    QDockWidget *m_batchDock = nullptr;
    QDockWidget *m_outputDock = nullptr;
    CProjectSelection *m_selection = nullptr;
    CProjectModel *m_project = nullptr; ///< the one that is shown; not owned
    bool m_isShowing = false;           ///< the views are being brought in step with the selection
};
