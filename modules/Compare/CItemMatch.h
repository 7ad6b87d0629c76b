#pragma once

#include <QHash>
#include <QVector>

class CItemModel;
class CProjectModel;

/// Tells which item of an earlier state of a project is which of a later one: the one with the same
/// id and kind, wherever it lies now; on a screen, of those that are left, the one with the same
/// name and kind, then the one of the same kind in the same place. Of several the first is taken.
/// Screens match by name; one that was renamed by what lies on it: at least half must be known.
/// Both projects must stay as they are while it is used.
class CItemMatch
{
public:
    CItemMatch(const CProjectModel &before, const CProjectModel &after);

    /// Null when there is none, as for the next.
    const CItemModel *before(const CItemModel *after) const { return m_before.value(after); }
    const CItemModel *after(const CItemModel *before) const { return m_after.value(before); }

private:
    using Items = QVector<const CItemModel *>;

    static Items itemsOf(const CItemModel &screen);
    void pair(const CItemModel *before, const CItemModel *after);
    void matchIds(const Items &before, const Items &after);
    void matchScreens(const Items &before, const Items &after);
    void matchRenamed(const Items &before, const Items &after);
    template<typename Key>
    void matchBy(const Items &before, const Items &after, Key keyOf);

    QHash<const CItemModel *, const CItemModel *> m_before;
    QHash<const CItemModel *, const CItemModel *> m_after;
};
