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
#include "ItemTree.h"
#include "ItemXml.h"
#include "PastePlace.h"
#include "PropertyKey.h"
#include "RowOperations.h"
#include "ScreenDocuments.h"

#include <QCoreApplication>
#include <QMimeData>
#include <QUndoStack>

#include <functional>

namespace {
using ItemClipboard::Items;

QUndoStack &stackOf(const CScreenModel &screen)
{
    return *screen.project()->undoStack();
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

Items ItemClipboard::paste(CScreenModel &screen, const QMimeData &data, QString *problem,
                           std::optional<QPoint> by)
{
    Items pasted;
    if (auto step = pasting(screen, data, problem, placing(screen, data, by), &pasted))
        stackOf(screen).push(step.release());
    return pasted;
}

std::unique_ptr<QUndoCommand> ItemClipboard::duplication(CScreenModel &screen, const Items &items,
                                                         std::optional<QPoint> by, Items *copies)
{
    const std::unique_ptr<QMimeData> copied(toMimeData(items));
    auto step =
        copied ? pasting(screen, *copied, nullptr, placing(screen, *copied, by), copies) : nullptr;
    if (step)
        step->setText(QCoreApplication::translate("CSelectionCommands", "Duplicate"));
    return step;
}

Items ItemClipboard::duplicate(CScreenModel &screen, const Items &items, std::optional<QPoint> by)
{
    Items copies;
    if (auto step = duplication(screen, items, by, &copies))
        stackOf(screen).push(step.release());
    return copies;
}

Items ItemClipboard::replace(CScreenModel &screen, const Items &items, const QMimeData &data,
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
