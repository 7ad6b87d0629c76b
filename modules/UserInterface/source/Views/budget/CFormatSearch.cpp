#include "CFormatSearch.h"

#include "CBudgetResults.h"
#include "CFormatTrials.h"
#include "CProjectModel.h"
#include "QxKivEmuLib.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

/// A file that was changed since is another one.
QString stateOf(const QString &source)
{
    const qint64 changedAt = QFileInfo(source).lastModified().toMSecsSinceEpoch();
    return QStringLiteral("%1/%2").arg(changedAt).arg(source);
}

} // namespace

CFormatSearch::CFormatSearch(QObject *parent) : QObject(parent), m_trials(new CFormatTrials(this))
{
    connect(m_trials, &CFormatTrials::tried, this,
            [this](const QString &source, const SFormatTrial &trial) {
                m_known[stateOf(source)].insert(trial.format, trial);
                Q_EMIT progressed();
                if (m_trials->isRunning())
                    return;
                propose();
                Q_EMIT changed();
            });
}

void CFormatSearch::setResults(CBudgetResults *results)
{
    m_results = results;
    connect(results, &CBudgetResults::changed, this, &CFormatSearch::follow);
}

bool CFormatSearch::isRunning() const
{
    return m_trials->isRunning();
}

int CFormatSearch::done() const
{
    return m_total - m_trials->left();
}

void CFormatSearch::takeBudget()
{
    m_budget = m_results->budget();
    const auto isGone = [this](const CItemModel *item) { return !m_results->isThere(item); };
    const auto dropGone = [&isGone](QVector<SAssetUse> &assets) {
        for (SAssetUse &asset : assets)
            asset.items.erase(std::remove_if(asset.items.begin(), asset.items.end(), isGone),
                              asset.items.end());
    };
    dropGone(m_budget.assets);
    m_budget.screens.erase(
        std::remove_if(m_budget.screens.begin(), m_budget.screens.end(),
                       [&isGone](const SScreenBudget &each) { return isGone(each.screen); }),
        m_budget.screens.end());
    m_images.clear();
    m_leftOut.clear();
    for (const SAssetUse &asset : qAsConst(m_budget.assets)) {
        const SImageTrials image = FormatProposal::trialsOf(asset);
        if (image.source.isEmpty() || image.isLocked) {
            if (asset.format != EMU_ASSET_FONT)
                m_leftOut.append(QFileInfo(asset.file).fileName());
        } else {
            m_images.append(image);
        }
    }
}

void CFormatSearch::start()
{
    m_isWanted = true;
    m_hasProposal = false;
    m_project = m_results->project();
    takeBudget();
    QVector<CFormatTrials::SJob> jobs;
    QHash<QString, QSet<QString>> asked; // one source may have been made into several images
    for (const SImageTrials &image : qAsConst(m_images)) {
        const auto known = m_known.value(stateOf(image.source));
        QSet<QString> &formats = asked[image.source];
        for (const SFormatTrial &trial : image.trials)
            if (!known.contains(trial.format) && !formats.contains(trial.format)) {
                formats.insert(trial.format);
                jobs.append({image.source, trial.format});
            }
    }
    m_total = jobs.size();
    m_trials->start(jobs, false);
    if (jobs.isEmpty())
        propose();
    Q_EMIT changed();
}

void CFormatSearch::cancel()
{
    m_trials->cancel();
    m_isWanted = false;
    Q_EMIT changed();
}

void CFormatSearch::waitForResults()
{
    m_hasProposal = false;
    Q_EMIT changed();
}

QString CFormatSearch::failure() const
{
    for (const SImageTrials &image : m_images) {
        const auto isFailed = [](const SFormatTrial &each) { return !each.problem.isEmpty(); };
        if (!image.trials.isEmpty() &&
            std::all_of(image.trials.begin(), image.trials.end(), isFailed))
            return QFileInfo(image.source).fileName() + QStringLiteral(": ") +
                   image.trials.first().problem;
    }
    return {};
}

void CFormatSearch::forget()
{
    m_trials->cancel();
    m_known.clear();
    m_images.clear();
    m_isWanted = false;
    m_hasProposal = false;
    m_project = m_results->project();
}

void CFormatSearch::follow()
{
    if (m_project != m_results->project())
        forget();
    else if (m_isWanted && !m_trials->isRunning())
        propose();
    Q_EMIT changed();
}

/// None when something that the project has got meanwhile was not tried.
void CFormatSearch::propose()
{
    takeBudget();
    m_hasProposal = true;
    for (SImageTrials &image : m_images) {
        const auto known = m_known.value(stateOf(image.source));
        for (SFormatTrial &trial : image.trials) {
            m_hasProposal = m_hasProposal && known.contains(trial.format);
            trial = known.value(trial.format, trial);
        }
    }
    if (m_hasProposal)
        m_fits = FormatProposal::propose(m_images, m_budget);
}
