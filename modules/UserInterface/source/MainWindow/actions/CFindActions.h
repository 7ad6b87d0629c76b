#pragma once

#include <QObject>

#include <array>

class CFindPanel;
class CMainPanels;
class CProjectModel;
class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;

/// The Find dock and the ways to it: entries of the Edit and the Windows menu with their keys. What
/// is chosen there is shown on its page.
class CFindActions final : public QObject
{
    Q_OBJECT

public:
    enum EWhat { Find, Replace, Next, Previous, WhatCount };

    /// Adds the dock to the window, hidden at first, and the entries behind those of the menus.
    CFindActions(QMainWindow *window, CMainPanels *panels, QMenu *editMenu, QMenu *windowsMenu);

    QAction *action(EWhat what) const { return m_actions.at(what); }
    QDockWidget *dock() const { return m_dock; }
    CFindPanel *panel() const { return m_panel; }
    void setProject(CProjectModel *project); ///< not owned; null for none
    void retranslate();

private:
    void run(EWhat what);

    CMainPanels *const m_panels;
    CFindPanel *const m_panel;
    QDockWidget *const m_dock;
    std::array<QAction *, WhatCount> m_actions{};
};
