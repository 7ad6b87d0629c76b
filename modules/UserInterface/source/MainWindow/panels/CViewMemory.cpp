#include "CViewMemory.h"

#include "CEditorState.h"
#include "CItemModel.h"
#include "CMainPanels.h"
#include "CProjectModel.h"
#include "CScreen.h"
#include "CScreenCompositeView.h"
#include "CScreenModel.h"
#include "CScreenView.h"
#include "ItemTree.h"

#include <QEvent>
#include <QPointer>

namespace {
constexpr char Centre[] = "centreWhenShown"; // property of a view, as long as it waits

CScreenModel *pageOf(const CProjectModel &project, const SProjectView::SPage &page)
{
    CScreenModel *there = project.screen(page.row);
    if (there && there->name() == page.name)
        return there;
    for (int row = 0; row < project.screenCount(); ++row) {
        if (project.screen(row)->name() == page.name)
            return project.screen(row);
    }
    return nullptr;
}

/// What an item is known by: a group by the first widget in it, since it has no id.
quint32 idOf(const CItemModel &item)
{
    quint32 id = item.id();
    for (int row = 0; id == 0 && row < item.rowCount(); ++row) {
        const CItemModel *member = item.childItem(row);
        id = member ? idOf(*member) : 0;
    }
    return id;
}

QPointF middleOf(const CScreenView &view)
{
    const QVariant waiting = view.property(Centre);
    const QPointF middle(view.viewport()->width() * 0.5, view.viewport()->height() * 0.5);
    return waiting.isValid() ? waiting.toPointF() // it was never shown
                             : view.viewportTransform().inverted().map(middle);
}

/// Once the event is over: the view takes its size and its zoom in it.
void centreLater(CScreenView *view)
{
    const auto centre = [shown = QPointer<CScreenView>(view)] {
        if (!shown || !shown->property(Centre).isValid())
            return;
        shown->centerOn(shown->property(Centre).toPointF());
        shown->setProperty(Centre, QVariant());
    };
    QMetaObject::invokeMethod(view, centre, Qt::QueuedConnection);
}
} // namespace

CViewMemory::CViewMemory(CMainPanels *panels) : QObject(panels), m_panels(panels)
{
}

void CViewMemory::remember(const QString &file)
{
    const CScreen *screens = m_panels->screens();
    if (file.isEmpty() || screens->count() == 0)
        return;
    SProjectView seen;
    for (int index = 0; index < screens->count(); ++index) {
        const auto *tab = static_cast<const CScreenCompositeView *>(screens->widget(index));
        if (const CScreenModel *page = tab->screen())
            seen.pages.append({page->name(), page->row(), middleOf(*tab->view())});
    }
    seen.current = screens->currentIndex();
    seen.zoomPercent = CEditorState::instance()->zoomPercent();
    seen.zoomType = CEditorState::instance()->zoomType();
    for (const CItemModel *each : screens->selectedItems()) {
        if (!each->isGrouped() && idOf(*each) != 0) // which is none
            seen.selected.append(idOf(*each));
    }
    m_views.remember(file, seen);
}

void CViewMemory::restore(const QString &file, const CProjectModel *project)
{
    CScreen *screens = m_panels->screens();
    const auto seen = m_views.find(file);
    QVector<CScreenModel *> pages;
    CScreenModel *current = nullptr;
    if (seen) {
        Q_EMIT zoomWanted(seen->zoomPercent, seen->zoomType);
        for (int i = 0; i < seen->pages.size(); ++i) {
            CScreenModel *page = pageOf(*project, seen->pages[i]);
            if (page)
                pages.append(page);
            if (i == seen->current)
                current = page;
        }
    }
    if (pages.isEmpty() && project->screenCount() > 0)
        pages.append(project->screen(0));
    CScreenModel *shown = current;
    if (!shown && !pages.isEmpty())
        shown = pages.constLast();
    screens->openScreens(pages, shown);
    if (!seen)
        return;
    for (const SProjectView::SPage &each : seen->pages) {
        CScreenView *view = screens->viewOf(pageOf(*project, each));
        if (!view)
            continue;
        view->setProperty(Centre, each.centre);
        view->installEventFilter(this);
        if (view->isVisible())
            centreLater(view);
    }
    if (!current)
        return;
    QList<CItemModel *> items;
    forEachItem(*current, [&](CItemModel &item) {
        if (&item != current && !item.isGrouped() && idOf(item) != 0 &&
            seen->selected.contains(idOf(item)))
            items.append(&item);
    });
    m_panels->select(items);
}

bool CViewMemory::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        watched->removeEventFilter(this);
        centreLater(static_cast<CScreenView *>(watched));
    }
    return QObject::eventFilter(watched, event);
}
