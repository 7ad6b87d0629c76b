#include "CItemSearch.h"

#include "CItemModel.h"
#include "CProjectModel.h"
#include "ItemTree.h"

#include <QColor>

namespace {
using ESort = SFacet::ESort;

constexpr qint64 Millisecond = 1000000; // ns
constexpr int ItemsOfALook = 16;        // between looks at the clock, for what is known to be quick

/// What is no number is part of what it stands in; a number is one.
bool isWhole(ESort sort)
{
    return sort == ESort::Number || sort == ESort::Switch;
}
} // namespace

bool SSearchHit::operator==(const SSearchHit &other) const
{
    return item == other.item && facet.key == other.facet.key && text == other.text &&
           found.start == other.found.start && found.length == other.found.length;
}

CItemSearch::CItemSearch(CProjectModel &project, const SSearchQuery &query, EHits hits)
    : m_query(query),
      m_wanted(hits),
      m_matcher(query.text,
                query.isPattern ? CTextMatcher::EMode::Pattern : CTextMatcher::EMode::Plain,
                query.isCaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive),
      m_propertyTest(query.text),
      m_facets(project)
{
    forEachItem(project, [this](CItemModel &each) { m_items.append(&each); });
}

bool CItemSearch::isOver() const
{
    return m_query.text.isEmpty() || m_next >= m_items.size() || m_isTooLong ||
           !m_matcher.problem().isEmpty() || m_hits.size() >= MaxHits;
}

bool CItemSearch::advance(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (!isOver()) {
        look(m_items.at(m_next++));
        if ((m_query.isPattern || m_next % ItemsOfALook == 0) &&
            time.nsecsElapsed() >= milliseconds * Millisecond)
            break;
    }
    m_time += time.nsecsElapsed();
    m_isTooLong = m_query.isPattern && !isOver() && m_time > MaxPatternTime * Millisecond;
    return !isOver();
}

void CItemSearch::finish()
{
    constexpr int piece = 100;
    while (advance(piece)) {
    }
}

QString CItemSearch::problem() const
{
    if (m_isTooLong)
        return tr("The search was stopped because it took too long.");
    if (m_hits.size() >= MaxHits)
        return tr("Only the first %1 are shown.").arg(MaxHits);
    return m_query.text.isEmpty() ? QString() : m_matcher.problem();
}

bool CItemSearch::isMeant(const SFacet &facet) const
{
    switch (m_query.field) {
    case ESearchField::Everything:
        return facet.sort != ESort::Switch;
    case ESearchField::Name:
        return facet.sort == ESort::Name;
    case ESearchField::Text:
        return facet.sort == ESort::Text;
    case ESearchField::Kind:
        return facet.sort == ESort::Kind;
    case ESearchField::Property:
    case ESearchField::Value:
        return facet.sort != ESort::Kind;
    case ESearchField::Colour:
        return facet.sort == ESort::Colour;
    case ESearchField::Font:
        return facet.sort == ESort::Font;
    case ESearchField::Image:
        return facet.sort == ESort::Image;
    }
    return false;
}

void CItemSearch::look(CItemModel *item)
{
    const QVector<SFacet> facets = m_facets.of(*item);
    for (const SFacet &facet : facets) {
        SSearchHit hit;
        if (!isMeant(facet) || !test(*item, facet, hit))
            continue;
        hit.item = item;
        hit.facet = facet;
        m_hits.append(hit);
        if (m_wanted == EHits::OfItem || m_hits.size() >= MaxHits)
            return;
    }
}

CTextMatcher::SSpan CItemSearch::find(const QString &text)
{
    if (m_query.isPattern && text.size() > CTextMatcher::MaxText)
        ++m_cutTexts;
    return m_matcher.find(text);
}

/// Also while it is being typed.
bool CItemSearch::isColour(const QString &text) const
{
    const QString wanted = m_query.text.trimmed();
    if (wanted.startsWith(QLatin1Char('#')) && text.startsWith(wanted, Qt::CaseInsensitive))
        return true;
    return QColor::isValidColor(wanted) && QColor::isValidColor(text) &&
           QColor(wanted).rgba() == QColor(text).rgba();
}

bool CItemSearch::test(const CItemModel &item, const SFacet &facet, SSearchHit &hit)
{
    hit.text = m_facets.text(item, facet);
    if (m_query.field == ESearchField::Property) {
        if (m_query.isPattern)
            return m_matcher.find(facet.key).isFound() || m_matcher.find(facet.caption).isFound();
        const QString &wanted = m_propertyTest.key();
        return (facet.key.contains(wanted, Qt::CaseInsensitive) ||
                facet.caption.contains(wanted, Qt::CaseInsensitive)) &&
               m_propertyTest.isPassedBy(hit.text, CItemFacets::key(item, facet));
    }
    if (!m_query.isPattern && facet.sort == ESort::Colour)
        return isColour(hit.text);
    if (!m_query.isPattern && isWhole(facet.sort))
        return isSameValue(hit.text, m_query.text.trimmed()) ||
               isSameValue(CItemFacets::key(item, facet), m_query.text.trimmed());
    if (!m_query.isPattern && facet.sort == ESort::Font &&
        isSameValue(hit.text.section(QLatin1Char(' '), 0, 0), m_query.text.trimmed()))
        return true;
    const bool isHandle = facet.sort == ESort::Font && !hit.text.contains(QLatin1Char(' '));
    if (isHandle && !m_query.isPattern)
        return false; // one in ROM has no other name
    hit.found = find(hit.text);
    if (hit.found.isFound())
        return true;
    const QString key =
        facet.sort == ESort::Kind ? item.itemTypeName() : CItemFacets::key(item, facet);
    return !key.isEmpty() && m_matcher.find(key).isFound();
}
