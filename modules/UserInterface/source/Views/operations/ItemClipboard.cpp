#include "ItemClipboard.h"

#include "CCommandDeleteItem.h"
#include "CCommandOrderItem.h"
#include "CCommandPaste.h"
#include "CFontImport.h"
#include "CImageImport.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemGeometry.h"
#include "ItemNames.h"
#include "ItemOperations.h"
#include "ItemTree.h"
#include "ItemXml.h"
#include "PastePlace.h"
#include "PropertyKey.h"
#include "RowOperations.h"
#include "ScreenDocuments.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMimeData>
#include <QUndoStack>

#include <functional>

namespace {
using ItemClipboard::Items;

QUndoStack &stackOf(const CItemModel &item)
{
    return *item.project()->undoStack();
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
    forEachItem(parent, [&parent](CItemModel &each) {
        if (&each != &parent && each.isLocked())
            each.setProperty(PropertyKey::Locked, each.lockValue(false), CItemModel::Notify::No);
    });
}

/// How far the copies go from where they were copied; they stand there when it is asked.
using Placing = std::function<QPoint(const Items &copies)>;

Placing placing(const CItemModel &into, const QMimeData &data, std::optional<QPoint> by)
{
    const QSize from = pageSizeOf(data);
    return [&into, from, by](const Items &copies) {
        if (!by)
            return PastePlace::offset(copies, into, from);
        const QSize page = into.project()->resolution();
        return *by + (by->isNull() ? PastePlace::ontoPage(copies, page, from) : QPoint());
    };
}

/// Those of what is below a screen or group, but of one item that is about to go.
void addTaken(ItemNames::Names &taken, const CItemModel &parent, const CItemModel *leaving)
{
    for (int row = 0; row < parent.rowCount(); ++row) {
        const CItemModel *item = parent.childItem(row);
        if (item == leaving)
            continue;
        taken.insert(item->name());
        addTaken(taken, *item, leaving);
    }
}

const CItemModel &pageOf(const CItemModel &item)
{
    const CItemModel *page = &item;
    while (page->parentItem())
        page = page->parentItem();
    return *page;
}

/// The step that would paste, and the items that it would bring; null when there is a problem.
std::unique_ptr<QUndoCommand> pasting(CItemModel &into, const QMimeData &data, QString *problem,
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
    CImageImport images(into.project());
    const QString error = images.bring(*copied);
    if (problem)
        *problem = error.isEmpty() ? images.missing() : error;
    if (!error.isEmpty())
        return nullptr;
    CFontImport fonts(into.project());
    const QString lack = fonts.bring(*copied, data.data(CFontImport::Mime));
    if (problem && problem->isEmpty())
        *problem = lack; // texts are pasted all the same
    // Ids, names and place are settled before the command is made: they are no change of the pasted
    // items.
    auto holding = std::make_unique<CScreenModel>(into.project());
    ItemXml::read(*holding, *copied);
    copied.reset();
    unlockMembers(*holding);
    into.project()->assignFreshIds(holding.get());
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
    ItemNames::Names taken;
    addTaken(taken, pageOf(into), leaving);
    for (CItemModel *each : qAsConst(copies)) {
        PastePlace::move(*each, by);
        ItemNames::makeUnique(*each, taken);
    }
    *pasted = copies;
    auto step = std::make_unique<QUndoCommand>(QObject::tr("Paste"));
    if (!fonts.command(step.get()))
        return std::make_unique<CCommandPaste>(&into, std::move(holding));
    new CCommandPaste(&into, std::move(holding), step.get());
    return step;
}
} // namespace

QMimeData *ItemClipboard::toMimeData(const Items &items)
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

bool ItemClipboard::canPaste(const QMimeData *data)
{
    return data && data->hasFormat(ScreenDocuments::CopiedItemsMime);
}

void ItemClipboard::cut(const Items &items)
{
    QMimeData *copied = toMimeData(items);
    if (!copied)
        return;
    QGuiApplication::clipboard()->setMimeData(copied);
    ItemOperations::remove(items, QCoreApplication::translate("CSelectionCommands", "Cut"));
}

Items ItemClipboard::paste(CItemModel &into, const QMimeData &data, QString *problem,
                           std::optional<QPoint> by)
{
    Items pasted;
    if (auto step = pasting(into, data, problem, placing(into, data, by), &pasted))
        stackOf(into).push(step.release());
    return pasted;
}

std::unique_ptr<QUndoCommand> ItemClipboard::duplication(CItemModel &into, const Items &items,
                                                         std::optional<QPoint> by, Items *copies)
{
    const std::unique_ptr<QMimeData> copied(toMimeData(items));
    auto step =
        copied ? pasting(into, *copied, nullptr, placing(into, *copied, by), copies) : nullptr;
    if (step)
        step->setText(QCoreApplication::translate("CSelectionCommands", "Duplicate"));
    return step;
}

Items ItemClipboard::duplicate(CItemModel &into, const Items &items, std::optional<QPoint> by)
{
    Items copies;
    if (auto step = duplication(into, items, by, &copies))
        stackOf(into).push(step.release());
    return copies;
}

Items ItemClipboard::replace(const Items &items, const QMimeData &data, QString *problem)
{
    Items all;
    for (CItemModel *each : items) {
        if (!ItemOperations::mayGo(*each))
            continue;
        const QPointF corner = ItemGeometry::frameOf(*each).topLeft();
        Items copies;
        auto step = pasting(
            *each->parentItem(), data, problem,
            [&corner](const Items &made) {
                return (corner - ItemGeometry::frameOf(made).topLeft()).toPoint();
            },
            &copies, each);
        if (!step)
            break; // as for all others
        QUndoStack &stack = stackOf(*each);
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
        stackOf(*all.constFirst()).endMacro();
    return all;
}
