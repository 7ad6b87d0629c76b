#include "ItemOperations.h"

#include "CCommandAddItem.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandDeleteItem.h"
#include "CCommandDeleteScreen.h"
#include "CCommandGroupItem.h"
#include "CCommandInsertItem.h"
#include "CCommandOrderItem.h"
#include "CCommandPaste.h"
#include "CCommandUngroupItem.h"
#include "CImageImport.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenView.h"
#include "CWidgetGroupModel.h"
#include "ItemNames.h"
#include "PastePlace.h"
#include "PropertyKey.h"
#include "ScreenDocuments.h"

#include <QMimeData>
#include <QUndoStack>

#include <algorithm>
#include <utility>

namespace {
using ItemOperations::Items;

QUndoStack &stackOf(const CScreenModel &screen)
{
    return *screen.project()->undoStack();
}

struct Move
{
    CItemModel *item;
    int row; ///< where it goes
};

/// Records the moves that are some, in their order.
void record(const QVector<Move> &moves, const QString &macroText)
{
    const bool any = std::any_of(moves.begin(), moves.end(),
                                 [](const Move &each) { return each.item->row() != each.row; });
    if (!any)
        return;
    QUndoStack &stack = *moves.constFirst().item->project()->undoStack();
    stack.beginMacro(macroText);
    for (const Move &each : moves) {
        if (each.item->row() != each.row)
            stack.push(new CCommandOrderItem(each.item, each.row));
    }
    stack.endMacro();
}

QVector<Move> movesToFront(const Items &items)
{
    QVector<Move> moves; // the backmost first, so that they keep their order
    if (items.constLast()->row() == items.size() - 1)
        return moves; // they are there
    for (auto each = items.crbegin(); each != items.crend(); ++each)
        moves.append({*each, 0});
    return moves;
}

QVector<Move> movesToBack(const CItemModel &screen, const Items &items)
{
    QVector<Move> moves;
    if (items.constFirst()->row() == screen.rowCount() - items.size())
        return moves;
    for (CItemModel *each : items)
        moves.append({each, screen.rowCount() - 1});
    return moves;
}

QVector<Move> movesForward(const Items &items)
{
    QVector<Move> moves;
    int limit = 0; // items that are in front already stay there, in their order
    for (CItemModel *each : items) {
        moves.append({each, std::max(each->row() - 1, limit)});
        ++limit;
    }
    return moves;
}

QVector<Move> movesBackward(const CItemModel &screen, const Items &items)
{
    QVector<Move> moves;
    int limit = screen.rowCount() - 1;
    for (auto each = items.crbegin(); each != items.crend(); ++each) {
        moves.append({*each, std::min((*each)->row() + 1, limit)});
        --limit;
    }
    return moves;
}

QVector<Move> movesOf(const Items &items, ItemOperations::EOrder where)
{
    const CItemModel &screen = *items.constFirst()->parentItem();
    switch (where) {
    case ItemOperations::EOrder::ToFront:
        return movesToFront(items);
    case ItemOperations::EOrder::ToBack:
        return movesToBack(screen, items);
    case ItemOperations::EOrder::Forward:
        return movesForward(items);
    default:
        return movesBackward(screen, items);
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

/// The items of each screen, front first.
QVector<Items> byScreen(Items items)
{
    const auto isNoScreensItem = [](const CItemModel *each) {
        return !each->parentItem() || each->isGrouped();
    };
    items.erase(std::remove_if(items.begin(), items.end(), isNoScreensItem), items.end());
    std::sort(items.begin(), items.end(), [](const CItemModel *left, const CItemModel *right) {
        return std::make_pair(left->parent()->row(), left->row()) <
               std::make_pair(right->parent()->row(), right->row());
    });
    QVector<Items> screens;
    for (CItemModel *each : qAsConst(items)) {
        if (screens.isEmpty() || screens.constLast().constFirst()->parent() != each->parent())
            screens.append(Items());
        screens.last().append(each);
    }
    return screens;
}

/// Of the page that items were copied from; its width and height. What reads only the items does
/// without.
const QString PageSizeMime = QStringLiteral("widget-copy-page-size");

QSize pageSizeOf(const QMimeData &data)
{
    const QList<QByteArray> sides = data.data(PageSizeMime).split(' ');
    return sides.size() == 2 ? QSize(sides.first().toInt(), sides.last().toInt()) : QSize();
}

/// A copy is there to be put somewhere.
void unlockMembers(CItemModel &parent)
{
    for (int row = 0; row < parent.rowCount(); ++row) {
        CItemModel *item = parent.childItem(row);
        if (!item)
            continue;
        if (item->isLocked())
            item->setProperty(PropertyKey::Locked, item->lockValue(false), CItemModel::Notify::No);
        unlockMembers(*item);
    }
}
} // namespace

void ItemOperations::order(const Items &items, EOrder where)
{
    QVector<Move> moves;
    for (const Items &each : byScreen(items))
        moves += movesOf(each, where);
    record(moves, textOf(where));
}

void ItemOperations::toggleLock(const Items &items)
{
    if (items.isEmpty())
        return;
    const bool lock = !std::all_of(items.begin(), items.end(),
                                   [](const CItemModel *each) { return each->isLocked(); });
    QUndoStack &stack = *items.constFirst()->project()->undoStack();
    stack.beginMacro(items.size() > 1 ? CScreenView::tr("Lock/Unlock Multiple")
                                      : CScreenView::tr("Lock/Unlock"));
    for (CItemModel *each : items) {
        if (each->isLocked() != lock)
            stack.push(new CCommandChangeItemProperty(each, PropertyKey::Locked,
                                                      each->lockValue(lock),
                                                      each->propertyValue(PropertyKey::Locked)));
    }
    stack.endMacro();
}

CItemModel *ItemOperations::group(CScreenModel &screen, const Items &items, const QPoint &position)
{
    if (items.size() < 2)
        return nullptr;
    int front = items.constFirst()->row();
    for (const CItemModel *each : items)
        front = std::min(front, each->row());
    auto *made = new CWidgetGroupModel(screen.library(), screen.observer());
    const auto quiet = CItemModel::Notify::No; // it is in no tree yet
    made->setProperty(PropertyKey::Name, ItemNames::unused(made->name(), ItemNames::below(screen)),
                      quiet);
    made->setProperty(PropertyKey::X, position.x(), quiet);
    made->setProperty(PropertyKey::Y, position.y(), quiet);

    QUndoStack &stack = stackOf(screen);
    stack.beginMacro(QObject::tr("Group Selected Items"));
    for (auto each = items.crbegin(); each != items.crend(); ++each) // each goes to the front
        stack.push(new CCommandGroupItem(&screen, made, (*each)->row()));
    stack.push(new CCommandInsertItem(&screen, made, front));
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
    if (groups.isEmpty())
        return members;
    QUndoStack &stack = stackOf(screen);
    stack.beginMacro(QObject::tr("Ungroup Selected Items"));
    for (CItemModel *each : qAsConst(groups)) {
        while (each->rowCount() > 0) {
            members.append(each->childItem(0));
            stack.push(new CCommandUngroupItem(&screen, each, 0, each->row()));
        }
        stack.push(new CCommandDeleteItem(each));
    }
    stack.endMacro();
    return members;
}

void ItemOperations::remove(const Items &items, const QString &macroText)
{
    if (items.isEmpty())
        return;
    QUndoStack &stack = *items.constFirst()->project()->undoStack();
    stack.beginMacro(macroText);
    for (CItemModel *each : items) {
        if (each->kind() == CItemModel::Kind::Screen)
            stack.push(new CCommandDeleteScreen(static_cast<CScreenModel *>(each)));
        else
            stack.push(new CCommandDeleteItem(each));
    }
    stack.endMacro();
}

Items ItemOperations::bringTo(CScreenModel &screen, const Items &items)
{
    QUndoStack &stack = stackOf(screen);
    ItemNames::Names taken = ItemNames::below(screen);
    Items brought = items;
    for (auto each = brought.rbegin(); each != brought.rend(); ++each) { // each goes to the front
        if ((*each)->parentItem() == &screen)
            continue;
        CItemModel *const here = (*each)->clone(); // what was deleted belongs to its command
        stack.push(new CCommandDeleteItem(*each));
        stack.push(new CCommandAddItem(&screen, here));
        ItemNames::makeUnique(*here, taken, stack);
        *each = here;
    }
    return brought;
}

QMimeData *ItemOperations::toMimeData(const Items &items)
{
    QVector<const CItemModel *> copied;
    for (const CItemModel *each : items)
        copied.append(each);
    const QByteArray xml = copied.isEmpty() ? QByteArray() : ScreenDocuments::ofCopiedItems(copied);
    if (xml.isEmpty())
        return nullptr;
    auto *data = new QMimeData;
    data->setData(ScreenDocuments::CopiedItemsMime, ScreenDocuments::toClipboard(xml));
    const QSize page = items.constFirst()->project()->resolution();
    data->setData(PageSizeMime,
                  QStringLiteral("%1 %2").arg(page.width()).arg(page.height()).toLatin1());
    return data;
}

bool ItemOperations::canPaste(const QMimeData *data)
{
    return data && data->hasFormat(ScreenDocuments::CopiedItemsMime);
}

Items ItemOperations::paste(CScreenModel &screen, const QMimeData &data, QString *problem)
{
    QString reason;
    const QByteArray xml =
        ScreenDocuments::fromClipboard(data.data(ScreenDocuments::CopiedItemsMime));
    const QDomElement copied = ScreenDocuments::copiedItems(xml, &reason);
    const auto refuse = [problem](const QString &why) {
        if (problem)
            *problem = CScreenView::tr("What was copied cannot be pasted: %1").arg(why);
        return Items();
    };
    if (copied.isNull())
        return refuse(reason);
    CImageImport images(screen.project());
    const QString error = images.bring(copied);
    if (problem)
        *problem = error.isEmpty() ? images.missing() : error;
    if (!error.isEmpty())
        return {};
    // Ids and place are settled before the command is made: they are no change of the pasted items.
    CScreenModel holding(screen.project());
    holding.loadFromElement(copied);
    unlockMembers(holding);
    screen.project()->assignFreshIds(&holding);
    const int count = holding.rowCount();
    reason = count == 0 ? CScreenView::tr("There is no widget in it.")
                        : ScreenDocuments::savingRefusal(holding);
    if (!reason.isEmpty()) {
        images.takeBack();
        return refuse(reason);
    }
    Items copies;
    for (int row = 0; row < count; ++row)
        copies.append(holding.childItem(row));
    const QPoint by = PastePlace::offset(copies, screen, pageSizeOf(data));
    for (CItemModel *each : qAsConst(copies))
        PastePlace::move(*each, by);
    QDomDocument document;
    QDomElement renumbered = document.createElement(copied.tagName());
    holding.saveToElement(renumbered);

    ItemNames::Names taken = ItemNames::below(screen);
    QUndoStack &stack = stackOf(screen);
    Items pasted;
    stack.beginMacro(QObject::tr("Paste"));
    stack.push(new CCommandPaste(&screen, renumbered));
    for (int row = 0; row < count; ++row) {
        CItemModel *item = screen.childItem(row);
        ItemNames::makeUnique(*item, taken, stack);
        pasted.append(item);
    }
    stack.endMacro();
    return pasted;
}
