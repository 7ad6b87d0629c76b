#pragma once

#include <QObject>

class CBudgetResults;
class CBudgetView;
class CMainPanels;
class CProjectModel;
class CScreenRounds;
class QDockWidget;
class QMainWindow;
class QMenu;

/// The dock "Budget". Screens are measured while it is to be seen.
class CBudgetActions final : public QObject
{
    Q_OBJECT

public:
    /// Adds the dock to the window, hidden at first, and an entry to the menu. `rounds` must live
    /// longer.
    CBudgetActions(QMainWindow *window, CMainPanels *panels, CScreenRounds *rounds,
                   QMenu *windowsMenu);

    QDockWidget *dock() const { return m_dock; }
    CBudgetView *view() const { return m_view; }
    void setProject(CProjectModel *project); ///< not owned; null for none
    void retranslate();

private:
    CBudgetResults *const m_results;
    CBudgetView *const m_view;
    QDockWidget *const m_dock;
};
