#pragma once

class CArrangeActions;
class CBudgetActions;
class CCheckActions;
class CCompareActions;
class CFindActions;
class CGuideActions;
class CHistoryDock;
class CMainPanels;
class CMainWindow;
class CMenuBar;
class CProjectModel;
class CScreenRounds;
class CSnapActions;
class CStyleActions;

/// The subjects that add entries of their own to the menus, some of them with a dock. All of them
/// are children of the window.
class CMenuSubjects
{
public:
    /// In this order they stand in the menus and at the window's edges.
    CMenuSubjects(CMainWindow *window, CMainPanels *panels, CMenuBar *menus);

    CArrangeActions *arrange() const { return m_arrange; }
    CGuideActions *guides() const { return m_guides; }
    CFindActions *find() const { return m_find; }
    CHistoryDock *history() const { return m_history; }
    CCheckActions *checks() const { return m_checks; }
    CCompareActions *compare() const { return m_compare; }
    CBudgetActions *budget() const { return m_budget; }
    CSnapActions *snap() const { return m_snap; }
    CScreenRounds *rounds() const { return m_rounds; }

    void setProject(CProjectModel *project); ///< null when it goes
    void retranslate();

private:
    CArrangeActions *m_arrange;
    CGuideActions *m_guides;
    CFindActions *m_find;
    CHistoryDock *m_history;
    CScreenRounds *m_rounds; ///< of the checks and the budget, which look at all screens
    CCheckActions *m_checks;
    CCompareActions *m_compare;
    CBudgetActions *m_budget;
    CStyleActions *m_style;
    CSnapActions *m_snap;
};
