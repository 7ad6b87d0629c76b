#include "CFindActions.h"

#include "CFindPanel.h"
#include "CItemModel.h"
#include "CMainPanels.h"
#include "CScreen.h"
#include "CScreenView.h"
#include "CThemeIcons.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>

namespace {
struct SRow
{
    const char *id; ///< by which keys of the user's are kept
    const char *text;
    const char *tip;
    const char *keys;
};

// clang-format off
/// In the order of CFindActions::EWhat.
const SRow Rows[CFindActions::WhatCount] = {
    {"findItems", QT_TRANSLATE_NOOP("CFindActions", "&Find..."), QT_TRANSLATE_NOOP("CFindActions", "Find items by name, text, kind, value, colour, font or image"), "Ctrl+F"},
    {"replaceInItems", QT_TRANSLATE_NOOP("CFindActions", "R&eplace..."), QT_TRANSLATE_NOOP("CFindActions", "Replace what is found in items of all pages"), "Ctrl+H"},
    {"findNext", QT_TRANSLATE_NOOP("CFindActions", "Find &Next"), QT_TRANSLATE_NOOP("CFindActions", "Go to the next item that was found"), "F3"},
    {"findPrevious", QT_TRANSLATE_NOOP("CFindActions", "Find Pre&vious"), QT_TRANSLATE_NOOP("CFindActions", "Go to the previous item that was found"), "Shift+F3"},
};
// clang-format on
} // namespace

CFindActions::CFindActions(QMainWindow *window, CMainPanels *panels, QMenu *editMenu,
                           QMenu *windowsMenu)
    : QObject(window), m_panels(panels), m_panel(new CFindPanel), m_dock(new QDockWidget(window))
{
    m_dock->setObjectName(QStringLiteral("find"));
    m_dock->setWidget(m_panel);
    window->addDockWidget(Qt::LeftDockWidgetArea, m_dock);
    window->tabifyDockWidget(panels->paletteDock(), m_dock);
    m_dock->hide();
    m_dock->toggleViewAction()->setObjectName(QStringLiteral("findWindow"));
    windowsMenu->addAction(m_dock->toggleViewAction());
    connect(m_dock->toggleViewAction(), &QAction::triggered, m_dock, &QWidget::raise);
    editMenu->addSeparator();
    for (int what = 0; what < WhatCount; ++what) {
        auto *action = new QAction(window);
        action->setObjectName(QString::fromLatin1(Rows[what].id));
        action->setShortcut(QKeySequence(QLatin1String(Rows[what].keys)));
        connect(action, &QAction::triggered, this, [this, what] { run(EWhat(what)); });
        editMenu->addAction(action);
        m_actions.at(size_t(what)) = action;
    }
    m_actions.at(Find)->setIcon(CThemeIcons::icon(QStringLiteral(":/images/search.png")));
    connect(m_panel, &CFindPanel::itemChosen, panels, &CMainPanels::goTo);
    connect(m_panel, &CFindPanel::left, this, [this] {
        if (CScreenView *view = m_panels->screens()->currentView())
            view->setFocus();
    });
    setProject(nullptr);
    retranslate();
}

void CFindActions::setProject(CProjectModel *project)
{
    m_panel->setProject(project);
    for (QAction *each : m_actions)
        each->setEnabled(project != nullptr);
}

void CFindActions::retranslate()
{
    m_dock->setWindowTitle(tr("Find"));
    for (int what = 0; what < WhatCount; ++what) {
        QAction *action = m_actions.at(size_t(what));
        action->setText(tr(Rows[what].text));
        action->setStatusTip(tr(Rows[what].tip));
    }
}

void CFindActions::run(EWhat what)
{
    const bool isStep = what == Next || what == Previous;
    if (isStep && m_panel->hasQuery()) {
        m_dock->show();
        m_panel->step(what == Next ? 1 : -1); // the keys stay where they are
        return;
    }
    m_panels->finishEdits();
    m_dock->show();
    m_dock->raise();
    if (what == Replace)
        m_panel->startReplace();
    else
        m_panel->startFind();
}
