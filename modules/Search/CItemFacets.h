#pragma once

#include <QHash>
#include <QString>
#include <QVector>

class CItemModel;
class CProjectModel;
class CWidgetProperty;

/// What of an item a search looks at.
struct SFacet
{
    enum class ESort { Name, Text, Image, Font, Colour, Choice, Time, Number, Switch, Kind };
    QString key; ///< of the property; empty for the kind
    ESort sort = ESort::Text;
    QString caption; ///< of the property, for users
    int unit = 1;    ///< how much of a number is one of what users see
};

/// The facets of items, of which those of a kind are looked up once. Only what a user can see: no
/// hidden properties.
class CItemFacets
{
public:
    explicit CItemFacets(const CProjectModel &project);

    /// The one that says most about the item first.
    QVector<SFacet> of(const CItemModel &item);
    /// As it is shown and searched.
    QString text(const CItemModel &item, const SFacet &facet) const;
    /// What it is searched by as well: a choice or a switch as documents have it; else nothing.
    static QString key(const CItemModel &item, const SFacet &facet);
    /// "14 Inter" for a font of the project, the number for those in ROM.
    QString fontText(int handle) const;

    static QString kindName(const CItemModel &item);
    /// Whether the property says which image an item shows.
    static bool isImageKey(const QString &key);
    /// The file name of the image that an item shows; empty when it shows none.
    static QString imageName(const CItemModel &item);

private:
    static SFacet facetOf(const CItemModel &item, const CWidgetProperty &property);
    QString entry(const QString &name) const;
    QVector<SFacet> make(const CItemModel &item) const;

    QHash<int, QString> m_fonts; ///< names by handle
    QHash<QString, QVector<SFacet>> m_ofKind;
    mutable QHash<QString, QString> m_entries; ///< of enumerations, as users know them
};
