#pragma once

#include "FormatProposal.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class CBudgetResults;
class CFormatTrials;
class CProjectModel;

/// Looks for the formats in which every screen fits: tries all images of the project in the
/// background and proposes by what came out. Follows the project as long as what it needs is known.
class CFormatSearch final : public QObject
{
    Q_OBJECT

public:
    explicit CFormatSearch(QObject *parent = nullptr);

    void setResults(CBudgetResults *results); ///< must live longer
    /// Tries what is not known yet.
    void start();
    /// What is known is kept.
    void cancel();
    /// There is no proposal until the project has been measured anew.
    void waitForResults();

    bool isRunning() const;
    int total() const { return m_total; } ///< trials of this run
    int done() const;
    bool hasProposal() const { return m_hasProposal; }
    /// With their proposals, also those that stay as they are.
    const QVector<SImageTrials> &images() const { return m_images; }
    bool fits() const { return m_fits; } ///< every screen, with all of them
    /// Names of what cannot have another format.
    const QStringList &leftOut() const { return m_leftOut; }
    /// The first that no format was possible for, and why; empty when there is none.
    QString failure() const;
    /// That the proposal was made for, with items that are there.
    const SProjectBudget &budget() const { return m_budget; }

Q_SIGNALS:
    void changed();
    void progressed(); ///< done() only

private:
    void follow();
    void forget();
    void takeBudget();
    void propose();

    CBudgetResults *m_results = nullptr;
    CFormatTrials *m_trials;
    QPointer<const CProjectModel> m_project; ///< that the trials are of
    /// By the state of the source and the format; without pictures.
    QHash<QString, QHash<QString, SFormatTrial>> m_known;
    bool m_isWanted = false; ///< the user has asked for a proposal
    bool m_hasProposal = false;
    bool m_fits = false;
    int m_total = 0;
    SProjectBudget m_budget;
    QVector<SImageTrials> m_images;
    QStringList m_leftOut;
};
