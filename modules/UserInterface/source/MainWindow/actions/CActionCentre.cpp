#include "CActionCentre.h"

#include "CActionFinder.h"
#include "CHelpWindow.h"
#include "CMainPanels.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CShortcutDialog.h"
#include "CThemeIcons.h"
#include "CWindowActions.h"
#include "ItemTree.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace {
/// What an entry of an item says besides its name.
QString placeOf(const CItemModel &item, const CItemModel &page)
{
    QString kind = item.itemTypeName();
    kind.remove(QStringLiteral("Kiv_")).remove(QStringLiteral("_T")).replace('_', ' ');
    return kind + QStringLiteral(" \u203a ") + page.name();
}
} // namespace

CActionCentre::CActionCentre(CMainWindow *window, CMainPanels *panels)
    : QObject(window),
      m_window(window),
      m_panels(panels),
      m_actions(new CWindowActions(window)),
      m_finder(new CActionFinder(window))
{
    m_search = makeAction("searchActions", &CActionCentre::search);
    m_search->setIcon(CThemeIcons::icon(QStringLiteral(":/images/search.png")));
    m_search->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+P")));
    m_shortcuts = makeAction("keyboardShortcuts", &CActionCentre::showShortcuts);
    const CMenuBar *menus = window->actions();
    menus->menu(CMenuBar::ToolsMenu)->addAction(m_search);
    menus->menu(CMenuBar::ToolsMenu)->addAction(m_shortcuts);
    menus->menu(CMenuBar::HelpMenu)->addAction(m_shortcuts);
    connect(m_finder, &CActionFinder::itemChosen, m_panels, &CMainPanels::workOn);
    connect(window, &CMainWindow::projectClosed, m_finder, &CActionFinder::close);
    retranslate();
}

QAction *CActionCentre::makeAction(const char *id, void (CActionCentre::*slot)())
{
    auto *action = new QAction(m_window);
    action->setObjectName(QString::fromLatin1(id));
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void CActionCentre::retranslate()
{
    m_search->setText(tr("Search &Actions..."));
    m_search->setStatusTip(tr("Find any action, page or item by its name"));
    m_shortcuts->setText(tr("&Keyboard Shortcuts..."));
    m_shortcuts->setStatusTip(tr("See and change the keys of all actions"));
    m_finder->retranslate();
}

/// Those of the fixed menus have a status tip that says what they do, whatever they are.
void CActionCentre::tellLacks()
{
    const QString noProject = tr("No project is open");
    const bool isOpen = m_window->project() != nullptr;
    for (const CWindowActions::SAction &each : m_actions->all())
        each.action->setProperty(CWindowActions::LackProperty, isOpen ? QString() : noProject);
    for (int id = 0; id < CMenuBar::ActionCount; ++id) {
        QString lack = isOpen ? QString() : noProject;
        if (isOpen && id == CMenuBar::Undo)
            lack = tr("There is nothing to undo");
        else if (isOpen && id == CMenuBar::Redo)
            lack = tr("There is nothing to redo");
        else if (isOpen && id == CMenuBar::Revert)
            lack = tr("Nothing has been saved over what you saved last");
        else if (id == CMenuBar::Updates)
            lack = tr("This installation names no place to look for updates");
        m_window->actions()
            ->action(CMenuBar::EAction(id))
            ->setProperty(CWindowActions::LackProperty, lack);
    }
}

void CActionCentre::search()
{
    if (m_finder->isVisible()) {
        m_finder->close();
        return;
    }
    tellLacks();
    QVector<CFoundList::SEntry> entries;
    const auto actions = m_actions->all();
    for (const CWindowActions::SAction &each : actions) {
        if (each.action != m_search)
            entries.append({each.text, each.menu, each.action, nullptr});
    }
    CProjectModel *project = m_window->project();
    for (int row = 0; project && row < project->screenCount(); ++row) {
        CScreenModel *page = project->screen(row);
        entries.append({page->name(), tr("Page"), nullptr, page});
        forEachItem(*page, [&entries, page](CItemModel &item) {
            if (&item != page)
                entries.append({item.name(), placeOf(item, *page), nullptr, &item});
        });
    }
    m_finder->open(entries);
}

void CActionCentre::showShortcuts()
{
    CShortcutDialog::Reserved reserved;
    for (const char *each :
         {"Left", "Right", "Up", "Down", "Shift+Left", "Shift+Right", "Shift+Up", "Shift+Down",
          "Tab", "Shift+Tab", "Space", "Return", "Enter", "Backspace", "Esc"})
        reserved.append({QKeySequence(QLatin1String(each)), tr("it is used on the canvas")});
    for (const QAction *each : m_window->menuBar()->actions()) {
        const QKeySequence opens = QKeySequence::mnemonic(each->text());
        if (!opens.isEmpty())
            reserved.append({opens, tr("it opens a menu")});
    }
    CShortcutDialog dialog(m_actions->all(), m_actions->shortcuts(), reserved, m_window);
    connect(&dialog, &CShortcutDialog::helpWanted, this, [this, &dialog] {
        auto *help = dialog.findChild<CHelpWindow *>(); // of its own: it blocks others
        if (!help)
            help = m_window->makeHelp(QStringLiteral("shortcuts"), &dialog);
        help->show();
        help->raise();
        help->activateWindow();
    });
    if (dialog.exec() == QDialog::Accepted)
        m_actions->setShortcuts(dialog.map());
}
