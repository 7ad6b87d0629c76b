#include "CMenuSubjects.h"

#include "CArrangeActions.h"
#include "CBudgetActions.h"
#include "CCheckActions.h"
#include "CChecksView.h"
#include "CCompareActions.h"
#include "CFindActions.h"
#include "CGuideActions.h"
#include "CHistoryDock.h"
#include "CLateContent.h"
#include "CMainPanels.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CProjectSession.h"
#include "CScreenRounds.h"
#include "CSnapActions.h"
#include "CStyleActions.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QUndoGroup>

CMenuSubjects::CMenuSubjects(CMainWindow *window, CMainPanels *panels, CMenuBar *menus)
    : m_arrange(new CArrangeActions(window, panels, menus->menu(CMenuBar::ArrangeMenu))),
      m_guides(new CGuideActions(window, panels, menus->menu(CMenuBar::ViewMenu))),
      m_find(new CFindActions(window, panels, menus->menu(CMenuBar::EditMenu),
                              menus->menu(CMenuBar::WindowsMenu))),
      m_history(new CHistoryDock(window, panels, window->undoGroup(),
                                 menus->menu(CMenuBar::WindowsMenu))),
      m_rounds(new CScreenRounds(window)),
      m_checks(new CCheckActions(window, panels, m_rounds, menus->menu(CMenuBar::ToolsMenu),
                                 menus->menu(CMenuBar::WindowsMenu))),
      m_compare(new CCompareActions(window, panels, *menus,
                                    [window] {
                                        const CProjectSession *session = window->session();
                                        return CCompareActions::SPlaces{window->projectPath(),
                                                                        session->recoveryFile(),
                                                                        session->recoveryRoot()};
                                    })),
      m_budget(new CBudgetActions(window, panels, m_rounds, menus->menu(CMenuBar::WindowsMenu))),
      m_style(new CStyleActions(window, panels, menus->menu(CMenuBar::ClipboardMenu))),
      m_snap(new CSnapActions(menus->menu(CMenuBar::ToolsMenu), menus->action(CMenuBar::Options),
                              window))
{
    m_rounds->setBusy([panels] { return panels->isGestureActive() || panels->isEditorOpen(); });
    QObject::connect(window->session(), &CProjectSession::saved, m_compare,
                     [this](const QString &, CProjectFile::EWrite kind) {
                         if (kind == CProjectFile::EWrite::ByUser)
                             m_compare->followSave();
                     });
    m_checks->view()->setSaved(
        [window](const QString &file) { return window->session()->isOnDiskWith(file); });
    panels->shareSpace(); // all docks are there
    QAction *navigator = panels->navigatorDock()->toggleViewAction();
    navigator->setObjectName(QStringLiteral("navigatorWindow"));
    menus->menu(CMenuBar::WindowsMenu)->insertAction(m_find->dock()->toggleViewAction(), navigator);
    QObject::connect(navigator, &QAction::triggered, panels->navigatorDock(), &QWidget::raise);
    for (QDockWidget *dock : {m_find->dock(), static_cast<QDockWidget *>(m_history),
                              m_checks->dock(), m_compare->dock(), m_budget->dock()})
        new CLateContent(dock); // which owns it
    QObject::connect(window->undoGroup(), &QUndoGroup::indexChanged, m_arrange,
                     &CArrangeActions::update);
}

void CMenuSubjects::setProject(CProjectModel *project)
{
    m_rounds->setProject(nullptr); // nothing more of the old one is told
    m_find->setProject(project);
    m_checks->setProject(project);
    m_compare->setProject(project);
    m_budget->setProject(project);
    m_rounds->setProject(project);
}

void CMenuSubjects::retranslate()
{
    m_arrange->retranslate();
    m_guides->retranslate();
    m_snap->retranslate();
    m_style->retranslate();
    m_find->retranslate();
    m_checks->retranslate();
    m_compare->retranslate();
    m_budget->retranslate();
}
