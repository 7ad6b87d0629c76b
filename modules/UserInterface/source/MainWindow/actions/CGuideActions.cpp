#include "CGuideActions.h"

#include "CEditorState.h"
#include "CGuideEdits.h"
#include "CMainPanels.h"
#include "CMenuBarTables.h"
#include "CScreen.h"
#include "CScreenModel.h"

#include <QAction>
#include <QInputDialog>
#include <QMainWindow>
#include <QMenu>

CGuideActions::CGuideActions(QMainWindow *window, CMainPanels *panels, QMenu *viewMenu)
    : QObject(window),
      m_window(window),
      m_panels(panels),
      m_menu(viewMenu->addMenu(QString())),
      m_show(m_menu->addAction(QString()))
{
    CEditorState *state = CEditorState::instance();
    m_show->setCheckable(true);
    m_show->setChecked(state->areGuidesShown());
    m_show->setShortcut(QKeySequence(QStringLiteral("Ctrl+;")));
    connect(m_show, &QAction::toggled, state, &CEditorState::setGuidesShown);
    connect(state, &CEditorState::guidesShownChanged, m_show, &QAction::setChecked);
    m_menu->addSeparator();
    m_addVertical = add([this](CScreenModel *) { addGuide(Qt::Vertical); });
    m_addHorizontal = add([this](CScreenModel *) { addGuide(Qt::Horizontal); });
    m_menu->addSeparator();
    m_lock = add([](CScreenModel *screen) { CGuideEdits(screen).setAllLocked(true); });
    m_unlock = add([](CScreenModel *screen) { CGuideEdits(screen).setAllLocked(false); });
    m_clear = add([](CScreenModel *screen) { CGuideEdits(screen).clear(); });
    const std::pair<QAction *, const char *> ids[] = {{m_show, "guidesShow"},
                                                      {m_addVertical, "guideVertical"},
                                                      {m_addHorizontal, "guideHorizontal"},
                                                      {m_lock, "guidesLock"},
                                                      {m_unlock, "guidesUnlock"},
                                                      {m_clear, "guidesClear"}};
    for (const auto &[action, id] : ids) // by which keys are kept
        action->setObjectName(QLatin1String(id));
    connect(panels->screens(), &CScreen::currentScreenChanged, this, &CGuideActions::update);
    retranslate();
    update();
}

template<class Run>
QAction *CGuideActions::add(const Run &run)
{
    QAction *action = m_menu->addAction(QString());
    connect(action, &QAction::triggered, this, [this, run] {
        if (CScreenModel *screen = m_panels->screens()->currentScreen())
            run(screen);
    });
    return action;
}

void CGuideActions::update()
{
    const bool isPage = m_panels->screens()->currentScreen() != nullptr;
    for (QAction *each : {m_addVertical, m_addHorizontal, m_lock, m_unlock, m_clear})
        each->setEnabled(isPage);
}

void CGuideActions::addGuide(Qt::Orientation orientation)
{
    const QAction *action = orientation == Qt::Vertical ? m_addVertical : m_addHorizontal;
    bool isGiven = false;
    const int position = QInputDialog::getInt(
        m_window, action->iconText(),
        orientation == Qt::Vertical ? tr("Pixels from the left:") : tr("Pixels from the top:"), 0,
        -SScreenGuide::Farthest, SScreenGuide::Farthest, 1, &isGiven);
    CScreenModel *screen = m_panels->screens()->currentScreen();
    if (!isGiven || !screen)
        return;
    m_show->setChecked(true);
    CGuideEdits(screen).add({orientation, position});
}

void CGuideActions::retranslate()
{
    const auto name = [](QAction *action, const QString &text, const QString &tip) {
        action->setText(text);
        action->setIconText(MenuBarTables::plain(text).remove(QStringLiteral("...")));
        action->setStatusTip(tip);
    };
    m_menu->setTitle(tr("Guides"));
    name(m_show, tr("&Show Guides"), tr("Show the guides, which are drawn out of the rulers"));
    name(m_addVertical, tr("New &Vertical Guide..."), tr("Add a guide at a given place"));
    name(m_addHorizontal, tr("New &Horizontal Guide..."), tr("Add a guide at a given place"));
    name(m_lock, tr("&Lock All Guides"), tr("The pointer takes hold of no guide of the page"));
    name(m_unlock, tr("&Unlock All Guides"), tr("The pointer takes hold of the page's guides"));
    name(m_clear, tr("&Clear All Guides"), tr("Remove all guides from the page"));
}
