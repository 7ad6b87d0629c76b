// How CMainPanels keeps canvas, explorer and property panel in step with what is selected.
#include "CBatchEditView.h"
#include "CBatchTab.h"
#include "CItemModel.h"
#include "CMainPanels.h"
#include "CProjectExplorerView.h"
#include "CProjectModel.h"
#include "CProjectSelection.h"
#include "CScreen.h"
#include "CScreenModel.h"
#include "CScreenView.h"
#include "CWidgetPropertiesView.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

#include <QAction>
#include <QDockWidget>
#include <QScopedValueRollback>
#include <QSet>

#include <algorithm>

namespace {
CItemModel *pageOf(CItemModel *item)
{
    while (item->parentItem())
        item = item->parentItem();
    return item;
}

bool areSame(const QList<CItemModel *> &left, const QList<CItemModel *> &right)
{
    using Set = QSet<CItemModel *>;
    return Set(left.begin(), left.end()) == Set(right.begin(), right.end());
}
} // namespace

void CMainPanels::connectSelection()
{
    connect(m_explorer, &CProjectExplorerView::onSelectionChanged, this,
            &CMainPanels::selectionChanged);
    connect(m_explorer, &CProjectExplorerView::screenActivated, this, &CMainPanels::showScreen);
    connect(m_explorer, &QAbstractItemView::clicked, this, &CMainPanels::explorerClicked);
    connect(m_explorer, &CProjectExplorerView::itemsMoved, this, &CMainPanels::explorerMoved);
    connect(m_explorer, &CProjectExplorerView::zoomWanted, this, &CMainPanels::explorerZooms);
    connect(m_explorer, &CProjectExplorerView::memberReached, this, &CMainPanels::reveal);
    connect(m_screens, &CScreen::selectionChanged, this, &CMainPanels::takeFromCanvas);
    connect(m_screens, &CScreen::canvasEntered, this, &CMainPanels::enterCanvas);
    connect(m_selection, &CProjectSelection::pagesTouched, this, &CMainPanels::showPage);
    connect(m_selection, &CProjectSelection::stepDone, this, &CMainPanels::showStep);
}

CItemModel *CMainPanels::itemAt(const QModelIndex &index) const
{
    return m_project ? CItemModel::fromItem(m_project->itemFromIndex(index)) : nullptr;
}

/// What was chosen last decides which page is shown, so that no command is for something unseen.
void CMainPanels::selectionChanged(const QModelIndexList &selected)
{
    CItemModel *current = itemAt(m_explorer->currentIndex());
    if (selected.isEmpty() && current && current->isGrouped()) { // pressed, but not selectable
        reveal(current);
        return;
    }
    QList<CItemModel *> items;
    for (const QModelIndex &each : selected) {
        if (CItemModel *item = itemAt(each))
            items.append(item);
    }
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    m_selection->select(items);
    if (items.contains(current))
        openPageOf(current);
    m_screens->selectItems(items);
    showProperties(items);
    Q_EMIT selectionShown();
}

void CMainPanels::explorerClicked(const QModelIndex &index)
{
    CItemModel *item = itemAt(index);
    if (item && item->isGrouped() && !item->isSelectable()) { // it is, once the canvas is in there
        reveal(item);
        return;
    }
    m_selection->forgetMember();
    showProperties(m_selection->shownItems());
    CScreenView *view = m_screens->currentView();
    if (view && item && item->parentItem() && !isEditorOpen())
        view->setFocus(); // what was chosen can be moved at once
}

/// They stay selected where that is possible; of those that have come into a group, the first is
/// shown.
void CMainPanels::explorerMoved(const QVector<CItemModel *> &items)
{
    CItemModel *first = items.constFirst();
    openPageOf(first);
    m_explorer->selectionModel()->setCurrentIndex(first->index(), QItemSelectionModel::NoUpdate);
    if (first->isGrouped())
        reveal(first);
    else
        select(items.toList());
}

void CMainPanels::explorerZooms(CItemModel *item)
{
    openPageOf(item);
    Q_EMIT zoomWanted({item});
}

void CMainPanels::takeFromCanvas(const QList<CItemModel *> &items)
{
    if (m_isShowing)
        return;
    m_selection->select(items);
    m_explorer->selectItems(items);
    showProperties(items);
    Q_EMIT selectionShown();
}

/// From here on keys are for what is selected there: a page that was chosen in the explorer, or a
/// member of the group that is clicked, is no longer meant.
void CMainPanels::enterCanvas()
{
    const QList<CItemModel *> items = m_screens->selectedItems();
    if (!areSame(m_selection->shownItems(), items))
        takeFromCanvas(items);
}

QList<CItemModel *> CMainPanels::selectedItems() const
{
    return m_selection->topmostItems();
}

void CMainPanels::select(const QList<CItemModel *> &items)
{
    m_selection->select(items);
    showSelection();
}

/// Undo and redo are seen.
void CMainPanels::showPage(const QList<CItemModel *> &touched)
{
    if (touched.contains(m_screens->currentScreen()))
        return;
    m_screens->openScreen(static_cast<CScreenModel *>(touched.last()));
}

/// A page is not selected behind the back of who works on a canvas.
void CMainPanels::showStep()
{
    QList<CItemModel *> items = m_selection->items();
    const CScreenView *view = m_screens->currentView();
    if (view && view->hasFocus()) {
        const auto isScreen = [](const CItemModel *each) {
            return each->kind() == CItemModel::Kind::Screen;
        };
        items.erase(std::remove_if(items.begin(), items.end(), isScreen), items.end());
    }
    if (items.size() < m_selection->items().size())
        m_selection->select(items);
    showSelection();
}

/// Of the explorer, whose selection stays: the canvas of another screen has one of its own, which
/// it tells when it comes forward.
void CMainPanels::showScreen(CScreenModel *screen)
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    m_screens->openScreen(screen);
    showSelection();
}

void CMainPanels::showProperties(const QList<CItemModel *> &items)
{
    m_properties->showItems(items);
    m_batch->showItems(items);
    m_batchTab->follow(items);
}

void CMainPanels::showSelection()
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    m_screens->selectItems(m_selection->items());
    m_explorer->selectItems(m_selection->items());
    showProperties(m_selection->shownItems());
    Q_EMIT selectionShown();
}

/// Of an item, or the page itself.
void CMainPanels::openPageOf(CItemModel *item)
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    CItemModel *page = pageOf(item);
    if (page != m_screens->currentScreen())
        m_screens->openScreen(static_cast<CScreenModel *>(page));
}

/// A member of a group is selected only through its group; its properties can be edited all the
/// same.
void CMainPanels::reveal(CItemModel *item)
{
    openPageOf(item);
    m_selection->selectMember(item);
    showSelection();
}

void CMainPanels::renameSelected()
{
    const QList<CItemModel *> items = m_selection->shownItems();
    if (items.size() != 1 || isEditorOpen())
        return;
    const QModelIndex index = items.constFirst()->index();
    const bool isPage = index.flags().testFlag(Qt::ItemIsEditable);
    QDockWidget *dock = isPage ? m_explorerDock : m_propertiesDock;
    dock->show();
    dock->raise();
    if (isPage) {
        m_explorer->scrollTo(index);
        m_explorer->edit(index);
    } else {
        m_properties->edit(PropertyKey::Name);
    }
}

void CMainPanels::goTo(CItemModel *item)
{
    if (item->kind() == CItemModel::Kind::Screen)
        m_screens->openScreen(static_cast<CScreenModel *>(item));
    const CItemModel *group = item->isGrouped() ? item->parentItem() : nullptr;
    if (group && !group->isUnderLock() && !group->isUnderHidden()) {
        openPageOf(item); // whose canvas goes into the group: keys are for the member alone
        select({item});
    } else {
        reveal(item);
    }
    if (CScreenView *view = m_screens->currentView(); view && item->parentItem())
        view->reveal(ItemGeometry::frameOf(*item));
}

void CMainPanels::workOn(CItemModel *item)
{
    if (item->parentItem())
        goTo(item);
    else
        m_screens->openScreen(static_cast<CScreenModel *>(item));
    if (CScreenView *view = m_screens->currentView())
        view->setFocus();
}

void CMainPanels::addDeselectAction(QAction *action)
{
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut); // elsewhere Esc has other uses
    m_screens->addAction(action);
    m_explorer->addAction(action);
}
