#pragma once

#include "CWidgetProperty.h"
#include "PropertyStep.h"
#include "SPropertyLook.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QVector>

class CItemModel;

/// What many items have in common, and how they are changed together. A group has its name and its
/// place itself; everything else is of its members. What is locked is left out, as it cannot be
/// edited alone either. Neither are properties of which every item needs one of its own.
/// The items are of one project and must outlive it; what they are called and where they stand is
/// read when it is asked for.
class CBatchItems
{
    Q_DECLARE_TR_FUNCTIONS(CBatchItems)

public:
    struct SProperty
    {
        /// Key, type and value; of numbers the limits in which one of the items may be, of an
        /// enumeration the entries that all have. Whole and real numbers together are real ones.
        CWidgetProperty property;
        SPropertyLook look;   ///< as the first kind has it
        bool isMixed = false; ///< the value is that of one item, and others differ
        bool isCommon = true; ///< all items have it
        bool isImage = false; ///< the file of one, which is chosen
        int count = 0;        ///< items that have it
    };

    explicit CBatchItems(const QList<CItemModel *> &selected = {});

    const QList<CItemModel *> &selected() const { return m_selected; }
    int editable() const { return m_placed.size(); } ///< of the selected ones
    int locked() const { return m_locked; }          ///< left out, members of groups too

    /// Those that most items have come first; else in the order in which the kinds have them.
    QVector<SProperty> properties() const;
    QVector<CItemModel *> with(const QString &key) const;

    /// What makes the value that of all: whole numbers and limits as each item needs them, names
    /// counted up.
    PropertyStep::Changes changes(const QString &key, const QVariant &value) const;
    /// The same for what was typed into a number field, worked out for each item from its own
    /// numbers. No changes and an error when it cannot be for one of them. `unit`: what one of the
    /// typed numbers stands for.
    PropertyStep::Changes changesTo(const QString &key, const QString &expression, QString *error,
                                    double unit = 1) const;
    /// Each number by so much more, within its limits.
    static QVariant stepped(const CItemModel &item, const QString &key, const QVariant &start,
                            double by);
    /// How the step of such changes is called.
    QString stepText(const QString &key, int items) const;

private:
    struct SRow
    {
        CWidgetProperty definition;
        QVector<int> kinds; ///< that have it
        int count = 0;
        bool isOfPlaced = false; ///< of the selected items, else of what they hold
        bool isImage = false;
        SPropertyLook look;
    };
    struct SKind
    {
        QVector<CItemModel *> items;
        bool isPlaced = false;
    };

    void addKinds(const QVector<CItemModel *> &items, bool isPlaced);
    void addRows(const CItemModel &first, int kind);
    PropertyStep::Changes renamed(const QString &name) const;
    const SRow *find(const QString &key) const;

    QList<CItemModel *> m_selected;
    QVector<CItemModel *> m_placed;
    int m_contents = 0; ///< items that have more than a place
    int m_locked = 0;
    QVector<SKind> m_kinds;
    QVector<SRow> m_rows;
    QHash<QString, int> m_rowOf; ///< by key
};
