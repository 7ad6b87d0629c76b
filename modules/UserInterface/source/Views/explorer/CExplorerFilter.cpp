#include "CExplorerFilter.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemTree.h"

#include <QTimer>
#include <QTreeView>

#include <algorithm>

CExplorerFilter::CExplorerFilter(QTreeView *tree)
    : QObject(tree), m_tree(tree), m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    m_timer->setInterval(0); // many changes of one step are one
    connect(m_timer, &QTimer::timeout, this, &CExplorerFilter::apply);
}

void CExplorerFilter::setProject(CProjectModel *project)
{
    if (m_project)
        m_project->disconnect(this);
    m_project = project;
    m_collapsed.clear();
    m_found = 0;
    if (!project)
        return;
    connect(project, &QAbstractItemModel::rowsInserted, this, &CExplorerFilter::applySoon);
    connect(project, &QAbstractItemModel::rowsRemoved, this, &CExplorerFilter::applySoon);
    connect(project, &QAbstractItemModel::dataChanged, this, &CExplorerFilter::applySoon);
    applySoon();
}

void CExplorerFilter::applySoon()
{
    if (isActive())
        m_timer->start();
}

void CExplorerFilter::setText(const QString &text)
{
    const bool wasActive = isActive();
    m_words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (!m_project)
        return;
    if (!wasActive) {
        m_collapsed.clear();
        forEachItem(*m_project, [this](CItemModel &each) {
            if (each.rowCount() > 0 && !m_tree->isExpanded(each.index()))
                m_collapsed.insert(&each);
        });
    }
    if (isActive() || wasActive)
        apply();
    if (isActive())
        return;
    forEachItem(*m_project, [this](CItemModel &each) {
        if (m_collapsed.contains(&each))
            m_tree->collapse(each.index());
    });
}

bool CExplorerFilter::fits(const CItemModel &item) const
{
    return std::all_of(m_words.begin(), m_words.end(), [&item](const QString &word) {
        return item.name().contains(word, Qt::CaseInsensitive) ||
               item.itemTypeName().contains(word, Qt::CaseInsensitive);
    });
}

/// Whether the row is to be seen.
bool CExplorerFilter::show(CItemModel &item, bool isInFound)
{
    const bool isFound = fits(item);
    m_found += isFound && isActive() ? 1 : 0;
    bool isShown = isFound || isInFound;
    bool isAnyBelow = false;
    for (int row = 0; row < item.rowCount(); ++row) {
        if (CItemModel *member = item.childItem(row))
            isAnyBelow = show(*member, isFound || isInFound) || isAnyBelow;
    }
    isShown = isShown || isAnyBelow;
    const QModelIndex index = item.index();
    if (m_tree->isRowHidden(index.row(), index.parent()) == isShown)
        m_tree->setRowHidden(index.row(), index.parent(), !isShown);
    if (isActive() && isAnyBelow && !m_tree->isExpanded(index))
        m_tree->expand(index);
    return isShown;
}

void CExplorerFilter::apply()
{
    m_timer->stop();
    m_found = 0;
    for (int row = 0; m_project && row < m_project->screenCount(); ++row) {
        if (CScreenModel *screen = m_project->screen(row))
            show(*screen, false);
    }
    m_tree->viewport()->update();
}

QModelIndex CExplorerFilter::firstFound() const
{
    for (int row = 0; isActive() && m_project && row < m_project->screenCount(); ++row) {
        const CScreenModel *screen = m_project->screen(row);
        const CItemModel *found =
            screen ? findItem(*screen, [this](const CItemModel &each) { return fits(each); })
                   : nullptr;
        if (found)
            return found->index();
    }
    return {};
}
