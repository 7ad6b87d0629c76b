#include "ProjectChanges.h"

#include "CItemMatch.h"
#include "PropertyKey.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

/// Never null: that is for values that are not there.
QString given(const QByteArray &text)
{
    return text.isEmpty() ? QString(QLatin1String("")) : QString::fromUtf8(text);
}

/// Those of `after` in their order, then what is gone.
QVector<SValueChange> valueChanges(const SItemState::Values &before,
                                   const SItemState::Values &after)
{
    if (before == after)
        return {};
    QHash<QString, QByteArray> earlier;
    for (const auto &[key, text] : before)
        earlier.insert(key, text);
    QVector<SValueChange> changes;
    for (const auto &[key, text] : after) {
        const auto found = earlier.find(key);
        if (found == earlier.end())
            changes.append({key, QString(), given(text)});
        else if (*found != text)
            changes.append({key, given(*found), given(text)});
        earlier.remove(key);
    }
    for (const auto &[key, text] : before)
        if (earlier.contains(key))
            changes.append({key, given(text), QString()});
    return changes;
}

/// Which of the numbers are not in the longest ascending sequence among them: the fewest that
/// somebody moved to bring the others into this order.
QSet<int> outOfOrder(const QVector<int> &numbers)
{
    QVector<int> ends; // index of the last number of the best sequence of each length
    QVector<int> previous(numbers.size(), -1);
    for (int i = 0; i < numbers.size(); ++i) {
        const auto at =
            std::lower_bound(ends.begin(), ends.end(), numbers[i],
                             [&numbers](int index, int number) { return numbers[index] < number; });
        if (at != ends.begin())
            previous[i] = *std::prev(at);
        if (at == ends.end())
            ends.append(i);
        else
            *at = i;
    }
    QSet<int> moved;
    int next = ends.isEmpty() ? -1 : ends.last();
    for (int i = numbers.size() - 1; i >= 0; --i) {
        if (i == next)
            next = previous[i];
        else
            moved.insert(i);
    }
    return moved;
}

bool isCoordinate(const SValueChange &change)
{
    static const QSet<QString> keys{PropertyKey::X, PropertyKey::Y, PropertyKey::X2,
                                    PropertyKey::Y2, PropertyKey::PointList};
    return keys.contains(change.key);
}

class CCompare
{
public:
    CCompare(const SProjectState &before, const SProjectState &after, const std::atomic<bool> *stop)
        : m_old(before), m_new(after), m_stop(stop), m_match(before, after)
    {
    }

    SProjectChanges changes()
    {
        SProjectChanges result;
        result.values = valueChanges(m_old.values, m_new.values);
        const QSet<const SItemState *> moved = reordered(nullptr, m_new.screens);
        for (const auto &screen : m_new.screens) {
            if (m_stop && *m_stop)
                return {};
            take(screenChange(*screen, moved.contains(screen.get())), result);
            if (const SItemState *before = m_match.before(screen.get()))
                result.pairs.append({before, screen.get()});
        }
        for (const auto &screen : m_old.screens)
            if (!m_match.after(screen.get()))
                result.screens.append(
                    {SScreenChange::EKind::Removed, screen.get(), nullptr, {}, false, {}});
        return result;
    }

private:
    using Children = std::vector<std::unique_ptr<SItemState>>;

    static void take(const SScreenChange &change, SProjectChanges &result)
    {
        if (change.kind == SScreenChange::EKind::Added || change.isReordered ||
            !change.values.isEmpty() || !change.items.isEmpty())
            result.screens.append(change);
    }

    SScreenChange screenChange(const SItemState &screen, bool isReordered) const
    {
        SScreenChange change;
        change.after = &screen;
        change.before = m_match.before(&screen);
        change.isReordered = isReordered;
        if (change.before)
            change.values = valueChanges(change.before->values, screen.values);
        else
            change.kind = SScreenChange::EKind::Added;
        takeItems(screen, change.items);
        if (change.before)
            takeRemoved(*change.before, change.items);
        return change;
    }

    void takeItems(const SItemState &below, QVector<SItemChange> &items) const
    {
        const QSet<const SItemState *> moved = reordered(&below, below.children);
        for (const auto &item : below.children) {
            takeItem(*item, moved.contains(item.get()), items);
            takeItems(*item, items);
        }
    }

    void takeRemoved(const SItemState &below, QVector<SItemChange> &items) const
    {
        for (const auto &item : below.children) {
            if (!m_match.after(item.get())) {
                SItemChange removed;
                removed.kind = SItemChange::EKind::Removed;
                removed.before = item.get();
                items.append(removed);
            }
            takeRemoved(*item, items);
        }
    }

    void takeItem(const SItemState &item, bool isReordered, QVector<SItemChange> &items) const
    {
        SItemChange change;
        change.after = &item;
        change.before = m_match.before(&item);
        if (!change.before) {
            change.kind = SItemChange::EKind::Added;
            items.append(change);
            return;
        }
        change.values = valueChanges(change.before->values, item.values);
        change.isReordered = isReordered;
        const SItemState &screenBefore = change.before->screen();
        if (m_match.after(&screenBefore) != &item.screen())
            change.screenBefore = screenBefore.name;
        else
            change.isRegrouped = m_match.after(change.before->parent) != item.parent;
        const bool isElsewhere =
            !change.screenBefore.isNull() || change.isRegrouped || change.isReordered;
        if (change.values.isEmpty() && !isElsewhere)
            return;
        if (!isElsewhere && std::all_of(change.values.begin(), change.values.end(), isCoordinate))
            change.kind = SItemChange::EKind::Moved;
        items.append(change);
    }

    /// Those of its children that lie in another order than before.
    QSet<const SItemState *> reordered(const SItemState *parent, const Children &children) const
    {
        const SItemState *parentBefore = m_match.before(parent);
        QVector<const SItemState *> stayed;
        QVector<int> rows;
        for (const auto &item : children) {
            const SItemState *earlier = m_match.before(item.get());
            if (!earlier || earlier->parent != parentBefore)
                continue;
            stayed.append(item.get());
            rows.append(earlier->row);
        }
        QSet<const SItemState *> moved;
        for (const int i : outOfOrder(rows))
            moved.insert(stayed[i]);
        return moved;
    }

    const SProjectState &m_old;
    const SProjectState &m_new;
    const std::atomic<bool> *const m_stop;
    const CItemMatch m_match;
};

} // namespace

SProjectChanges projectChanges(const SProjectState &before, const SProjectState &after,
                               const std::atomic<bool> *stop)
{
    return CCompare(before, after, stop).changes();
}
