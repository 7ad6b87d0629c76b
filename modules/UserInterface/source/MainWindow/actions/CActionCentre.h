#pragma once

#include <QObject>
#include <QVector>

class CActionFinder;
class CMainPanels;
class CMainWindow;
class CWindowActions;
class QAction;

/// The ways to all actions of the window: a search over them, over screens and over items, and the
/// page of their keys.
class CActionCentre final : public QObject
{
    Q_OBJECT

public:
    /// Adds its own entries to the menus, which must have all others by then.
    CActionCentre(CMainWindow *window, CMainPanels *panels);

    CWindowActions *actions() const { return m_actions; }
    CActionFinder *finder() const { return m_finder; }
    void retranslate();

public Q_SLOTS:
    void search();
    void showShortcuts();

private:
    QAction *makeAction(const char *id, void (CActionCentre::*slot)());
    void tellLacks();

    CMainWindow *const m_window;
    CMainPanels *const m_panels;
    CWindowActions *const m_actions;
    CActionFinder *const m_finder;
    QAction *m_search = nullptr;
    QAction *m_shortcuts = nullptr;
};
