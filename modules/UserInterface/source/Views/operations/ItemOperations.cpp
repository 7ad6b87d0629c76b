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
#include "CFontImport.h"
#include "CImageImport.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "ItemGeometry.h"
#include "ItemNames.h"
#include "ItemTree.h"
#include "ItemXml.h"
#include "PastePlace.h"
#include "PropertyKey.h"
#include "RowOperations.h"
#include "ScreenDocuments.h"

#include <QCoreApplication>
#include <QMap>
#include <QMimeData>
#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <functional>
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

/// Of the page that items were copied from; its width and height. What reads only the items does
/// without.
const QString PageSizeMime = QStringLiteral("widget-copy-page-size");

QSize pageSizeOf(const QMimeData &data)
{
    const QList<QByteArray> sides = data.data(PageSizeMime).split(' ');
    return sides.size() == 2 ? QSize(sides.first().toInt(), sides.last().toInt()) : QSize();
}

bool isAnyGrouped(const Items &items)
{
    return std::any_of(items.begin(), items.end(),
                       [](const CItemModel *each) { return each->isGrouped(); });
}

/// A copy is there to be put somewhere.
void unlockMembers(CItemModel &parent)
{
    forEachItem(parent, [&parent](CItemModel &each) {
        if (&each != &parent && each.isLocked())
            each.setProperty(PropertyKey::Locked, each.lockValue(false), CItemModel::Notify::No);
    });
}
} // namespace

Items ItemOperations::inOrder(const Items &items)
{
    Items ordered;
    for (const Items &each : byParent(items))
        ordered += each;
    return ordered;
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

void ItemOperations::remove(const Items &items, const QString &macroText)
{
    if (items.isEmpty())
        return;
    QUndoStack &stack = *items.constFirst()->project()->undoStack();
    stack.beginMacro(macroText);
    for (const Items &each : byParent(items)) {
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
    const QByteArray fonts = CFontImport::copied(*items.constFirst()->project(), copied);
    if (!fonts.isEmpty())
        data->setData(CFontImport::Mime, fonts);
    return data;
}

bool ItemOperations::canPaste(const QMimeData *data)
{
    return data && data->hasFormat(ScreenDocuments::CopiedItemsMime);
}

namespace {
/// How far the copies go from where they were copied; they stand there when it is asked.
using Placing = std::function<QPoint(const Items &copies)>;

Placing placing(const CScreenModel &screen, const QMimeData &data, std::optional<QPoint> by)
{
    const QSize from = pageSizeOf(data);
    return [&screen, from, by](const Items &copies) {
        if (!by)
            return PastePlace::offset(copies, screen, from);
        return *by + (by->isNull() ? PastePlace::ontoPage(copies, screen, from) : QPoint());
    };
}

/// Those of the screen's items, but of one that is about to go.
ItemNames::Names takenNames(const CScreenModel &screen, const CItemModel *leaving)
{
    ItemNames::Names taken;
    for (int row = 0; row < screen.rowCount(); ++row) {
        const CItemModel *item = screen.childItem(row);
        if (item != leaving)
            forEachItem(*item, [&taken](const CItemModel &each) { taken.insert(each.name()); });
    }
    return taken;
}

/// The step that would paste, and the items that it would bring; null when there is a problem.
std::unique_ptr<QUndoCommand> pasting(CScreenModel &screen, const QMimeData &data, QString *problem,
                                      const Placing &place, Items *pasted,
                                      const CItemModel *leaving = nullptr)
{
    QString reason;
    const QByteArray xml =
        ScreenDocuments::fromClipboard(data.data(ScreenDocuments::CopiedItemsMime));
    std::optional<SItemElement> copied = ScreenDocuments::copiedItems(xml, &reason);
    const auto refuse = [problem](const QString &why) -> std::unique_ptr<QUndoCommand> {
        if (problem)
            *problem = QCoreApplication::translate("CSelectionCommands",
                                                   "What was copied cannot be pasted: %1")
                           .arg(why);
        return nullptr;
    };
    if (!copied)
        return refuse(reason);
    CImageImport images(screen.project());
    const QString error = images.bring(*copied);
    if (problem)
        *problem = error.isEmpty() ? images.missing() : error;
    if (!error.isEmpty())
        return nullptr;
    CFontImport fonts(screen.project());
    const QString lack = fonts.bring(*copied, data.data(CFontImport::Mime));
    if (problem && problem->isEmpty())
        *problem = lack; // texts are pasted all the same
    // Ids, names and place are settled before the command is made: they are no change of the pasted
    // items.
    auto holding = std::make_unique<CScreenModel>(screen.project());
    ItemXml::read(*holding, *copied);
    copied.reset();
    unlockMembers(*holding);
    screen.project()->assignFreshIds(holding.get());
    const int count = holding->rowCount();
    reason = count == 0
                 ? QCoreApplication::translate("CSelectionCommands", "There is no widget in it.")
                 : ScreenDocuments::savingRefusal(*holding);
    if (!reason.isEmpty()) {
        images.takeBack();
        return refuse(reason);
    }
    Items copies;
    for (int row = 0; row < count; ++row) {
        copies.append(holding->childItem(row));
        copies.last()->setProperty(PropertyKey::Hidden, CItemModel::hiddenValue(false),
                                   CItemModel::Notify::No); // it is to be seen where it goes
    }
    const QPoint by = place(copies);
    ItemNames::Names taken = takenNames(screen, leaving);
    for (CItemModel *each : qAsConst(copies)) {
        PastePlace::move(*each, by);
        ItemNames::makeUnique(*each, taken);
    }
    *pasted = copies;
    auto step = std::make_unique<QUndoCommand>(QObject::tr("Paste"));
    if (!fonts.command(step.get()))
        return std::make_unique<CCommandPaste>(&screen, std::move(holding));
    new CCommandPaste(&screen, std::move(holding), step.get());
    return step;
}
} // namespace

Items ItemOperations::paste(CScreenModel &screen, const QMimeData &data, QString *problem,
                            std::optional<QPoint> by)
{
    Items pasted;
    if (auto step = pasting(screen, data, problem, placing(screen, data, by), &pasted))
        stackOf(screen).push(step.release());
    return pasted;
}

std::unique_ptr<QUndoCommand> ItemOperations::duplication(CScreenModel &screen, const Items &items,
                                                          std::optional<QPoint> by, Items *copies)
{
    const std::unique_ptr<QMimeData> copied(toMimeData(items));
    auto step =
        copied ? pasting(screen, *copied, nullptr, placing(screen, *copied, by), copies) : nullptr;
    if (step)
        step->setText(QCoreApplication::translate("CSelectionCommands", "Duplicate"));
    return step;
}

Items ItemOperations::duplicate(CScreenModel &screen, const Items &items, std::optional<QPoint> by)
{
    Items copies;
    if (auto step = duplication(screen, items, by, &copies))
        stackOf(screen).push(step.release());
    return copies;
}

Items ItemOperations::replace(CScreenModel &screen, const Items &items, const QMimeData &data,
                              QString *problem)
{
    Items all;
    for (CItemModel *each : items) {
        if (each->isLocked())
            continue;
        const QPointF corner = ItemGeometry::frameOf(*each).topLeft();
        Items copies;
        auto step = pasting(
            screen, data, problem,
            [&corner](const Items &made) {
                return (corner - ItemGeometry::frameOf(made).topLeft()).toPoint();
            },
            &copies, each);
        if (!step)
            break; // as for all others
        QUndoStack &stack = stackOf(screen);
        if (all.isEmpty())
            stack.beginMacro(QCoreApplication::translate("CSelectionCommands", "Paste to Replace"));
        stack.push(step.release());
        const RowOperations::Rows rows =
            RowOperations::span(each->row() - copies.size(), copies.size());
        if (rows != RowOperations::rowsOf(copies))
            stack.push(new CCommandOrderItem(copies, rows));
        stack.push(new CCommandDeleteItem({each}));
        all += copies;
    }
    if (!all.isEmpty())
        stackOf(screen).endMacro();
    return all;
}
