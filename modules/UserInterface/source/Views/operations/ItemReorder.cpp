#include "ItemReorder.h"

#include "CCommandChangeItemProperty.h"
#include "CCommandDeleteItem.h"
#include "CCommandMoveItems.h"
#include "CCommandOrderItem.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "ItemNames.h"
#include "ItemTree.h"
#include "PropertyKey.h"

#include <QSet>
#include <QUndoStack>

#include <algorithm>

namespace {
using ItemReorder::Items;

const CItemModel *pageOf(const CItemModel *item)
{
    while (item->parentItem())
        item = item->parentItem();
    return item;
}

bool isUnderLockedGroup(const CItemModel &parent)
{
    return parent.kind() == CItemModel::Kind::Group && parent.isUnderLock();
}

/// Within one parent views follow an item that moves; it stays selected, and nothing is made anew.
bool order(const Items &items, CItemModel &target, int row)
{
    Items rest;
    for (int each = 0; each < target.rowCount(); ++each)
        rest.append(target.childItem(each));
    const Items before = rest;
    const QSet<CItemModel *> moved(items.begin(), items.end());
    const auto isMoved = [&moved](CItemModel *each) { return moved.contains(each); };
    row -= int(std::count_if(rest.begin(), rest.begin() + row, isMoved));
    rest.erase(std::remove_if(rest.begin(), rest.end(), isMoved), rest.end());
    Items after = rest.mid(0, row) + items + rest.mid(row);
    if (after == before)
        return false;
    target.project()->undoStack()->push(
        new CCommandOrderItem(items, RowOperations::span(row, items.size())));
    return true;
}

/// What an item is called on its new page, with its members.
void pushNames(CItemModel &item, ItemNames::Names &taken, QUndoStack &stack)
{
    forEachItem(item, [&](CItemModel &each) {
        const QString name = ItemNames::unused(each.name(), taken);
        if (name != each.name() && each.hasProperty(PropertyKey::Name))
            stack.push(new CCommandChangeItemProperty(&each, PropertyKey::Name, name, each.name()));
        taken.insert(name);
    });
}
} // namespace

bool ItemReorder::canMove(const Items &items, const CItemModel &target)
{
    if (items.isEmpty() || isUnderLockedGroup(target))
        return false;
    return std::all_of(items.begin(), items.end(), [&target](const CItemModel *each) {
        const CItemModel *above = &target;
        while (above && above != each)
            above = above->parentItem();
        return !above && each->parentItem() && !isUnderLockedGroup(*each->parentItem());
    });
}

bool ItemReorder::move(const Items &items, CItemModel &target, int row)
{
    const auto isHere = [&target](const CItemModel *each) { return each->parentItem() == &target; };
    if (std::all_of(items.begin(), items.end(), isHere) &&
        std::is_sorted(items.begin(), items.end(), [](const auto *left, const auto *right) {
            return left->row() < right->row();
        }))
        return order(items, target, row);

    QVector<CItemModel *> left; // by some of the items
    const CItemModel *page = pageOf(&target);
    ItemNames::Names taken = ItemNames::below(*page);
    QUndoStack &stack = *target.project()->undoStack();
    stack.beginMacro(QObject::tr("Move Item"));
    for (CItemModel *each : items) {
        if (pageOf(each) != page)
            pushNames(*each, taken, stack);
        if (!left.contains(each->parentItem()))
            left.append(each->parentItem());
    }
    stack.push(new CCommandMoveItems(items, &target, row));
    for (CItemModel *each : qAsConst(left)) {
        while (each->parentItem() && each->kind() == CItemModel::Kind::Group &&
               each->rowCount() == 0) {
            CItemModel *above = each->parentItem();
            stack.push(new CCommandDeleteItem({each}));
            each = above;
        }
    }
    stack.endMacro();
    return true;
}
