#pragma once

#include "CItemReplacement.h"
#include "CItemSearch.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QTimer>

#include <memory>
#include <optional>

class CProjectModel;
class QModelIndex;

/// Keeps what a query finds in the open project true. It looks in pieces that leave room for the
/// user's events, and anew when the project or the query has changed; a search that is out of date
/// is given up.
class CFindSession final : public QObject
{
    Q_OBJECT

public:
    struct SFound
    {
        SSearchHit hit;
        SReplacement replacement; ///< of nothing unless there is something to replace it by
    };

    explicit CFindSession(QObject *parent = nullptr);
    ~CFindSession() override;

    /// Not owned; null finds nothing.
    void setProject(CProjectModel *project);
    CProjectModel *project() const;
    /// Nobody looks at the results of one that is not active, so they are not looked for.
    void setActive(bool isActive);
    /// `by`: what the text is to be replaced by; nothing for a search alone.
    void setQuery(const SSearchQuery &query, const std::optional<QString> &by);
    /// Ends the search that is under way now; for who cannot wait for finished().
    void finish();

    /// Of the last search that came to its end.
    const QVector<SFound> &found() const { return m_found; }
    QString problem() const { return m_problem; }
    int itemCount() const { return m_itemCount; }
    int cutTexts() const { return m_cutTexts; }
    /// Whether something that was found has left the project since.
    bool isGone(const CItemModel *item) const { return m_gone.contains(item); }

Q_SIGNALS:
    void finished();

private:
    void begin();
    void work();
    void replace(const QElapsedTimer &time, int milliseconds);
    void publish();
    void changed();
    void itemsLeave(const QModelIndex &parent, int first, int last);

    QPointer<CProjectModel> m_project;
    SSearchQuery m_query;
    std::optional<QString> m_by;
    bool m_isActive = false;
    bool m_isStale = false; ///< something has changed while nobody looked
    QTimer m_start;         ///< of a search after changes of the project, which come in numbers
    QTimer m_work;          ///< runs while there is something to do
    std::unique_ptr<CItemSearch> m_search;
    std::unique_ptr<CItemReplacement> m_replacement;
    QVector<SFound> m_next; ///< of the search under way, once all hits are there
    int m_replaced = 0;     ///< of these
    QVector<SFound> m_found;
    QString m_problem;
    int m_itemCount = 0;
    int m_cutTexts = 0;
    QSet<const CItemModel *> m_gone; ///< only compared
};
