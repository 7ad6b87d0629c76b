#include "ItemOperations.h"

#include "CCommandAddItem.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandDeleteItem.h"
#include "CCommandDeleteScreen.h"
#include "CCommandGroupItem.h"
#include "CCommandInsertItem.h"
#include "CCommandOrderItem.h"
#include "CCommandUngroupItem.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "ItemNames.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "RowOperations.h"

#include <QCoreApplication>
#include <QHash>
#include <QMap>
#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <memory>

namespace {
using ItemOperations::Items;

QUndoStack &stackOf(const CScreenModel &screen)
{
    return *screen.project()->undoStack();
}

/// The rows that items of one parent, front first, go to. They keep their order, and so does the
/// rest.
RowOperations::Rows newRows(const Items &items, ItemOperations::EOrder where)
{
    const int count = items.size();
    const int end = items.constFirst()->parent()->rowCount();
    RowOperations::Rows rows = RowOperations::rowsOf(items);
    switch (where) {
    case ItemOperations::EOrder::ToFront:
        return RowOperations::span(0, count);
    case ItemOperations::EOrder::ToBack:
        return RowOperations::span(end - count, count);
    case ItemOperations::EOrder::Forward: // what is in front already stays there
        for (int index = 0; index < count; ++index)
            rows[index] = std::max(rows.at(index) - 1, index);
        return rows;
    default:
        for (int index = 0; index < count; ++index)
            rows[index] = std::min(rows.at(index) + 1, end - count + index);
        return rows;
    }
}

QString textOf(ItemOperations::EOrder where)
{
    switch (where) {
    case ItemOperations::EOrder::ToFront:
        return QObject::tr("Bring To Front Selected Items");
    case ItemOperations::EOrder::ToBack:
        return QObject::tr("Send To Back Selected Items");
    case ItemOperations::EOrder::Forward:
        return QObject::tr("Bring Forward Selected Items");
    default:
        return QObject::tr("Send Backward Selected Items");
    }
}

/// The items of each parent, front first, in the order of the parents. One walk through the rows
/// instead of a search for each.
QVector<Items> byParent(const Items &items)
{
    QMap<QPair<int, const QStandardItem *>, QSet<const CItemModel *>> parents;
    for (CItemModel *each : items) {
        const QStandardItem *parent = RowOperations::parentOf(*each);
        parents[{each->parent() ? parent->row() : -1, parent}].insert(each);
    }
    QVector<Items> sorted;
    for (auto wanted = parents.cbegin(); wanted != parents.cend(); ++wanted) {
        const QStandardItem *parent = wanted.key().second;
        sorted.append(Items());
        for (int row = 0; row < parent->rowCount(); ++row) {
            auto *item = const_cast<CItemModel *>(CItemModel::fromItem(parent->child(row)));
            if (wanted->contains(item))
                sorted.last().append(item);
        }
    }
    return sorted;
}

/// The items of each screen or group, front first.
QVector<Items> withoutScreens(Items items)
{
    const auto isScreen = [](const CItemModel *each) { return !each->parentItem(); };
    items.erase(std::remove_if(items.begin(), items.end(), isScreen), items.end());
    return byParent(items);
}

/// Groups in the place of their members, where all of these are to go.
Items withEmptied(Items going)
{
    QHash<CItemModel *, int> leaving;                    // of each group
    for (int index = 0; index < going.size(); ++index) { // which grows
        CItemModel *group = going.at(index)->isGrouped() ? going.at(index)->parentItem() : nullptr;
        if (group && ++leaving[group] == group->rowCount())
            going.append(group);
    }
    const auto isWithGroup =
        [all = QSet<CItemModel *>(going.begin(), going.end())](const CItemModel *each) {
            return each->isGrouped() && all.contains(each->parentItem());
        };
    going.erase(std::remove_if(going.begin(), going.end(), isWithGroup), going.end());
    return going;
}

bool isAnyGrouped(const Items &items)
{
    return std::any_of(items.begin(), items.end(),
                       [](const CItemModel *each) { return each->isGrouped(); });
}
} // namespace

Items ItemOperations::inOrder(const Items &items)
{
    Items ordered;
    for (const Items &each : byParent(items))
        ordered += each;
    return ordered;
}

bool ItemOperations::canOrder(const Items &items, EOrder where)
{
    const QVector<Items> sorted = withoutScreens(items);
    return std::any_of(sorted.begin(), sorted.end(), [where](const Items &each) {
        return newRows(each, where) != RowOperations::rowsOf(each);
    });
}

void ItemOperations::order(const Items &items, EOrder where)
{
    QVector<CCommandOrderItem *> moves;
    for (const Items &each : withoutScreens(items)) {
        const RowOperations::Rows rows = newRows(each, where);
        if (rows != RowOperations::rowsOf(each))
            moves.append(new CCommandOrderItem(each, rows));
    }
    if (moves.isEmpty())
        return;
    QUndoStack &stack = *items.constFirst()->project()->undoStack();
    stack.beginMacro(textOf(where));
    for (CCommandOrderItem *each : qAsConst(moves))
        stack.push(each);
    stack.endMacro();
}

void ItemOperations::toggleLock(const Items &items)
{
    if (items.isEmpty())
        return;
    const bool lock = !std::all_of(items.begin(), items.end(),
                                   [](const CItemModel *each) { return each->isLocked(); });
    QUndoStack &stack = *items.constFirst()->project()->undoStack();
    stack.beginMacro(items.size() > 1
                         ? QCoreApplication::translate("CSelectionCommands", "Lock/Unlock Multiple")
                         : QCoreApplication::translate("CSelectionCommands", "Lock/Unlock"));
    for (CItemModel *each : items) {
        if (each->isLocked() != lock)
            stack.push(new CCommandChangeItemProperty(each, PropertyKey::Locked,
                                                      each->lockValue(lock),
                                                      each->propertyValue(PropertyKey::Locked)));
    }
    stack.endMacro();
}

void ItemOperations::toggleHidden(const Items &items)
{
    const auto isHidden = [](const CItemModel *each) { return each->isHidden(); };
    setHidden(items, !std::all_of(items.begin(), items.end(), isHidden));
}

void ItemOperations::setHidden(const Items &items, bool isHidden)
{
    auto step = std::make_unique<QUndoCommand>(
        isHidden ? QCoreApplication::translate("CSelectionCommands", "Hide")
                 : QCoreApplication::translate("CSelectionCommands", "Show"));
    for (CItemModel *each : items) {
        if (each->isHidden() != isHidden && each->parentItem())
            new CCommandChangeItemProperty(each, PropertyKey::Hidden,
                                           CItemModel::hiddenValue(isHidden),
                                           each->propertyValue(PropertyKey::Hidden), step.get());
    }
    if (step->childCount() > 0)
        items.constFirst()->project()->undoStack()->push(step.release());
}

CItemModel *ItemOperations::group(CScreenModel &screen, const Items &items, const QPoint &position)
{
    if (items.size() < 2 || isAnyGrouped(items))
        return nullptr;
    const RowOperations::Rows rows = RowOperations::rowsOf(byParent(items).constFirst());
    auto *made = new CWidgetGroupModel(screen.library(), screen.observer());
    const auto quiet = CItemModel::Notify::No; // it is in no tree yet
    made->setProperty(PropertyKey::Name, ItemNames::unused(made->name(), ItemNames::below(screen)),
                      quiet);
    made->setProperty(PropertyKey::X, position.x(), quiet);
    made->setProperty(PropertyKey::Y, position.y(), quiet);

    QUndoStack &stack = stackOf(screen);
    stack.beginMacro(QObject::tr("Group Selected Items"));
    stack.push(new CCommandGroupItem(&screen, made, rows));
    stack.push(new CCommandInsertItem(&screen, made, rows.constFirst()));
    stack.endMacro();
    return made;
}

Items ItemOperations::ungroup(CScreenModel &screen, const Items &items)
{
    Items groups;
    for (CItemModel *each : items) {
        if (each->kind() == CItemModel::Kind::Group && !each->isLocked())
            groups.append(each);
    }
    Items members;
    if (groups.isEmpty() || isAnyGrouped(groups))
        return members;
    QUndoStack &stack = stackOf(screen);
    stack.beginMacro(QObject::tr("Ungroup Selected Items"));
    for (CItemModel *each : qAsConst(groups)) {
        const int count = each->rowCount();
        for (int row = 0; row < count; ++row)
            members.append(each->childItem(row));
        if (count > 0)
            stack.push(
                new CCommandUngroupItem(&screen, each, RowOperations::span(0, count), each->row()));
        stack.push(new CCommandDeleteItem({each}));
    }
    stack.endMacro();
    return members;
}

bool ItemOperations::mayGo(const CItemModel &item)
{
    const auto isLocked = [](const CItemModel &each) { return each.isLocked(); };
    return !item.isUnderLock() && !findItem(item, isLocked);
}

void ItemOperations::remove(const Items &items, const QString &macroText)
{
    if (items.isEmpty())
        return;
    QUndoStack &stack = *items.constFirst()->project()->undoStack();
    stack.beginMacro(macroText);
    for (const Items &each : byParent(withEmptied(items))) {
        if (each.constFirst()->parent()) {
            stack.push(new CCommandDeleteItem(each));
            continue;
        }
        for (CItemModel *screen : each)
            stack.push(new CCommandDeleteScreen(static_cast<CScreenModel *>(screen)));
    }
    stack.endMacro();
}

Items ItemOperations::moveToScreen(CScreenModel &screen, const Items &items)
{
    QUndoStack &stack = stackOf(screen);
    ItemNames::Names taken = ItemNames::below(screen);
    Items brought = items;
    for (auto each = brought.rbegin(); each != brought.rend(); ++each) { // each goes to the front
        if ((*each)->parentItem() == &screen)
            continue;
        CItemModel *const here = (*each)->clone(); // what was deleted belongs to its command
        ItemNames::makeUnique(*here, taken);
        stack.push(new CCommandDeleteItem({*each}));
        stack.push(new CCommandAddItem(&screen, here));
        *each = here;
    }
    return brought;
}
