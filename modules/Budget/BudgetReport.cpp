#include "BudgetReport.h"

#include "CItemModel.h"
#include "PackagePaths.h"

#include <QJsonArray>

namespace {

QJsonObject toJson(const SAssetUse &asset, const QString &folder)
{
    QJsonArray items;
    for (const CItemModel *item : asset.items)
        items.append(item->idString());
    return {{QStringLiteral("file"), fileInPackage(asset.file, folder)},
            {QStringLiteral("format"), formatInPackage(asset.format)},
            {QStringLiteral("width"), asset.pixels.width()},
            {QStringLiteral("height"), asset.pixels.height()},
            {QStringLiteral("bytes"), qint64(asset.bytes)},
            {QStringLiteral("items"), items}};
}

QJsonArray toJson(const QVector<SAssetUse> &assets, const QString &folder)
{
    QJsonArray array;
    for (const SAssetUse &asset : assets)
        array.append(toJson(asset, folder));
    return array;
}

QJsonObject toJson(const SScreenBudget &screen, const QString &folder)
{
    QJsonArray items;
    for (const SItemUse &use : screen.items)
        items.append(QJsonObject{{QStringLiteral("type"), use.item->itemTypeName()},
                                 {QStringLiteral("id"), use.item->idString()},
                                 {QStringLiteral("name"), use.item->name()},
                                 {QStringLiteral("ram_dl_bytes"), qint64(use.displayListBytes)}});
    return {{QStringLiteral("name"), screen.screen->name()},
            {QStringLiteral("ram_g_bytes"), qint64(screen.ramG.used)},
            {QStringLiteral("ram_g_budget"), qint64(screen.ramG.budget)},
            {QStringLiteral("ram_g_rest"), qint64(screen.ramGRest)},
            {QStringLiteral("ram_dl_bytes"), qint64(screen.ramDl.used)},
            {QStringLiteral("ram_dl_budget"), qint64(screen.ramDl.budget)},
            {QStringLiteral("ram_dl_rest"), qint64(screen.ramDlRest)},
            {QStringLiteral("assets"), toJson(screen.assets, folder)},
            {QStringLiteral("items"), items}};
}

QString useText(const char *memory, const SMemoryUse &use)
{
    const double share = use.budget > 0 ? 100.0 * double(use.used) / double(use.budget) : 0;
    return QStringLiteral("%1 %2 of %3 bytes, %4 %")
        .arg(QLatin1String(memory))
        .arg(use.used)
        .arg(use.budget)
        .arg(share, 0, 'f', 1);
}

} // namespace

namespace BudgetReport {

QJsonObject toJson(const SProjectBudget &budget, const QString &folder)
{
    QJsonArray screens;
    for (const SScreenBudget &screen : budget.screens)
        screens.append(::toJson(screen, folder));
    return {{QStringLiteral("screens"), screens},
            {QStringLiteral("assets"), ::toJson(budget.assets, folder)}};
}

QStringList toLines(const SProjectBudget &budget, const QString &folder)
{
    QStringList lines;
    for (const SScreenBudget &screen : budget.screens)
        lines.append(QStringLiteral("screen \"%1\": %2; %3")
                         .arg(screen.screen->name(), useText("RAM_G", screen.ramG),
                              useText("RAM_DL", screen.ramDl)));
    for (const SAssetUse &asset : budget.assets)
        lines.append(QStringLiteral("%1: %2, %3 x %4, %5 bytes, items: %6")
                         .arg(fileInPackage(asset.file, folder), formatInPackage(asset.format))
                         .arg(asset.pixels.width())
                         .arg(asset.pixels.height())
                         .arg(asset.bytes)
                         .arg(asset.items.size()));
    return lines;
}

} // namespace BudgetReport
