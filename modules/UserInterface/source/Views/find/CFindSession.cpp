#include "CFindSession.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "ItemTree.h"

namespace {
constexpr int Piece = 4;  // ms, of a search between two turns of the event loop
constexpr int Delay = 60; // ms of rest after a change, which is often one of many
} // namespace

CFindSession::CFindSession(QObject *parent) : QObject(parent)
{
    m_start.setSingleShot(true);
    m_start.setInterval(Delay);
    connect(&m_start, &QTimer::timeout, this, &CFindSession::begin);
    connect(&m_work, &QTimer::timeout, this, &CFindSession::work);
}

CFindSession::~CFindSession() = default;

void CFindSession::setProject(CProjectModel *project)
{
    if (m_project)
        m_project->disconnect(this);
    m_project = project;
    m_gone.clear();
    if (project) {
        connect(project, &CProjectModel::propertyChanged, this, &CFindSession::changed);
        connect(project, &CProjectModel::fontsChanged, this, &CFindSession::changed);
        connect(project, &QAbstractItemModel::rowsInserted, this, &CFindSession::changed);
        connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                &CFindSession::itemsLeave);
        connect(project, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
            m_next.clear();
            m_found.clear();
            changed();
            Q_EMIT finished();
        });
    }
    m_next.clear();
    m_found.clear();
    begin();
}

CProjectModel *CFindSession::project() const
{
    return m_project;
}

void CFindSession::setActive(bool isActive)
{
    m_isActive = isActive;
    if (isActive && m_isStale)
        begin();
}

void CFindSession::setQuery(const SSearchQuery &query, const std::optional<QString> &by)
{
    m_query = query;
    m_by = by;
    begin();
}

/// What is being looked for is out of date, and may lead to what is no more.
void CFindSession::changed()
{
    m_work.stop();
    m_search.reset();
    m_replacement.reset();
    m_next.clear();
    m_replaced = 0;
    m_isStale = true;
    if (m_isActive)
        m_start.start();
}

void CFindSession::itemsLeave(const QModelIndex &parent, int first, int last)
{
    changed();
    if (m_found.isEmpty())
        return;
    for (int row = first; row <= last; ++row) {
        CItemModel *item =
            CItemModel::fromItem(m_project->itemFromIndex(m_project->index(row, 0, parent)));
        if (item)
            forEachItem(*item, [this](CItemModel &each) { m_gone.insert(&each); });
    }
}

void CFindSession::begin()
{
    changed();
    m_start.stop();
    if (!m_isActive && m_project)
        return;
    m_isStale = false;
    if (!m_project || m_query.text.isEmpty()) {
        m_problem.clear();
        m_itemCount = m_cutTexts = 0;
        publish();
        return;
    }
    m_search = std::make_unique<CItemSearch>(
        *m_project, m_query, m_by ? CItemSearch::EHits::All : CItemSearch::EHits::OfItem);
    m_work.start(0);
}

void CFindSession::work()
{
    QElapsedTimer time;
    time.start();
    if (!m_search || m_search->advance(Piece))
        return;
    if (m_next.isEmpty()) { // the hits have just become complete
        m_next.reserve(m_search->hits().size());
        for (const SSearchHit &each : m_search->hits())
            m_next.append({each, {}});
        if (m_by)
            m_replacement = std::make_unique<CItemReplacement>(*m_project, m_query, *m_by);
    }
    replace(time, Piece);
    if (m_replacement && m_replaced < m_next.size())
        return;
    m_problem = m_search->problem();
    if (m_problem.isEmpty() && m_replacement)
        m_problem = m_replacement->problem();
    m_itemCount = m_search->itemCount();
    m_cutTexts = m_search->cutTexts();
    publish();
}

void CFindSession::replace(const QElapsedTimer &time, int milliseconds)
{
    while (m_replacement && m_replaced < m_next.size() && !time.hasExpired(milliseconds)) {
        SFound &each = m_next[m_replaced++];
        each.replacement = m_replacement->of(each.hit);
    }
}

void CFindSession::publish()
{
    m_work.stop();
    m_search.reset();
    m_replacement.reset();
    m_found = std::move(m_next);
    m_next.clear();
    m_replaced = 0;
    m_gone.clear();
    Q_EMIT finished();
}

void CFindSession::finish()
{
    if (m_start.isActive())
        begin();
    while (m_work.isActive())
        work();
}
