#include "CItemMatch.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemGeometry.h"
#include "ItemTree.h"

#include <QPair>
#include <QSet>

#include <algorithm>

namespace {

using Items = QVector<const CItemModel *>;

Items screensOf(const CProjectModel &project)
{
    Items screens;
    for (int row = 0; row < project.screenCount(); ++row)
        if (const CScreenModel *screen = project.screen(row))
            screens.append(screen);
    return screens;
}

/// By id, those whose id nothing else has.
QHash<quint32, const CItemModel *> byId(const Items &items)
{
    QHash<quint32, const CItemModel *> found;
    QSet<quint32> several;
    for (const CItemModel *item : items) {
        if (item->id() == 0)
            continue;
        if (found.contains(item->id()))
            several.insert(item->id());
        found.insert(item->id(), item);
    }
    for (const quint32 id : several)
        found.remove(id);
    return found;
}

QString kindAndName(const CItemModel &item)
{
    return item.itemTypeName() + QLatin1Char('\n') + item.name();
}

QString kindAndPlace(const CItemModel &item)
{
    const QRect frame = ItemGeometry::frameOf(item).toAlignedRect();
    return QStringLiteral("%1\n%2,%3,%4,%5")
        .arg(item.itemTypeName())
        .arg(frame.x())
        .arg(frame.y())
        .arg(frame.width())
        .arg(frame.height());
}

} // namespace

CItemMatch::CItemMatch(const CProjectModel &before, const CProjectModel &after)
{
    const Items screensBefore = screensOf(before);
    const Items screensAfter = screensOf(after);
    Items allBefore;
    Items allAfter;
    for (const CItemModel *screen : screensBefore)
        allBefore += itemsOf(*screen);
    for (const CItemModel *screen : screensAfter)
        allAfter += itemsOf(*screen);
    matchIds(allBefore, allAfter);
    matchScreens(screensBefore, screensAfter);
    for (const CItemModel *screen : screensAfter) {
        const CItemModel *earlier = m_before.value(screen);
        if (!earlier)
            continue;
        const Items here = itemsOf(*screen);
        const Items there = itemsOf(*earlier);
        matchBy(there, here, kindAndName);
        matchBy(there, here, kindAndPlace);
    }
}

/// All below it, groups before their members.
CItemMatch::Items CItemMatch::itemsOf(const CItemModel &screen)
{
    Items items;
    forEachItem(screen, [&](const CItemModel &item) {
        if (&item != &screen)
            items.append(&item);
    });
    return items;
}

void CItemMatch::pair(const CItemModel *before, const CItemModel *after)
{
    m_before.insert(after, before);
    m_after.insert(before, after);
}

void CItemMatch::matchIds(const Items &before, const Items &after)
{
    const QHash<quint32, const CItemModel *> earlier = byId(before);
    const QHash<quint32, const CItemModel *> later = byId(after);
    for (auto it = later.begin(); it != later.end(); ++it) {
        const CItemModel *item = earlier.value(it.key());
        if (item && item->itemTypeName() == it.value()->itemTypeName())
            pair(item, it.value());
    }
}

void CItemMatch::matchScreens(const Items &before, const Items &after)
{
    matchBy(before, after, [](const CItemModel &screen) { return screen.name(); });
    matchRenamed(before, after);
    // An empty one has nothing to be known by but its place.
    for (int row = 0; row < std::min(before.size(), after.size()); ++row)
        if (!m_after.contains(before[row]) && !m_before.contains(after[row]) &&
            itemsOf(*before[row]).isEmpty() && itemsOf(*after[row]).isEmpty())
            pair(before[row], after[row]);
}

void CItemMatch::matchRenamed(const Items &before, const Items &after)
{
    QHash<QString, QVector<int>> places; // of names, on those screens that are left
    QVector<Items> itemsBefore(before.size());
    QHash<const CItemModel *, int> screenOf;
    for (int i = 0; i < before.size(); ++i) {
        if (m_after.contains(before[i]))
            continue;
        itemsBefore[i] = itemsOf(*before[i]);
        for (const CItemModel *item : itemsBefore[i]) {
            screenOf.insert(item, i);
            QVector<int> &named = places[kindAndName(*item)];
            if (!named.contains(i))
                named.append(i);
        }
    }
    for (const CItemModel *screen : after) {
        if (m_before.contains(screen) || screenOf.isEmpty())
            continue;
        const Items items = itemsOf(*screen);
        QHash<int, int> known; // items that lie on a screen
        for (const CItemModel *item : items) {
            if (const CItemModel *earlier = m_before.value(item)) {
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

template<typename Key>
void CItemMatch::matchBy(const Items &before, const Items &after, Key keyOf)
{
    QHash<QString, QVector<const CItemModel *>> left; // the first one last
    for (auto it = before.rbegin(); it != before.rend(); ++it)
        if (!m_after.contains(*it))
            left[keyOf(**it)].append(*it);
    for (const CItemModel *item : after) {
        if (m_before.contains(item))
            continue;
        const auto found = left.find(keyOf(*item));
        if (found != left.end() && !found->isEmpty())
            pair(found->takeLast(), item);
    }
}
