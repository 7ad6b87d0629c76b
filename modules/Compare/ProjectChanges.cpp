#include "ProjectChanges.h"

#include "CItemDocument.h"
#include "CItemMatch.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemTree.h"
#include "PropertyKey.h"

#include <QMap>
#include <QSet>

#include <algorithm>

namespace {

using Values = QVector<QPair<QString, QString>>; ///< keys and texts, in the order of documents

/// Those of `after` in their order, then what is gone.
QVector<SValueChange> valueChanges(const Values &before, const Values &after)
{
    QHash<QString, QString> earlier;
    for (const auto &[key, text] : before)
        earlier.insert(key, text);
    QVector<SValueChange> changes;
    for (const auto &[key, text] : after) {
        const auto found = earlier.find(key);
        if (found == earlier.end())
            changes.append({key, QString(), text});
        else if (*found != text)
            changes.append({key, *found, text});
        earlier.remove(key);
    }
    for (const auto &[key, text] : before)
        if (earlier.contains(key))
            changes.append({key, text, QString()});
    return changes;
}

/// Never null: that is for values that are not there.
QString given(const QString &text)
{
    return text.isNull() ? QString(QLatin1String("")) : text;
}

Values valuesOf(const CItemModel &item)
{
    Values values;
    for (const CWidgetProperty *property : CItemDocument::of(item).saved(item))
        values.append({property->key(),
                       given(CItemDocument::savedText(item, *property, FolderForm::Relative))});
    return values;
}

Values valuesOf(const CProjectModel &project)
{
    QMap<QString, QString> sorted;
    for (const CWidgetProperty &property : project.properties())
        sorted.insert(property.key(), given(property.text()));
    sorted.remove(PropertyKey::WorkingDirectory); // where it lies and who saved it
    sorted.remove(PropertyKey::NyxVersion);       // is nothing that was designed
    sorted.remove(PropertyKey::Fonts);
    Values values;
    for (auto it = sorted.cbegin(); it != sorted.cend(); ++it)
        values.append({it.key(), it.value()});
    const QVector<ItemAttributes> fonts = ProjectFonts::attributes(project.fonts());
    for (int i = 0; i < fonts.size(); ++i)
        for (const ItemAttribute &attribute : fonts[i])
            values.append(
                {QStringLiteral("font %1 %2").arg(project.fonts()[i].handle).arg(attribute.name),
                 given(attribute.text)});
    return values;
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

const CItemModel *screenOf(const CItemModel *item)
{
    while (const CItemModel *parent = item->parentItem())
        item = parent;
    return item;
}

class CCompare
{
public:
    CCompare(const CProjectModel &before, const CProjectModel &after)
        : m_old(before), m_new(after), m_match(before, after)
    {
    }

    SProjectChanges changes()
    {
        SProjectChanges result;
        result.values = valueChanges(valuesOf(m_old), valuesOf(m_new));
        const QSet<const CItemModel *> moved = reordered(m_new.invisibleRootItem());
        for (int row = 0; row < m_new.screenCount(); ++row)
            if (const CItemModel *screen = m_new.screen(row))
                take(screenChange(*screen, moved.contains(screen)), result);
        for (int row = 0; row < m_old.screenCount(); ++row)
            if (const CItemModel *screen = m_old.screen(row))
                if (!m_match.after(screen))
                    result.screens.append(
                        {SScreenChange::EKind::Removed, screen, nullptr, {}, false, {}});
        return result;
    }

private:
    static void take(const SScreenChange &change, SProjectChanges &result)
    {
        if (change.kind == SScreenChange::EKind::Added || change.isReordered ||
            !change.values.isEmpty() || !change.items.isEmpty())
            result.screens.append(change);
    }

    SScreenChange screenChange(const CItemModel &screen, bool isReordered) const
    {
        SScreenChange change;
        change.after = &screen;
        change.before = m_match.before(&screen);
        change.isReordered = isReordered;
        if (change.before)
            change.values = valueChanges(valuesOf(*change.before), valuesOf(screen));
        else
            change.kind = SScreenChange::EKind::Added;
        QSet<const CItemModel *> moved;
        forEachItem(screen, [&](const CItemModel &item) {
            moved.unite(reordered(&item));
            if (&item != &screen)
                takeItem(item, moved.contains(&item), change.items);
        });
        if (change.before)
            forEachItem(*change.before, [&](const CItemModel &item) {
                if (&item != change.before && !m_match.after(&item)) {
                    SItemChange removed;
                    removed.kind = SItemChange::EKind::Removed;
                    removed.before = &item;
                    change.items.append(removed);
                }
            });
        return change;
    }

    void takeItem(const CItemModel &item, bool isReordered, QVector<SItemChange> &items) const
    {
        SItemChange change;
        change.after = &item;
        change.before = m_match.before(&item);
        if (!change.before) {
            change.kind = SItemChange::EKind::Added;
            items.append(change);
            return;
        }
        change.values = valueChanges(valuesOf(*change.before), valuesOf(item));
        change.isReordered = isReordered;
        const CItemModel *screenBefore = screenOf(change.before);
        if (m_match.after(screenBefore) != screenOf(&item))
            change.screenBefore = screenBefore->name();
        else
            change.isRegrouped = m_match.after(change.before->parentItem()) != item.parentItem();
        const bool isElsewhere =
            !change.screenBefore.isNull() || change.isRegrouped || change.isReordered;
        if (change.values.isEmpty() && !isElsewhere)
            return;
        if (!isElsewhere && std::all_of(change.values.begin(), change.values.end(), isCoordinate))
            change.kind = SItemChange::EKind::Moved;
        items.append(change);
    }

    /// Those of its children that lie in another order than before.
    QSet<const CItemModel *> reordered(const QStandardItem *parent) const
    {
        const CItemModel *parentBefore = m_match.before(CItemModel::fromItem(parent));
        QVector<const CItemModel *> stayed;
        QVector<int> rows;
        for (int row = 0; row < parent->rowCount(); ++row) {
            const CItemModel *item = CItemModel::fromItem(parent->child(row));
            const CItemModel *earlier = item ? m_match.before(item) : nullptr;
            if (!earlier || earlier->parentItem() != parentBefore)
                continue;
            stayed.append(item);
            rows.append(earlier->row());
        }
        QSet<const CItemModel *> moved;
        for (const int i : outOfOrder(rows))
            moved.insert(stayed[i]);
        return moved;
    }

    const CProjectModel &m_old;
    const CProjectModel &m_new;
    const CItemMatch m_match;
};

} // namespace

SProjectChanges projectChanges(const CProjectModel &before, const CProjectModel &after)
{
    return CCompare(before, after).changes();
}
