#pragma once

#include <QColor>
#include <QList>
#include <QObject>

#include <array>

class CGridComboWidget;
class CMainWindow;
class CZoomComboWidget;
class QAction;
class QActionGroup;
class QMenu;
class QMenuBar;
class QToolBar;

/// All actions of the main window, its menus and its tool bar, made from tables, and the way from
/// each action to the slot that it stands for.
class CMenuBar : public QObject
{
    Q_OBJECT

public:
    /// In the order in which the actions are made.
    enum EAction {
        New,
        Open,
        CloseProject,
        SaveProject,
        SaveAs,
        NewPage,
        ProjectToDL,
        PageToDL,
        ProjectToBinary,
        PageToBinary,
        ExportPackage,
        PrintScreen,
        Exit,
        BringToFront,
        SendToBack,
        BringForward,
        SendBackward,
        Cut,
        Copy,
        Paste,
        SelectAll,
        SelectNone,
        SelectInverse,
        Delete,
        LockUnlock,
        Undo,
        Redo,
        Group,
        Ungroup,
        Dark,
        Light,
        ZoomReset,
        FitToPage,
        FitToWidth,
        RulerSize,
        GridSize,
        GridToggle,
        GridType,
        GridColour,
        OutputWindow,
        StatusBar,
        ProjectWindow,
        PropertiesWindow,
        LibraryWindow,
        Resolution,
        Search,
        SpellCheck,
        SnapToGrid,
        Options,
        Language,
        Help,
        About,
        Updates,
        Revert,
        Fonts,
        PasteInPlace,
        Duplicate,
        ZoomSelection,
        ZoomPrevious,
        HideShow,
        ShowHidden,
        Bright,
        BatchWindow,
        GridFaint,
        Rename,
        ActionCount,
        Separator = ActionCount ///< in lists of menu entries
    };
    Q_ENUM(EAction)
    enum EMenu {
        FileMenu,
        EditMenu,
        ArrangeMenu, ///< which CArrangeActions fills
        ViewMenu,
        ProjectMenu,
        ToolsMenu,
        HelpMenu,
        RecentMenu,
        ExportMenu,
        OrderMenu,
        ClipboardMenu,
        SelectMenu,
        GroupingMenu,
        ThemeMenu,
        ZoomMenu,
        GridMenu,
        WindowsMenu,
        MenuCount
    };

    static constexpr int MaxNameLength = 28; ///< of a recent project, characters

    explicit CMenuBar(CMainWindow *window);
    ~CMenuBar() override;

    QAction *action(EAction id) const { return m_actions[id]; }
    QMenu *menu(EMenu id) const { return m_menus[id]; }
    QToolBar *toolBar() const { return m_toolBar; }
    CZoomComboWidget *zoomWidget() const { return m_zoomWidget; }
    CGridComboWidget *gridWidget() const { return m_gridWidget; }

    /// Sets all texts again in the language that is now in force.
    void retranslate();
    void setChecked(EAction id, bool checked);
    /// Marks the way to save while there is something to save.
    void setUnsaved(bool isUnsaved);
    /// Enables what there is to do with a project, or disables it.
    void setProjectOpen(bool isOpen);

    /// A file name as the recent projects show it: long ones without their middle.
    static QString shortened(const QString &fileName);

public Q_SLOTS:
    /// Brings the keys into a canvas's menu, which the user may have changed, and what else there
    /// is to do with items.
    void complete(QMenu *contextMenu) const;
    void setSnapToGrid();
    void updateRecentSubMenu();
    void updateZoomMenu(int percent, int type);
    void updateGridMenu(bool on, int spacing, QColor colour, Qt::PenStyle style);

private:
    void makeActions();
    QAction *makeAction(int id);
    void makeMenus();
    void fillMenu(int id);
    void makeToolBar();
    void connectWindow();
    void updateUndoTexts();

    CMainWindow *const m_window;
    QMenuBar *const m_bar;
    QToolBar *m_toolBar = nullptr;
    CZoomComboWidget *const m_zoomWidget;
    CGridComboWidget *const m_gridWidget;
    std::array<QAction *, ActionCount> m_actions{};
    std::array<QMenu *, MenuCount> m_menus{};
    QList<QAction *> m_recentActions;
    QActionGroup *m_themeGroup = nullptr;
};
