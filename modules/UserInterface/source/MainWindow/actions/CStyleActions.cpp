#include "CStyleActions.h"

#include "CItemModel.h"
#include "CMainPanels.h"
#include "CMenuBarTables.h"
#include "CScreen.h"
#include "CScreenView.h"
#include "CSelectionCommands.h"
#include "ItemClipboard.h"
#include "ItemOperations.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>

#include <algorithm>

CStyleActions::CStyleActions(QMainWindow *window, CMainPanels *panels, QMenu *menu)
    : QObject(window),
      m_panels(panels),
      m_copy(new QAction(window)),
      m_paste(new QAction(window)),
      m_replace(new QAction(window))
{
    menu->addSeparator();
    menu->addActions({m_copy, m_paste, m_replace});
    m_copy->setObjectName(QStringLiteral("copyStyle"));
    m_paste->setObjectName(QStringLiteral("pasteStyle"));
    m_replace->setObjectName(QStringLiteral("pasteToReplace"));
    m_copy->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+C")));
    m_paste->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+V")));
    m_replace->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+R")));
    connect(m_copy, &QAction::triggered, this, &CStyleActions::copy);
    connect(m_paste, &QAction::triggered, this, &CStyleActions::paste);
    connect(m_replace, &QAction::triggered, this, &CStyleActions::replace);
    connect(panels, &CMainPanels::selectionShown, this, &CStyleActions::update);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &CStyleActions::update);
    retranslate();
    update();
}

void CStyleActions::retranslate()
{
    const auto name = [](QAction *action, const QString &text, const QString &tip) {
        action->setText(text);
        action->setIconText(MenuBarTables::plain(text));
        action->setStatusTip(tip);
    };
    name(m_copy, tr("Copy St&yle"), tr("Copy colours, fonts, line widths and options of the look"));
    name(m_paste, tr("Paste &Style"), tr("Give the selected items the copied style"));
    name(m_replace, tr("Paste to &Replace"),
         tr("Paste in the place of each selected item, at its place in the order"));
}

/// On whatever pages.
ItemStyle::Items CStyleActions::items() const
{
    ItemStyle::Items items;
    for (CItemModel *each : m_panels->selectedItems()) {
        if (each->parentItem())
            items.append(each);
    }
    return items;
}

void CStyleActions::update()
{
    const bool isAny = !items().isEmpty();
    m_copy->setEnabled(isAny);
    m_paste->setEnabled(isAny && !m_style.isEmpty());
    const auto selected = items();
    m_replace->setEnabled(
        std::any_of(selected.begin(), selected.end(),
                    [](const CItemModel *each) { return ItemOperations::mayGo(*each); }) &&
        ItemClipboard::canPaste(QGuiApplication::clipboard()->mimeData()));
}

void CStyleActions::copy()
{
    m_panels->finishEdits();
    m_style = ItemStyle::of(items());
    update();
}

void CStyleActions::paste()
{
    m_panels->finishEdits();
    ItemStyle::apply(m_style, items());
}

void CStyleActions::replace()
{
    m_panels->finishEdits();
    if (const CScreenView *view = m_panels->screens()->currentView())
        view->commands()->pasteToReplace();
}
