#include "ItemOperations.h"

#include "CCommandAddItem.h"
#include "CCommandChangeItemProperty.h"
#include "CCommandDeleteItem.h"
#include "CCommandGroupItem.h"
#include "CCommandInsertItem.h"
#include "CCommandOrderItem.h"
#include "CCommandPaste.h"
#include "CCommandUngroupItem.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "CXmlGuard.h"
#include "PropertyKey.h"
#include "ScreenDocuments.h"

#include <QMimeData>
#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

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
void order(CScreenModel &screen, const QVector<Move> &moves, const QString &macroText)
{
    const bool any = std::any_of(moves.begin(), moves.end(),
                                 [](const Move &each) { return each.item->row() != each.row; });
    if (!any)
        return;
    QUndoStack &stack = stackOf(screen);
    stack.beginMacro(macroText);
    for (const Move &each : moves) {
        if (each.item->row() != each.row)
            stack.push(new CCommandOrderItem(each.item, each.row));
    }
    stack.endMacro();
}

void collectNames(const CItemModel &parent, QSet<QString> &names)
{
    for (int row = 0; row < parent.rowCount(); ++row) {
        if (const CItemModel *item = parent.childItem(row)) {
            names.insert(item->name());
            collectNames(*item, names);
        }
    }
}

/// How many elements deep a document has an item with all below it.
int depthOf(const CItemModel &item)
{
    int deepest = 0;
    for (int row = 0; row < item.rowCount(); ++row) {
        if (const CItemModel *child = item.childItem(row))
            deepest = std::max(deepest, depthOf(*child));
    }
    return deepest + 1;
}

/// "Button", "Button 2", "Button 3", …: the first that is not taken.
QString unusedName(const QString &name, const QSet<QString> &taken)
{
    if (!taken.contains(name))
        return name;
    QString stem = name;
    int end = stem.size();
    while (end > 0 && stem.at(end - 1).isDigit())
        --end;
    if (end > 1 && end < stem.size() && stem.at(end - 1) == QLatin1Char(' '))
        stem.truncate(end - 1);
    int number = 2;
    while (taken.contains(QStringLiteral("%1 %2").arg(stem).arg(number)))
        ++number;
    return QStringLiteral("%1 %2").arg(stem).arg(number);
}

/// Gives an item and its members names that are not taken, recorded one by one.
void makeNamesUnique(CItemModel &item, QSet<QString> &taken, QUndoStack &stack)
{
    const QString name = unusedName(item.name(), taken);
    if (name != item.name() && item.hasProperty(PropertyKey::Name))
        stack.push(new CCommandChangeItemProperty(&item, PropertyKey::Name, name, item.name()));
    taken.insert(name);
    for (int row = 0; row < item.rowCount(); ++row) {
        if (CItemModel *member = item.childItem(row))
            makeNamesUnique(*member, taken, stack);
    }
}
} // namespace

void ItemOperations::toFront(CScreenModel &screen, const Items &items)
{
    QVector<Move> moves; // the backmost first, so that they keep their order
    for (auto each = items.crbegin(); each != items.crend(); ++each)
        moves.append({*each, 0});
    const bool alreadyThere = !items.isEmpty() && items.constLast()->row() == items.size() - 1;
    if (!alreadyThere)
        order(screen, moves, QObject::tr("Bring To Front Selected Items"));
}

void ItemOperations::toBack(CScreenModel &screen, const Items &items)
{
    const int last = screen.rowCount() - 1;
    QVector<Move> moves;
    for (CItemModel *each : items)
        moves.append({each, last});
    const bool alreadyThere =
        !items.isEmpty() && items.constFirst()->row() == screen.rowCount() - items.size();
    if (!alreadyThere)
        order(screen, moves, QObject::tr("Send To Back Selected Items"));
}

void ItemOperations::forward(CScreenModel &screen, const Items &items)
{
    QVector<Move> moves;
    int limit = 0; // items that are in front already stay there, in their order
    for (CItemModel *each : items) {
        moves.append({each, std::max(each->row() - 1, limit)});
        ++limit;
    }
    order(screen, moves, QObject::tr("Bring Forward Selected Items"));
}

void ItemOperations::backward(CScreenModel &screen, const Items &items)
{
    QVector<Move> moves;
    int limit = screen.rowCount() - 1;
    for (auto each = items.crbegin(); each != items.crend(); ++each) {
        moves.append({*each, std::min((*each)->row() + 1, limit)});
        --limit;
    }
    order(screen, moves, QObject::tr("Send Backward Selected Items"));
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
        if (each->kind() == CItemModel::Kind::Group)
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

void ItemOperations::remove(CScreenModel &screen, const Items &items, const QString &macroText)
{
    if (items.isEmpty())
        return;
    QUndoStack &stack = stackOf(screen);
    stack.beginMacro(macroText);
    for (CItemModel *each : items)
        stack.push(new CCommandDeleteItem(each));
    stack.endMacro();
}

Items ItemOperations::bringTo(CScreenModel &screen, const Items &items)
{
    QUndoStack &stack = stackOf(screen);
    QSet<QString> taken;
    collectNames(screen, taken);
    Items brought = items;
    for (auto each = brought.rbegin(); each != brought.rend(); ++each) { // each goes to the front
        if ((*each)->parentItem() == &screen)
            continue;
        CItemModel *const here = (*each)->clone(); // what was deleted belongs to its command
        stack.push(new CCommandDeleteItem(*each));
        stack.push(new CCommandAddItem(&screen, here));
        makeNamesUnique(*here, taken, stack);
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
    return data;
}

bool ItemOperations::canPaste(const QMimeData *data)
{
    return data && data->hasFormat(ScreenDocuments::CopiedItemsMime);
}

Items ItemOperations::paste(CScreenModel &screen, const QMimeData &data)
{
    const QByteArray xml =
        ScreenDocuments::fromClipboard(data.data(ScreenDocuments::CopiedItemsMime));
    const QDomElement copied = ScreenDocuments::copiedItems(xml);
    if (copied.isNull())
        return {};
    // The ids are settled before the command is made: they are no change of the pasted items.
    CScreenModel holding(screen.project());
    holding.loadFromElement(copied);
    screen.project()->assignFreshIds(&holding);
    const int count = holding.rowCount();
    // In the project the items stand one element deeper, below its screen: it must remain one that
    // can be saved.
    if (count == 0 || depthOf(holding) + 1 > CXmlGuard::MaxDepth)
        return {};
    QDomDocument document;
    QDomElement renumbered = document.createElement(copied.tagName());
    holding.saveToElement(renumbered);

    QSet<QString> taken;
    collectNames(screen, taken);
    QUndoStack &stack = stackOf(screen);
    Items pasted;
    stack.beginMacro(QObject::tr("Paste"));
    stack.push(new CCommandPaste(&screen, renumbered));
    for (int row = 0; row < count; ++row) {
        CItemModel *item = screen.childItem(row);
        makeNamesUnique(*item, taken, stack);
        pasted.append(item);
    }
    stack.endMacro();
    return pasted;
}
