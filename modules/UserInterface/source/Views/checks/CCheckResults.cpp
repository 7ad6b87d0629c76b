#include "CCheckResults.h"

#include "CProjectModel.h"
#include "CScreenModel.h"

#include <algorithm>

void CCheckResults::setProject(CProjectModel *project)
{
    m_project = project;
    m_screens.clear();
    m_ofProject.clear();
    Q_EMIT changed();
}

CCheckResults::SEntry CCheckResults::entryOf(const SFinding &finding) const
{
    SEntry entry{finding, {}, {}};
    if (finding.screen)
        entry.screen = m_project->indexFromItem(finding.screen);
    if (finding.item)
        entry.item = m_project->indexFromItem(finding.item);
    return entry;
}

void CCheckResults::takeScreen(const SScreenExport &screen)
{
    if (!m_project)
        return;
    const QModelIndex place = m_project->indexFromItem(screen.screen);
    auto known = std::find_if(m_screens.begin(), m_screens.end(),
                              [&place](const SScreen &each) { return each.place == place; });
    if (known == m_screens.end()) {
        m_screens.append({place, {}, {}});
        known = std::prev(m_screens.end());
    }
    known->entries.clear();
    for (const SFinding &finding : ProjectChecks::ofScreen(*screen.screen, screen))
        known->entries.append(entryOf(finding));
    known->images = ProjectChecks::imagesOf(screen);
    Q_EMIT changed();
}

void CCheckResults::takeProject()
{
    if (!m_project)
        return;
    const auto isGone = [](const SScreen &screen) { return !screen.place.isValid(); };
    m_screens.erase(std::remove_if(m_screens.begin(), m_screens.end(), isGone), m_screens.end());
    ProjectChecks::ImageContents images;
    for (const SScreen &screen : qAsConst(m_screens))
        images += screen.images;
    m_ofProject.clear();
    for (const SFinding &finding : ProjectChecks::ofProject(*m_project, images))
        m_ofProject.append(entryOf(finding));
    Q_EMIT changed();
}

QVector<CCheckResults::SEntry> CCheckResults::entries() const
{
    QVector<SEntry> all;
    const auto add = [&all](const QVector<SEntry> &entries) {
        for (const SEntry &entry : entries) {
            const bool isThere = (!entry.finding.screen || entry.screen.isValid()) &&
                                 (!entry.finding.item || entry.item.isValid());
            if (isThere)
                all.append(entry);
        }
    };
    QVector<SScreen> screens = m_screens;
    std::stable_sort(screens.begin(), screens.end(), [](const SScreen &a, const SScreen &b) {
        return a.place.row() < b.place.row();
    });
    for (const SScreen &screen : qAsConst(screens))
        add(screen.entries);
    add(m_ofProject);
    return all;
}
