#include "CHistoryDock.h"

#include "CHistoryView.h"
#include "CMainPanels.h"

#include <QAction>
#include <QEvent>
#include <QMainWindow>
#include <QMenu>
#include <QUndoGroup>
#include <QUndoStack>

CHistoryDock::CHistoryDock(QMainWindow *window, CMainPanels *panels, QUndoGroup *group,
                           QMenu *windowsMenu)
    : QDockWidget(window), m_view(new CHistoryView(this))
{
    setObjectName(QStringLiteral("history"));
    setWidget(m_view);
    window->addDockWidget(Qt::RightDockWidgetArea, this);
    window->tabifyDockWidget(panels->navigatorDock(), this);
    hide();
    toggleViewAction()->setObjectName(QStringLiteral("historyWindow"));
    windowsMenu->addAction(toggleViewAction());
    connect(toggleViewAction(), &QAction::triggered, this, &QWidget::raise);
    connect(group, &QUndoGroup::activeStackChanged, m_view, &CHistoryView::setStack);
    connect(m_view, &CHistoryView::aboutToGo, panels, &CMainPanels::finishEdits);
    retranslate();
}

void CHistoryDock::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CHistoryDock::retranslate()
{
    setWindowTitle(tr("History"));
}
