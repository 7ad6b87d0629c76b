// What stands where in the palette: the shelves above the groups, and the order of a filter.
#include "CWidgetSelectionView.h"
#include "PaletteEntry.h"
#include "PaletteRank.h"

#include <QScrollBar>

#include <algorithm>
#include <limits>
#include <tuple>

using namespace PaletteEntry;

namespace {
PaletteRank::SEntry searched(const QListWidgetItem &entry)
{
    const auto both = [&entry](int role) {
        return QStringList{entry.data(role).toString(), translated(entry.data(role))};
    };
    return {both(NameRole), entry.data(TypeRole).toString(), both(GroupRole), both(TipRole)};
}
} // namespace

void CWidgetSelectionView::setShelf(EShelf which, const QStringList &types)
{
    QStringList &shelf = m_shelves.at(size_t(which));
    if (shelf == types)
        return;
    shelf = types;
    fillShelves();
}

void CWidgetSelectionView::noteUsed(const QString &type)
{
    QStringList used = shelf(LastUsed);
    used.removeAll(type);
    used.prepend(type);
    setShelf(LastUsed, used.mid(0, MostUsed));
}

void CWidgetSelectionView::setFavourite(const QString &type, bool isFavourite)
{
    QStringList favourites = shelf(Favourites);
    favourites.removeAll(type);
    if (isFavourite)
        favourites.append(type);
    setShelf(Favourites, favourites);
}

/// What is seen stays where it is seen: who works his way through the groups is not led away by
/// what he uses.
void CWidgetSelectionView::fillShelves()
{
    const QString type = currentType();
    const bool isShelved = currentItem() && isOnShelf(currentItem());
    const QListWidgetItem *seen = entryOf(type);
    const int before = seen ? visualItemRect(seen).top() : 0;

    for (int row = count() - 1; row >= 0; --row) {
        if (isOnShelf(item(row)))
            delete takeItem(row);
    }
    int row = 0;
    for (int which = 0; which < ShelfCount; ++which) {
        QVector<QListWidgetItem *> entries;
        for (const QString &each : qAsConst(m_shelves.at(size_t(which)))) {
            if (const QListWidgetItem *entry = entryOf(each))
                entries.append(entry->clone());
        }
        if (!entries.isEmpty())
            entries.prepend(makeHeader());
        for (QListWidgetItem *each : qAsConst(entries)) {
            each->setData(ShelfRole, which);
            insertItem(row++, each);
        }
    }
    retranslate();
    arrange(m_filter);
    if (QListWidgetItem *entry = entryOf(type)) {
        setCurrentItem(entry, QItemSelectionModel::ClearAndSelect);
        if (!isShelved && seen == entry) {
            doItemsLayout();
            verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                          visualItemRect(entry).top() - before);
        }
    }
}

void CWidgetSelectionView::setFilter(const QString &text)
{
    m_filter = text;
    arrange(text);
    if (m_filter.simplified().isEmpty())
        return;
    for (int row = 0; row < count(); ++row) {
        if (!item(row)->isHidden() && !isHeader(item(row))) {
            setCurrentRow(row);
            break;
        }
    }
    scrollToTop();
}

/// Headers, each followed by what is below it, in the order of the library.
QVector<QListWidgetItem *> CWidgetSelectionView::sections() const
{
    QVector<QListWidgetItem *> items;
    for (int row = 0; row < count(); ++row) {
        if (!isOnShelf(item(row)))
            items.append(item(row));
    }
    std::sort(items.begin(), items.end(), [](const auto *left, const auto *right) {
        return left->data(PlaceRole).toInt() < right->data(PlaceRole).toInt();
    });
    return items;
}

/// Groups by their best entry, the entries of each by how well they fit.
void CWidgetSelectionView::arrange(const QString &filter)
{
    struct SShown
    {
        int ofGroup;
        int group;
        int rank;
        QListWidgetItem *item;
    };
    constexpr int none = std::numeric_limits<int>::max();
    const bool isFiltered = !filter.simplified().isEmpty();
    QVector<SShown> shown;
    QVector<int> best; // of each group
    for (QListWidgetItem *each : sections()) {
        if (isHeader(each)) {
            best.append(isFiltered ? none : 0);
            shown.append({0, best.size() - 1, -1, each});
            continue;
        }
        const int rank = isFiltered ? PaletteRank::of(filter, searched(*each)).value_or(none) : 0;
        if (!best.isEmpty())
            best.last() = std::min(best.last(), rank);
        shown.append({0, best.size() - 1, rank, each});
    }
    for (SShown &each : shown)
        each.ofGroup = each.group < 0 ? each.rank : best.at(each.group);
    std::stable_sort(shown.begin(), shown.end(), [](const SShown &left, const SShown &right) {
        return std::tie(left.ofGroup, left.group, left.rank) <
               std::tie(right.ofGroup, right.group, right.rank);
    });
    QListWidgetItem *const current = currentItem();
    const int shelved = count() - shown.size();
    for (int row = 0; row < shown.size(); ++row) { // taken out only where it is another one
        QListWidgetItem *each = shown.at(row).item;
        if (item(shelved + row) != each)
            insertItem(shelved + row, takeItem(this->row(each)));
        each->setHidden(shown.at(row).rank == none || shown.at(row).ofGroup == none);
    }
    for (int row = 0; row < shelved; ++row)
        item(row)->setHidden(isFiltered);
    if (currentItem() != current)
        setCurrentItem(current);
    m_isNothingFound =
        isFiltered && std::all_of(best.begin(), best.end(), [](int each) { return each == none; });
    viewport()->update();
}
