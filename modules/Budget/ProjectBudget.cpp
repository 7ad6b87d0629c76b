#include "ProjectBudget.h"

#include "CAssetAddresses.h"
#include "CItemModel.h"
#include "CPlatformTable.h"
#include "CProjectModel.h"
#include "ConvertedImages.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"
#include "executor/BitmapFormats.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <numeric>

using namespace kivemu;

namespace {

size_t total(size_t sum, const SAssetUse &asset)
{
    return sum + asset.bytes;
}

/// Stable, so that the same project always gives the same order.
void sortBySize(QVector<SAssetUse> &assets)
{
    std::stable_sort(assets.begin(), assets.end(),
                     [](const SAssetUse &a, const SAssetUse &b) { return a.bytes > b.bytes; });
}

void addItem(SAssetUse &asset, const CItemModel *item)
{
    if (item && !asset.items.contains(item))
        asset.items.append(item);
}

/// Walks a screen's list and counts for each item what it draws, and with which assets.
class CUses
{
public:
    CUses(const CItemModel &screen, SScreenBudget &budget) : m_budget(budget)
    {
        forEachItem(screen, [this](const CItemModel &item) {
            if (item.kind() == CItemModel::Kind::Widget && item.id() != 0 &&
                !m_items.contains(item.id())) // of several with one id the first stands for all
                m_items.insert(item.id(), &item);
        });
    }

    void walk(const QByteArray &list, const QHash<uint32_t, int> &assets)
    {
        const std::vector<uint32_t> words = fromBytes(
            reinterpret_cast<const uint8_t *>(list.constData()), static_cast<size_t>(list.size()));
        CAssetAddresses addresses;
        const CItemModel *item = nullptr;
        walkCommands(words.data(), words.size(), [&](const SCommand &command, size_t header) {
            if (command.opcode == EOpcode::Item)
                item = m_items.value(words[header + 1]);
            if (item)
                m_bytes[item] += 4 * (1 + command.operandWords());
            addresses.takeCommand(command, words.data(), header);
            if (const auto drawn = addresses.drawn(); drawn && assets.contains(*drawn))
                addItem(m_budget.assets[assets.value(*drawn)], item);
        });
    }

    QVector<SItemUse> items(const CItemModel &screen) const
    {
        QVector<SItemUse> uses;
        forEachItem(screen, [&](const CItemModel &item) {
            if (m_bytes.contains(&item))
                uses.append({&item, m_bytes.value(&item)});
        });
        std::stable_sort(uses.begin(), uses.end(), [](const SItemUse &a, const SItemUse &b) {
            return a.displayListBytes > b.displayListBytes;
        });
        return uses;
    }

private:
    SScreenBudget &m_budget;
    QHash<quint32, const CItemModel *> m_items;
    QHash<const CItemModel *, size_t> m_bytes;
};

/// Images that did not fit any more lie nowhere; what they would take is known all the same.
void addLeftOut(const CItemModel &screen, SScreenBudget &budget)
{
    QHash<QString, int> known;
    for (int i = 0; i < budget.assets.size(); ++i)
        known.insert(QDir::cleanPath(budget.assets[i].file), i);
    const int loaded = budget.assets.size();
    forEachItem(screen, [&](const CItemModel &item) {
        const QString file = ConvertedImages::fileOf(item);
        const QSize size(item.propertyValue(PropertyKey::BitmapWidth).toInt(),
                         item.propertyValue(PropertyKey::BitmapHeight).toInt());
        const int format = bitmapFormatCode(item.propertyText(PropertyKey::Format).toStdString());
        if (file.isEmpty() || size.isEmpty() || format < 0 || !QFileInfo(file).isFile())
            return;
        const int index = known.value(file, -1);
        if (index >= 0 && index < loaded)
            return;
        if (index >= 0) {
            addItem(budget.assets[index], &item);
            return;
        }
        const auto code = static_cast<uint32_t>(format);
        known.insert(file, budget.assets.size());
        budget.assets.append(
            {file,
             code,
             size,
             size_t{bitmapSize(code, size.width(), size.height())} + paletteSize(code),
             {&item}});
    });
}

} // namespace

namespace ProjectBudget {

SScreenBudget ofScreen(const CItemModel &screen, const SScreenExport &render)
{
    SScreenBudget budget;
    budget.screen = &screen;
    const QString platform = screen.project() ? screen.project()->platform() : QString();
    budget.ramG = {render.ramG, CPlatformTable::ramGBudget(platform)};
    budget.ramDl = {render.ramDl, CPlatformTable::ramDlBudget(platform)};
    QHash<uint32_t, int> byAddress;
    for (const SGraphicsMemory::SAsset &asset : render.memory.assets) {
        byAddress.insert(asset.address, budget.assets.size());
        SAssetUse use;
        use.file = asset.file;
        use.format = asset.format;
        use.pixels = QSize(static_cast<int>(asset.width), static_cast<int>(asset.height));
        use.bytes = size_t{asset.bytes} + asset.paletteBytes;
        budget.assets.append(use);
    }
    CUses uses(screen, budget);
    uses.walk(render.bytes, byAddress);
    budget.items = uses.items(screen);
    if (budget.ramG.used > budget.ramG.budget)
        addLeftOut(screen, budget);
    const size_t inAssets =
        std::accumulate(budget.assets.begin(), budget.assets.end(), size_t{0}, total);
    size_t inItems = 0;
    for (const SItemUse &use : qAsConst(budget.items))
        inItems += use.displayListBytes;
    budget.ramGRest = budget.ramG.used - std::min(budget.ramG.used, inAssets);
    budget.ramDlRest = budget.ramDl.used - std::min(budget.ramDl.used, inItems);
    sortBySize(budget.assets);
    return budget;
}

SProjectBudget ofProject(const QVector<SScreenBudget> &screens)
{
    SProjectBudget project;
    project.screens = screens;
    QHash<QString, int> known;
    for (const SScreenBudget &screen : screens)
        for (const SAssetUse &use : screen.assets) {
            const QString key = QStringLiteral("%1/%2").arg(use.format).arg(use.file);
            const auto found = known.constFind(key);
            if (found == known.constEnd()) {
                known.insert(key, project.assets.size());
                project.assets.append(use);
                continue;
            }
            SAssetUse &asset = project.assets[*found];
            asset.bytes = std::max(asset.bytes, use.bytes); // a font has the glyphs of a screen
            for (const CItemModel *item : use.items)
                addItem(asset, item);
        }
    sortBySize(project.assets);
    return project;
}

} // namespace ProjectBudget
