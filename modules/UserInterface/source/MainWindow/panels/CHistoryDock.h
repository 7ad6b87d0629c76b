#pragma once

#include <QDockWidget>

class CHistoryView;
class CMainPanels;
class QMainWindow;
class QMenu;
class QUndoGroup;

/// The dock with the steps of the open project, and its entry in the Windows menu.
class CHistoryDock final : public QDockWidget
{
    Q_OBJECT

public:
    /// Beside the navigator, hidden at first.
    CHistoryDock(QMainWindow *window, CMainPanels *panels, QUndoGroup *group, QMenu *windowsMenu);

    CHistoryView *view() const { return m_view; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    CHistoryView *const m_view;
};
