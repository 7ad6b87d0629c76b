#include "CPlatformTable.h"
#include "CProjectModel.h"
#include "ChipFindings.h"
#include "ConvertedImages.h"
#include "ItemTree.h"
#include "ProjectChecks.h"
#include "RuleSupport.h"

#include <QFileInfo>
#include <QHash>
#include <QLocale>
#include <QSet>

// What the chip and the emulator said of a screen.

namespace {

constexpr double UsualShare = 80; // percent

/// The item that a message of the emulator is about: they begin with its kind, id and name.
const CItemModel *itemOf(const QString &message, const QHash<QString, const CItemModel *> &items)
{
    // What stands behind a name is never looked at, since names hold anything.
    int end = message.indexOf(QLatin1String(": "));
    while (end >= 0) {
        if (const CItemModel *item = items.value(message.left(end)))
            return item;
        end = message.indexOf(QLatin1String(": "), end + 1);
    }
    return nullptr;
}

/// Of the messages about what could not be drawn, those about characters.
bool isAboutCharacters(const QString &message, const CItemModel *item)
{
    const QString said = item ? message.mid(messageLabel(*item).size() + 2) : message;
    return said.startsWith(QLatin1String("no font has ")) ||
           (said.startsWith(QLatin1String("font \"")) &&
            said.contains(QLatin1String("\" and its fallbacks lack ")));
}

QHash<QString, const CItemModel *> itemsByLabel(const CItemModel &screen)
{
    QHash<QString, const CItemModel *> items;
    forEachItem(screen, [&items](const CItemModel &item) {
        if (item.kind() == CItemModel::Kind::Widget)
            items.insert(messageLabel(item), &item);
    });
    return items;
}

void checkMemory(CRuleContext &context, const QString &memory, size_t needed, size_t budget)
{
    const double share = budget > 0 ? 100.0 * static_cast<double>(needed) / double(budget) : 0;
    if (needed > budget)
        context.add(ERule::Memory, ESeverity::Error, nullptr,
                    CRuleContext::tr("The screen needs %1 bytes of %2; the chip has %3.")
                        .arg(needed)
                        .arg(memory)
                        .arg(budget));
    else if (share >= context.setting(ProjectChecks::MemoryShare, UsualShare))
        context.add(ERule::Memory, ESeverity::Warning, nullptr,
                    CRuleContext::tr("The screen needs %1 % of %2: %3 of %4 bytes.")
                        .arg(QLocale().toString(share, 'f', 0))
                        .arg(memory)
                        .arg(needed)
                        .arg(budget));
}

} // namespace

void checkChip(CRuleContext &context, const SScreenExport &render)
{
    const QString platform = context.project.platform();
    checkMemory(context, QStringLiteral("RAM_DL"), render.ramDl,
                CPlatformTable::ramDlBudget(platform));
    checkMemory(context, QStringLiteral("RAM_G"), render.ramG,
                CPlatformTable::ramGBudget(platform));

    if (render.errors.isEmpty())
        return;
    const QHash<QString, const CItemModel *> items = itemsByLabel(*context.screen);
    QSet<const CItemModel *> toldByChip;
    for (const QString &message : render.chipFindings) {
        const CItemModel *item = itemOf(message, items);
        context.add(ERule::ChipValue, ESeverity::Error, item, message);
        toldByChip.insert(item);
    }
    for (const QString &message : render.errors) {
        const CItemModel *item = itemOf(message, items);
        const QString file = item ? ConvertedImages::fileOf(*item) : QString();
        const bool isTold = render.chipFindings.contains(message) ||
                            (item && toldByChip.contains(item)) ||
                            message.contains(QLatin1String("RAM_G is full")) ||
                            message.contains(QLatin1String("RAM_DL is full")) ||
                            (!file.isEmpty() && !QFileInfo(file).isFile());
        if (!isTold)
            context.add(isAboutCharacters(message, item) ? ERule::MissingGlyph : ERule::RenderError,
                        ESeverity::Error, item, message);
    }
}
