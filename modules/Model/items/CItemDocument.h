#pragma once

#include "ItemAttributes.h"

#include <QVector>

class CItemModel;
class CPropertyTable;
class CWidgetProperty;

/// The form of items in documents: which of their properties are written as attributes, and how
/// attributes are taken. One for each kind of item, without a state.
class CItemDocument
{
public:
    static const CItemDocument &of(const CItemModel &item);
    virtual ~CItemDocument() = default;

    /// Takes the attributes of the item's element, in any order. The item must be new.
    void load(CItemModel &item, const ItemAttributes &attributes) const;
    /// The properties to be written as attributes, in a fixed order.
    virtual QVector<const CWidgetProperty *> saved(const CItemModel &item) const = 0;
    /// The text to be written for one of them.
    static QString savedText(const CItemModel &item, const CWidgetProperty &property,
                             FolderForm folders);
    static QByteArray savedTextUtf8(const CItemModel &item, const CWidgetProperty &property,
                                    FolderForm folders);
    /// Whether elements of the kind hold child elements.
    virtual bool canHaveChildren() const { return true; }

protected:
    virtual void take(CItemModel &item, const ItemAttributes &attributes) const = 0;

    /// Documents have them in any order, and of sizes that contradict each other the last one
    /// decides.
    static ItemAttributes sortedByName(const ItemAttributes &attributes);

    // What only documents do: values go in without what follows from them.
    static CPropertyTable &tableOf(CItemModel &item);
    static const CPropertyTable &tableOf(const CItemModel &item);
    static bool isDerivedFrom(const QString &name);
};
