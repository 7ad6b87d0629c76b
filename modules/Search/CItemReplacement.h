#pragma once

#include "CItemSearch.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QVariant>

/// What the replacement of one hit comes to.
struct SReplacement
{
    struct SValue
    {
        QString key;
        QVariant before;
        QVariant after;
    };
    CItemModel *item = nullptr;
    QVector<SValue> values; ///< empty when there is a refusal
    QString text;           ///< of the facet then
    QString refusal;        ///< why there is nothing to be had; empty otherwise
};

/// Works out what hits of a query become when something is put in their place. Texts are replaced
/// where they are found; numbers, colours, fonts, choices and images as a whole.
/// Every value that comes out of it is one that the property can have.
class CItemReplacement
{
    Q_DECLARE_TR_FUNCTIONS(CItemReplacement)

public:
    CItemReplacement(const CProjectModel &project, const SSearchQuery &query, const QString &by);

    /// Hits are given in the order of the search: of two pages that would be called the same, the
    /// first one is.
    SReplacement of(const SSearchHit &hit);
    /// What is wrong with what is put in their place; empty otherwise.
    const QString &problem() const { return m_problem; }

private:
    QString replaced(const SSearchHit &hit, QString *refusal);
    void change(const SSearchHit &hit, SReplacement &result);
    void changeImage(const SSearchHit &hit, SReplacement &result);
    QString nameRefusal(const CItemModel &item, const QString &name);
    static QString lockRefusal(const CItemModel &item, const SFacet &facet);

    const CProjectModel &m_project;
    const SSearchQuery m_query;
    const QString m_by;
    CTextMatcher m_matcher;
    const QString m_problem;
    QSet<QString> m_pageNames;             ///< as they will be
    QHash<QString, CItemModel *> m_images; ///< by type: whose image is taken
    QSet<int> m_fonts;
};
