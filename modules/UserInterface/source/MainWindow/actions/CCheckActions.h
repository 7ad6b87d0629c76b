#pragma once

#include <QObject>

class CCheckResults;
class CChecksView;
class CMainPanels;
class CProjectModel;
class CScreenRounds;
class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;

/// The dock "Checks", and the keys that go through what it has found. Looks for faults while the
/// dock is there.
class CCheckActions final : public QObject
{
    Q_OBJECT

public:
    /// Adds the dock to the window, hidden at first, and entries to the menus. `rounds` must
    /// live longer.
    CCheckActions(QMainWindow *window, CMainPanels *panels, CScreenRounds *rounds, QMenu *toolsMenu,
                  QMenu *windowsMenu);

    QDockWidget *dock() const { return m_dock; }
    CChecksView *view() const { return m_view; }
    void setProject(CProjectModel *project); ///< not owned; null for none
    void retranslate();

private:
    void showCount();
    void comeUp();
    void go(int step);

    QMainWindow *const m_window;
    CMainPanels *const m_panels;
    CCheckResults *const m_results;
    CChecksView *const m_view;
    QDockWidget *const m_dock;
    QAction *const m_next;
    QAction *const m_previous;
};
