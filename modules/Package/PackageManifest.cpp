#include "PackageManifest.h"

#include "PackageBlob.h"
#include "PackagePaths.h"
#include "SPackageContent.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace {

constexpr int ManifestVersion = 2;

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

QJsonValue number(uint64_t value)
{
    return QJsonValue(static_cast<qint64>(value));
}

QString sha256(const QByteArray &bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

QJsonObject itemObject(const SPackageContent &content, const SPackageItem &item, int index)
{
    QJsonArray words;
    for (const SPackageItem::SWords &piece : item.words)
        words.append(
            QJsonObject{{key("first"), number(piece.first)}, {key("count"), number(piece.count)}});
    QJsonArray assets;
    for (const size_t asset : item.assets)
        assets.append(content.assets[static_cast<int>(asset)].identifier);
    QJsonObject object{{key("name"), item.name},
                       {key("identifier"), item.identifier},
                       {key("index"), index},
                       {key("kind"), item.type},
                       {key("id"), item.id},
                       {key("x"), item.bounds.x()},
                       {key("y"), item.bounds.y()},
                       {key("width"), item.bounds.width()},
                       {key("height"), item.bounds.height()},
                       {key("angle"), item.turn},
                       {key("words"), words},
                       {key("assets"), assets}};
    if (!item.group.isEmpty())
        object.insert(key("group"), item.group);
    return object;
}

/// What lies before a screen in the package.
struct SOffsets
{
    int items = 0;
    size_t listBytes = 0;
};

QJsonObject screenObject(const SPackageContent &content, int index, const SOffsets &before)
{
    const SPackageScreen &screen = content.screens[index];
    const CRamGPlan &plan = *content.plan;
    const auto row = static_cast<size_t>(index);
    QJsonArray items;
    for (const SPackageItem &item : screen.items)
        items.append(itemObject(content, item, before.items + items.size()));
    QJsonArray loads;
    for (const size_t block : plan.loads()[row])
        loads.append(number(block));
    uint64_t needed = 0;
    for (const size_t asset : screen.assets) {
        const int size = content.assets[static_cast<int>(asset)].bytes.size();
        needed += (static_cast<uint64_t>(size) + 3) / 4 * 4;
    }
    return {{key("name"), screen.name},
            {key("identifier"), screen.identifier},
            {key("index"), index},
            {key("ram_dl_offset_in_lists"), number(before.listBytes)},
            {key("ram_dl_bytes"), number(screen.words.size() * 4)},
            {key("ram_dl_budget"), number(content.ramDlBudget)},
            {key("ram_g_bytes"), number(needed)},
            {key("ram_g_budget"), number(content.ramGBudget)},
            {key("loads"), loads},
            {key("bytes_loaded_first"), number(plan.bytesOfFirst(row))},
            {key("bytes_loaded_before"), number(screen.ramGBefore)},
            {key("items"), items},
            {key("findings"), QJsonArray::fromStringList(screen.findings)}};
}

/// Where an asset lies and who shows it.
struct SAssetUses
{
    std::optional<uint32_t> dataOffset;
    QJsonArray addresses;
    QJsonArray screens;
    QJsonArray items;
};

std::vector<SAssetUses> usesOfAssets(const SPackageContent &content)
{
    std::vector<SAssetUses> uses(static_cast<size_t>(content.assets.size()));
    const CRamGPlan &plan = *content.plan;
    uint32_t start = 0;
    for (const CRamGPlan::SGroup &group : plan.groups()) {
        for (size_t i = 0; i < group.assets.size(); ++i)
            if (std::optional<uint32_t> &offset = uses[group.assets[i]].dataOffset; !offset)
                offset = start + group.offsets[i];
        start += group.bytes;
    }
    for (const CRamGPlan::SBlock &block : plan.blocks()) {
        const CRamGPlan::SGroup &group = plan.groups()[block.group];
        for (size_t i = 0; i < group.assets.size(); ++i)
            uses[group.assets[i]].addresses.append(number(block.address + group.offsets[i]));
    }
    for (const SPackageScreen &screen : content.screens) {
        for (const size_t asset : screen.assets)
            uses[asset].screens.append(screen.identifier);
        for (const SPackageItem &item : screen.items)
            for (const size_t asset : item.assets)
                uses[asset].items.append(item.identifier);
    }
    return uses;
}

QJsonObject assetObject(const SPackageAsset &asset, const SAssetUses &uses)
{
    return {{key("identifier"), asset.identifier},
            {key("files"), QJsonArray::fromStringList(asset.files)},
            {key("format"), formatInPackage(asset.format)},
            {key("format_code"), number(asset.format)},
            {key("width"), number(asset.width)},
            {key("height"), number(asset.height)},
            {key("stride"), number(asset.stride)},
            {key("bytes"), number(static_cast<uint64_t>(asset.bytes.size()))},
            {key("palette_offset"), number(asset.paletteOffset)},
            {key("palette_bytes"), number(asset.paletteBytes)},
            {key("addresses"), uses.addresses},
            {key("data_offset"), number(uses.dataOffset.value_or(0))},
            {key("sha256"), sha256(asset.bytes)},
            {key("screens"), uses.screens},
            {key("items"), uses.items}};
}

QJsonArray assetArray(const SPackageContent &content)
{
    const std::vector<SAssetUses> uses = usesOfAssets(content);
    QJsonArray assets;
    for (int i = 0; i < content.assets.size(); ++i)
        assets.append(assetObject(content.assets[i], uses[static_cast<size_t>(i)]));
    return assets;
}

/// Means over all changes from one screen to another, rounded down.
QJsonObject planObject(const SPackageContent &content)
{
    const CRamGPlan &plan = *content.plan;
    const auto count = static_cast<size_t>(content.screens.size());
    uint64_t before = 0;
    for (const SPackageScreen &screen : content.screens)
        before += screen.ramGBefore * (count - 1);
    const uint64_t changes = std::max<uint64_t>(1, uint64_t{count} * (count - 1));
    QJsonArray blocks;
    uint64_t used = 0;
    for (const CRamGPlan::SBlock &block : plan.blocks()) {
        blocks.append(QJsonObject{{key("address"), number(block.address)},
                                  {key("bytes"), number(block.bytes)}});
        used = std::max<uint64_t>(used, uint64_t{block.address} + block.bytes);
    }
    return {{key("fits_as_a_whole"), plan.fitsAsAWhole()},
            {key("ram_g_budget"), number(content.ramGBudget)},
            {key("ram_g_bytes"), number(used)},
            {key("blocks"), blocks},
            {key("bytes_per_change_before"), number(before / changes)},
            {key("bytes_per_change_after"), number(plan.bytesOfAllChanges() / changes)}};
}

} // namespace

QByteArray packageManifest(const SPackageContent &content, const QByteArray &blob)
{
    QJsonArray screens;
    SOffsets before;
    for (int i = 0; i < content.screens.size(); ++i) {
        screens.append(screenObject(content, i, before));
        before.items += content.screens[i].items.size();
        before.listBytes += content.screens[i].words.size() * 4;
    }
    const QJsonObject madeBy{{key("program"), key("KIV Panel Composer")},
                             {key("version"), key(KIV_VERSION)},
                             {key("package_format"), number(PackageFormatVersion)}};
    const QJsonObject file{{key("bytes"), blob.size()},
                           {key("crc32"), key("%1").arg(crc32(blob, 8), 8, 16, QLatin1Char('0'))},
                           {key("sha256"), sha256(blob)}};
    return QJsonDocument(QJsonObject{{key("manifest_version"), ManifestVersion},
                                     {key("made_by"), madeBy},
                                     {key("project"), content.project},
                                     {key("platform"), content.platform},
                                     {key("chip_code"), number(content.chipCode)},
                                     {key("width"), content.frame.width()},
                                     {key("height"), content.frame.height()},
                                     {key("blob"), file},
                                     {key("ram_g_plan"), planObject(content)},
                                     {key("screens"), screens},
                                     {key("assets"), assetArray(content)}})
        .toJson();
}
