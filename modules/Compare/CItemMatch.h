#pragma once

#include "SProjectState.h"

#include <QHash>
#include <QVector>

/// Tells which item of an earlier state of a project is which of a later one: the one with the same
/// id and kind, wherever it lies now; a group by its members; on a screen, of those that are left,
/// the one with the same name and kind, then the one of the same kind in the same place. Of several
/// with one id, or one name, it is the one that has most in common, then the first. Screens match
/// by name; one that was renamed by what lies on it: at least half must be known. Both states must
/// live as long as it is used.
class CItemMatch
{
public:
    CItemMatch(const SProjectState &before, const SProjectState &after);

    /// Null when there is none, as for the next.
    const SItemState *before(const SItemState *after) const { return m_before.value(after); }
    const SItemState *after(const SItemState *before) const { return m_after.value(before); }

private:
    using Items = QVector<const SItemState *>;

    static void collect(const SItemState &below, Items &items);
    static Items itemsOf(const SItemState &screen);
    void pair(const SItemState *before, const SItemState *after);
    void matchIds(const Items &before, const Items &after);
    void matchGroups(const Items &after);
    void matchRenamed(const Items &before, const Items &after);
    void matchEmpty(const Items &before, const Items &after);
    void matchTwins(const SItemState &before, const SItemState &after);
    void matchLeft(const Items &before, const Items &after);
    template<typename Key>
    void matchBy(const Items &before, const Items &after, Key keyOf);

    QHash<const SItemState *, const SItemState *> m_before;
    QHash<const SItemState *, const SItemState *> m_after;
};
