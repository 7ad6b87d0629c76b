#pragma once

#include "CItemFacets.h"
#include "CPropertyTest.h"
#include "CTextMatcher.h"
#include "SSearchQuery.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QVector>

class CItemModel;
class CProjectModel;

/// One place where a query is met.
struct SSearchHit
{
    CItemModel *item = nullptr;
    SFacet facet;
    QString text;              ///< of the facet
    CTextMatcher::SSpan found; ///< in the text; none where the text as a whole is meant

    bool operator==(const SSearchHit &other) const;
};
using SearchHits = QVector<SSearchHit>;

/// Looks through all items of a project for a query: screens in their order, groups before their
/// members, front ones first. In pieces, so that who waits for it can do other things between them.
/// The project must not change until it is over; then a new search is made.
class CItemSearch
{
    Q_DECLARE_TR_FUNCTIONS(CItemSearch)

public:
    enum class EHits {
        OfItem, ///< one for each item, what says most
        All
    };
    static constexpr int MaxHits = 20000;
    static constexpr int MaxPatternTime = 2000; ///< ms, for all texts together

    /// An empty text finds nothing.
    CItemSearch(CProjectModel &project, const SSearchQuery &query, EHits hits);

    /// Looks on for about so long; whether there is more to do.
    bool advance(int milliseconds);
    /// Looks to the end.
    void finish();
    /// Why nothing, or not all, was found; empty otherwise.
    QString problem() const;
    const SearchHits &hits() const { return m_hits; } ///< so far
    int itemCount() const { return m_items.size(); }  ///< of the project, screens included
    /// How many texts a pattern was held against only the beginning of.
    int cutTexts() const { return m_cutTexts; }

private:
    bool isOver() const;
    void look(CItemModel *item);
    bool isMeant(const SFacet &facet) const;
    bool test(const CItemModel &item, const SFacet &facet, SSearchHit &hit);
    CTextMatcher::SSpan find(const QString &text);
    bool isColour(const QString &text) const;

    const SSearchQuery m_query;
    const EHits m_wanted;
    CTextMatcher m_matcher;
    const CPropertyTest m_propertyTest;
    CItemFacets m_facets;
    QVector<CItemModel *> m_items;
    int m_next = 0;
    int m_cutTexts = 0;
    qint64 m_time = 0; ///< spent so far, ns
    bool m_isTooLong = false;
    SearchHits m_hits;
};
