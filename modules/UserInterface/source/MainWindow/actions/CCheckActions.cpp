#include "CCheckActions.h"

#include "CCheckResults.h"
#include "CChecksView.h"
#include "CItemModel.h"
#include "CMainPanels.h"
#include "CScreenRounds.h"

#include <QAction>
#include <QDockWidget>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>
#include <QTimer>

namespace {
constexpr int FilesTime = 2000;  // milliseconds
constexpr int LeastHeight = 200; // pixels, for some findings
} // namespace

CCheckActions::CCheckActions(QMainWindow *window, CMainPanels *panels, CScreenRounds *rounds,
                             QMenu *toolsMenu, QMenu *windowsMenu)
    : QObject(window),
      m_window(window),
      m_panels(panels),
      m_results(new CCheckResults(this)),
      m_view(new CChecksView),
      m_dock(new QDockWidget(window)),
      m_next(new QAction(window)),
      m_previous(new QAction(window))
{
    m_dock->setObjectName(QStringLiteral("checks"));
    m_dock->setWidget(m_view);
    window->addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    window->tabifyDockWidget(panels->outputDock(), m_dock);
    m_dock->hide();
    m_dock->toggleViewAction()->setObjectName(QStringLiteral("checksWindow"));
    windowsMenu->addAction(m_dock->toggleViewAction());
    m_next->setObjectName(QStringLiteral("nextFinding"));
    m_next->setShortcut(QKeySequence(Qt::Key_F8));
    m_previous->setObjectName(QStringLiteral("previousFinding"));
    m_previous->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F8));
    toolsMenu->addSeparator();
    toolsMenu->addActions({m_next, m_previous});

    m_view->setResults(m_results);
    connect(rounds, &CScreenRounds::drawn, m_results, &CCheckResults::takeScreen);
    connect(m_results, &CCheckResults::lookingAtPicture, rounds, &CScreenRounds::setHeld);
    connect(rounds, &CScreenRounds::done, m_results, &CCheckResults::takeProject);
    connect(m_results, &CCheckResults::measuresChanged, rounds, &CScreenRounds::restart);
    connect(m_view, &CChecksView::message, panels, &CMainPanels::report);
    // Who comes back may have painted in another program.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, m_results,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive && m_dock->toggleViewAction()->isChecked())
                    m_results->lookAtFiles();
            });
    // Or without going away.
    auto *files = new QTimer(this);
    connect(files, &QTimer::timeout, m_results, [this] {
        if (m_dock->toggleViewAction()->isChecked())
            m_results->followFiles();
    });
    files->start(FilesTime);
    connect(m_view, &CChecksView::placeWanted, panels, &CMainPanels::goTo);
    connect(m_view, &CChecksView::countChanged, this, &CCheckActions::showCount);
    QAction *shown = m_dock->toggleViewAction(); // also while it is a tab behind another
    connect(shown, &QAction::toggled, rounds,
            [this, rounds](bool isShown) { rounds->setWanted(this, isShown); });
    connect(shown, &QAction::triggered, m_dock, [this](bool isShown) {
        if (isShown)
            comeUp();
    });
    connect(m_next, &QAction::triggered, this, [this] { go(1); });
    connect(m_previous, &QAction::triggered, this, [this] { go(-1); });
    setProject(nullptr);
    retranslate();
}

void CCheckActions::setProject(CProjectModel *project)
{
    m_results->setProject(project);
    for (QAction *each : {m_next, m_previous})
        each->setEnabled(project != nullptr);
}

/// It is one of several in its place, which may have been low.
void CCheckActions::comeUp()
{
    m_dock->raise();
    QTimer::singleShot(0, this, [this] { // when it has got its place
        if (m_view->height() < LeastHeight && !m_dock->isFloating())
            m_window->resizeDocks({m_dock}, {LeastHeight}, Qt::Vertical);
    });
}

/// The first time the dock is shown, and what it finds comes a moment later.
void CCheckActions::go(int step)
{
    if (m_dock->isHidden()) {
        m_dock->show();
        comeUp();
    }
    m_view->goTo(step);
}

void CCheckActions::showCount()
{
    const int count = m_view->count();
    m_dock->setWindowTitle(count == 0 ? tr("Checks") : tr("Checks (%1)").arg(count));
}

void CCheckActions::retranslate()
{
    showCount();
    m_next->setText(tr("Next &Finding"));
    m_next->setStatusTip(tr("Go to the next finding of the checks"));
    m_previous->setText(tr("Pre&vious Finding"));
    m_previous->setStatusTip(tr("Go to the previous finding of the checks"));
}
