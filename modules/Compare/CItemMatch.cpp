#include "CItemMatch.h"

#include <QSet>

#include <algorithm>

namespace {

using Items = QVector<const SItemState *>;

Items screensOf(const SProjectState &project)
{
    Items screens;
    for (const auto &screen : project.screens)
        screens.append(screen.get());
    return screens;
}

Items childrenOf(const SItemState &item)
{
    Items children;
    for (const auto &child : item.children)
        children.append(child.get());
    return children;
}

/// By id, those whose id nothing else has.
QHash<quint32, const SItemState *> byId(const Items &items)
{
    QHash<quint32, const SItemState *> found;
    QSet<quint32> several;
    for (const SItemState *item : items) {
        if (item->id == 0)
            continue;
        if (found.contains(item->id))
            several.insert(item->id);
        found.insert(item->id, item);
    }
    for (const quint32 id : several)
        found.remove(id);
    return found;
}

QString kindAndName(const SItemState &item)
{
    return item.typeName + QLatin1Char('\n') + item.name;
}

QString kindAndPlace(const SItemState &item)
{
    return QStringLiteral("%1\n%2,%3,%4,%5")
        .arg(item.typeName)
        .arg(item.box.x())
        .arg(item.box.y())
        .arg(item.box.width())
        .arg(item.box.height());
}

QString all(const SItemState &item)
{
    return item.idString + QLatin1Char('\n') + item.name + QLatin1Char('\n') + kindAndPlace(item);
}

const SItemState *siblingBehind(const SItemState &item)
{
    const auto &siblings = item.parent->children;
    const size_t next = size_t(item.row) + 1;
    return next < siblings.size() ? siblings[next].get() : nullptr;
}

/// Not empty for those that have an id.
QString kindAndId(const SItemState &item)
{
    return item.id == 0 ? QString() : item.idString + QLatin1Char('\n') + item.typeName;
}

} // namespace

CItemMatch::CItemMatch(const SProjectState &before, const SProjectState &after)
{
    const Items screensBefore = screensOf(before);
    const Items screensAfter = screensOf(after);
    Items allBefore;
    Items allAfter;
    for (const SItemState *screen : screensBefore)
        collect(*screen, allBefore);
    for (const SItemState *screen : screensAfter)
        collect(*screen, allAfter);
    matchBy(screensBefore, screensAfter, [](const SItemState &screen) { return screen.name; });
    matchIds(allBefore, allAfter);
    matchGroups(allAfter);
    matchRenamed(screensBefore, screensAfter);
    matchEmpty(screensBefore, screensAfter);
    for (const SItemState *screen : screensAfter)
        if (const SItemState *earlier = m_before.value(screen)) {
            matchTwins(*earlier, *screen);
            matchLeft(itemsOf(*earlier), itemsOf(*screen));
        }
}

void CItemMatch::collect(const SItemState &below, Items &items)
{
    for (const auto &child : below.children) {
        items.append(child.get());
        collect(*child, items);
    }
}

/// All below it, groups before their members.
CItemMatch::Items CItemMatch::itemsOf(const SItemState &screen)
{
    Items items;
    collect(screen, items);
    return items;
}

void CItemMatch::pair(const SItemState *before, const SItemState *after)
{
    m_before.insert(after, before);
    m_after.insert(before, after);
}

/// An id that was unique and is that of a copy too stands for none of the two by itself.
void CItemMatch::matchIds(const Items &before, const Items &after)
{
    const QHash<quint32, const SItemState *> earlier = byId(before);
    const QHash<quint32, const SItemState *> later = byId(after);
    for (auto it = later.begin(); it != later.end(); ++it) {
        const SItemState *item = earlier.value(it.key());
        if (item && item->typeName == it.value()->typeName)
            pair(item, it.value());
    }
}

/// A group has no id: it is the one that at least half of its members were in.
void CItemMatch::matchGroups(const Items &after)
{
    for (auto group = after.rbegin(); group != after.rend(); ++group) { // members before groups
        if ((*group)->kind != CItemModel::Kind::Group || m_before.contains(*group))
            continue;
        QHash<const SItemState *, int> known;
        for (const auto &member : (*group)->children)
            if (const SItemState *earlier = m_before.value(member.get()))
                ++known[earlier->parent];
        for (auto it = known.cbegin(); it != known.cend(); ++it) {
            const SItemState *earlier = it.key();
            if (earlier->typeName == (*group)->typeName && !m_after.contains(earlier) &&
                2 * size_t(*it) > std::max(earlier->children.size(), (*group)->children.size())) {
                pair(earlier, *group);
                break;
            }
        }
    }
}

void CItemMatch::matchRenamed(const Items &before, const Items &after)
{
    QHash<QString, QVector<int>> places; // of names, on those screens that are left
    QVector<Items> itemsBefore(before.size());
    QHash<const SItemState *, int> screenOf;
    for (int i = 0; i < before.size(); ++i) {
        if (m_after.contains(before[i]))
            continue;
        itemsBefore[i] = itemsOf(*before[i]);
        for (const SItemState *item : itemsBefore[i]) {
            screenOf.insert(item, i);
            QVector<int> &named = places[kindAndName(*item)];
            if (!named.contains(i))
                named.append(i);
        }
    }
    for (const SItemState *screen : after) {
        if (m_before.contains(screen) || screenOf.isEmpty())
            continue;
        const Items items = itemsOf(*screen);
        QHash<int, int> known; // items that lie on a screen
        for (const SItemState *item : items) {
            if (const SItemState *earlier = m_before.value(item)) {
                if (screenOf.contains(earlier))
                    ++known[screenOf.value(earlier)];
            } else {
                for (const int i : places.value(kindAndName(*item)))
                    ++known[i];
            }
        }
        int best = -1;
        for (int i = 0; i < before.size(); ++i)
            if (known.value(i) > (best < 0 ? 0 : known.value(best)) &&
                !m_after.contains(before[i]) &&
                2 * known.value(i) >= std::max(items.size(), itemsBefore[i].size()))
                best = i;
        if (best >= 0)
            pair(before[best], screen);
    }
}

/// An empty screen has nothing to be known by but its place.
void CItemMatch::matchEmpty(const Items &before, const Items &after)
{
    for (int row = 0; row < std::min(before.size(), after.size()); ++row)
        if (!m_after.contains(before[row]) && !m_before.contains(after[row]) &&
            before[row]->children.empty() && after[row]->children.empty())
            pair(before[row], after[row]);
}

/// Of two screens or groups that are one. An original that has a copy with its id or name is the
/// one that lies where it did, in front of what it did.
void CItemMatch::matchTwins(const SItemState &before, const SItemState &after)
{
    const Items there = childrenOf(before);
    const Items here = childrenOf(after);
    matchBy(there, here, [this](const SItemState &item) {
        const SItemState *behind = siblingBehind(item);
        return all(item) + QLatin1Char('\n') +
               QString::number(quintptr(m_after.value(behind, behind)), 16);
    });
    matchBy(there, here, all);
    for (const SItemState *item : here)
        if (const SItemState *earlier = m_before.value(item))
            if (!item->children.empty())
                matchTwins(*earlier, *item);
}

/// Of two screens that are one. What says most comes first.
void CItemMatch::matchLeft(const Items &before, const Items &after)
{
    matchBy(before, after, all);
    matchBy(before, after, kindAndId);
    matchBy(before, after, [](const SItemState &item) {
        return kindAndPlace(item) + QLatin1Char('\n') + item.name;
    });
    matchBy(before, after, kindAndName);
    matchBy(before, after, kindAndPlace);
}

/// Of equal keys the first ones go together; an empty one is none.
template<typename Key>
void CItemMatch::matchBy(const Items &before, const Items &after, Key keyOf)
{
    QHash<QString, QVector<const SItemState *>> left; // the first one last
    for (auto it = before.rbegin(); it != before.rend(); ++it)
        if (!m_after.contains(*it))
            left[keyOf(**it)].append(*it);
    if (left.isEmpty())
        return;
    for (const SItemState *item : after) {
        if (m_before.contains(item))
            continue;
        const QString key = keyOf(*item);
        const auto found = left.find(key);
        if (!key.isEmpty() && found != left.end() && !found->isEmpty())
            pair(found->takeLast(), item);
    }
}
