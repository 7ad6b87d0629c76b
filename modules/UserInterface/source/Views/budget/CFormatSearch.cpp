#include "CFormatSearch.h"

#include "CBudgetResults.h"
#include "CFormatTrials.h"
#include "CProjectModel.h"
#include "QxKivEmuLib.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

CFormatSearch::CFormatSearch(QObject *parent) : QObject(parent), m_trials(new CFormatTrials(this))
{
    connect(m_trials, &CFormatTrials::tried, this,
            [this](const QString &source, const SFormatTrial &trial) {
                SImageTrials image;
                image.source = source;
                m_known.insert(keyOf(image, trial.format), trial);
                if (!m_trials->isRunning())
                    propose();
                Q_EMIT changed();
            });
}

void CFormatSearch::setResults(CBudgetResults *results)
{
    m_results = results;
    connect(results, &CBudgetResults::changed, this, &CFormatSearch::follow);
}

/// A file that was changed since is another one.
QString CFormatSearch::keyOf(const SImageTrials &image, const QString &format) const
{
    const qint64 changedAt = QFileInfo(image.source).lastModified().toMSecsSinceEpoch();
    return QStringLiteral("%1/%2/%3").arg(format).arg(changedAt).arg(image.source);
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
    QSet<QString> keys; // one source may have been made into several images
    for (const SImageTrials &image : qAsConst(m_images))
        for (const SFormatTrial &trial : image.trials) {
            const QString key = keyOf(image, trial.format);
            if (m_known.contains(key) || keys.contains(key))
                continue;
            keys.insert(key);
            jobs.append({image.source, trial.format});
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
    for (SImageTrials &image : m_images)
        for (SFormatTrial &trial : image.trials) {
            const auto known = m_known.constFind(keyOf(image, trial.format));
            m_hasProposal = m_hasProposal && known != m_known.constEnd();
            if (known != m_known.constEnd())
                trial = *known;
        }
    if (m_hasProposal)
        m_fits = FormatProposal::propose(m_images, m_budget);
}
