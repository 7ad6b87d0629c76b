#include "CCheckResults.h"

#include "BackgroundWork.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "Rules.h"

#include <QUndoStack>

#include <algorithm>
#include <utility>

void CCheckResults::setProject(CProjectModel *project)
{
    if (m_project)
        disconnect(m_project->undoStack(), nullptr, this, nullptr);
    m_project = project;
    m_screens.clear();
    m_ofProject.clear();
    m_ofFiles.clear();
    m_look.reset();
    m_files = {};
    m_filesState = {};
    m_pictures = std::make_shared<CPictureLook>();
    if (project) {
        m_look = std::make_shared<CImageFileLook>();
        m_ignored = project->propertyText(Rules::IgnoredKey);
        m_measures = measures();
        connect(project->undoStack(), &QUndoStack::indexChanged, this, &CCheckResults::followSteps);
    }
    m_isLooking = false;
    Q_EMIT changed();
}

QStringList CCheckResults::measures() const
{
    return {m_project->propertyText(ProjectChecks::DotsPerInch),
            m_project->propertyText(ProjectChecks::MemoryShare)};
}

/// Nothing tells of a change of the project itself but its steps.
void CCheckResults::followSteps()
{
    if (std::exchange(m_measures, measures()) != m_measures)
        Q_EMIT measuresChanged();
    if (std::exchange(m_ignored, m_project->propertyText(Rules::IgnoredKey)) == m_ignored)
        return;
    for (QVector<SEntry> *entries : {&m_ofProject, &m_ofFiles})
        for (SEntry &entry : *entries)
            if (!entry.finding.screen)
                entry.finding.ignoredBecause =
                    Rules::ignoredBecause(m_ignored, entry.finding.rule, entry.finding.subject);
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
    const QPersistentModelIndex place = m_project->indexFromItem(screen.screen);
    Q_EMIT lookingAtPicture(true);
    BackgroundWork::run(
        this,
        [pictures = m_pictures, screen] {
            return SLook{pictures->look(screen), ProjectChecks::imagesOf(screen)};
        },
        [this, pictures = m_pictures, place, screen](const SLook &look) {
            if (pictures == m_pictures && place.isValid()) // of this project
                takeLook(place, screen, look);
            Q_EMIT lookingAtPicture(false);
        });
}

void CCheckResults::takeLook(const QPersistentModelIndex &place, const SScreenExport &screen,
                             const SLook &look)
{
    auto known = std::find_if(m_screens.begin(), m_screens.end(),
                              [&place](const SScreen &each) { return each.place == place; });
    if (known == m_screens.end()) {
        m_screens.append({place, {}, {}});
        known = std::prev(m_screens.end());
    }
    known->entries.clear();
    const CScreenModel *now = m_project->screen(place.row());
    for (const SFinding &finding : ProjectChecks::ofScreen(*now, screen, look.picture))
        known->entries.append(entryOf(finding));
    known->images = look.images;
    Q_EMIT partlyChanged();
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
    m_pictures = std::make_shared<CPictureLook>(); // what it keeps is large
    m_ofProject.clear();
    for (const SFinding &finding : ProjectChecks::ofProject(*m_project, images))
        m_ofProject.append(entryOf(finding));
    Q_EMIT changed();
    lookAtFiles();
}

void CCheckResults::lookAtFiles()
{
    if (!m_project)
        return;
    m_looksAgain = m_isLooking;
    if (std::exchange(m_isLooking, true))
        return;
    const auto look = m_look; // of this project alone
    m_files = SImageFiles::of(*m_project);
    BackgroundWork::run(
        this, [look, files = m_files] { return look->look(files); },
        [this, look](const SImageFiles::SState &state) {
            if (look == m_look)
                takeFiles(state);
        });
}

void CCheckResults::followFiles()
{
    if (!m_project || m_isLooking)
        return;
    m_isLooking = true;
    m_looksAgain = false;
    BackgroundWork::run(
        this, [look = m_look, files = m_files] { return look->look(files); },
        [this, look = m_look](const SImageFiles::SState &state) {
            if (look != m_look)
                return;
            m_isLooking = false;
            if (m_looksAgain || state.changed != m_filesState.changed ||
                state.unused != m_filesState.unused)
                lookAtFiles();
        });
}

void CCheckResults::startAnew()
{
    if (m_project)
        Q_EMIT measuresChanged();
}

void CCheckResults::takeFiles(const SImageFiles::SState &state)
{
    m_isLooking = false;
    m_filesState = state;
    m_ofFiles.clear();
    for (const SFinding &finding : ProjectChecks::ofFiles(*m_project, state))
        m_ofFiles.append(entryOf(finding));
    Q_EMIT changed();
    if (m_looksAgain)
        lookAtFiles();
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
    add(m_ofFiles);
    return all;
}
