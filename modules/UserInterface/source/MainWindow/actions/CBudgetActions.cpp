#include "CBudgetActions.h"

#include "CBudgetResults.h"
#include "CBudgetView.h"
#include "CItemModel.h"
#include "CMainPanels.h"
#include "CScreenRounds.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>

CBudgetActions::CBudgetActions(QMainWindow *window, CMainPanels *panels, CScreenRounds *rounds,
                               QMenu *windowsMenu)
    : QObject(window),
      m_results(new CBudgetResults(this)),
      m_view(new CBudgetView),
      m_dock(new QDockWidget(window))
{
    m_dock->setObjectName(QStringLiteral("budget"));
    m_dock->setWidget(m_view);
    window->addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    window->tabifyDockWidget(panels->outputDock(), m_dock);
    m_dock->hide();
    m_dock->toggleViewAction()->setObjectName(QStringLiteral("budgetWindow"));
    windowsMenu->addAction(m_dock->toggleViewAction());

    m_view->setResults(m_results);
    connect(rounds, &CScreenRounds::drawn, m_results, &CBudgetResults::takeScreen);
    connect(rounds, &CScreenRounds::done, m_results, &CBudgetResults::takeProject);
    connect(m_dock, &QDockWidget::visibilityChanged, rounds,
            [this, rounds](bool isSeen) { rounds->setWanted(this, isSeen); });
    connect(m_view, &CBudgetView::message, panels, &CMainPanels::report);
    connect(m_view, &CBudgetView::itemsWanted, panels, [panels](const QList<CItemModel *> &items) {
        panels->goTo(items.first());
        if (items.size() > 1)
            panels->select(items);
    });
    connect(m_dock->toggleViewAction(), &QAction::triggered, m_dock, [this](bool isShown) {
        if (isShown)
            m_dock->raise(); // it is one of several in its place
    });
    retranslate();
}

void CBudgetActions::setProject(CProjectModel *project)
{
    m_results->setProject(project);
}

void CBudgetActions::retranslate()
{
    m_dock->setWindowTitle(tr("Budget"));
}
