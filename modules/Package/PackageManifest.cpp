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

constexpr int ManifestVersion = 1;

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

QJsonObject screenObject(const SPackageContent &content, int index, int firstItem)
{
    const SPackageScreen &screen = content.screens[index];
    const CRamGPlan &plan = *content.plan;
    const auto row = static_cast<size_t>(index);
    QJsonArray items;
    for (const SPackageItem &item : screen.items)
        items.append(itemObject(content, item, firstItem++));
    QJsonArray loads;
    for (const size_t block : plan.loads()[row])
        loads.append(number(block));
    uint64_t needed = 0;
    for (const size_t asset : screen.assets) {
        const int size = content.assets[static_cast<int>(asset)].bytes.size();
        needed += (static_cast<uint64_t>(size) + 3) / 4 * 4;
    }
    QJsonArray changes;
    for (int from = 0; from < content.screens.size(); ++from)
        changes.append(
            number(from == index ? 0 : plan.bytesOfChange(static_cast<size_t>(from), row)));
    size_t offset = 0;
    for (int before = 0; before < index; ++before)
        offset += content.screens[before].words.size() * 4;
    return {{key("name"), screen.name},
            {key("identifier"), screen.identifier},
            {key("index"), index},
            {key("ram_dl_offset_in_lists"), number(offset)},
            {key("ram_dl_bytes"), number(screen.words.size() * 4)},
            {key("ram_dl_budget"), number(content.ramDlBudget)},
            {key("ram_g_bytes"), number(needed)},
            {key("ram_g_budget"), number(content.ramGBudget)},
            {key("loads"), loads},
            {key("bytes_loaded_first"), number(plan.bytesOfFirst(row))},
            {key("bytes_loaded_before"), number(screen.ramGBefore)},
            {key("bytes_loaded_after"), changes},
            {key("items"), items},
            {key("findings"), QJsonArray::fromStringList(screen.findings)}};
}

QJsonArray usesOf(const SPackageContent &content, size_t asset)
{
    QJsonArray uses;
    for (const SPackageScreen &screen : content.screens)
        for (const SPackageItem &item : screen.items)
            if (item.assets.contains(asset))
                uses.append(item.identifier);
    return uses;
}

QJsonObject assetObject(const SPackageContent &content, int index, uint32_t dataOffset)
{
    const SPackageAsset &asset = content.assets[index];
    const CRamGPlan &plan = *content.plan;
    QJsonArray addresses;
    for (const CRamGPlan::SBlock &block : plan.blocks()) {
        const CRamGPlan::SGroup &group = plan.groups()[block.group];
        const auto found = std::find(group.assets.begin(), group.assets.end(), size_t(index));
        if (found != group.assets.end())
            addresses.append(number(
                block.address + group.offsets[static_cast<size_t>(found - group.assets.begin())]));
    }
    QJsonArray screens;
    for (const SPackageScreen &screen : content.screens)
        if (std::binary_search(screen.assets.begin(), screen.assets.end(), size_t(index)))
            screens.append(screen.identifier);
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
            {key("addresses"), addresses},
            {key("data_offset"), number(dataOffset)},
            {key("sha256"), sha256(asset.bytes)},
            {key("screens"), screens},
            {key("items"), usesOf(content, size_t(index))}};
}

QJsonArray assetArray(const SPackageContent &content)
{
    std::vector<std::optional<uint32_t>> offsets(static_cast<size_t>(content.assets.size()));
    uint32_t start = 0;
    for (const CRamGPlan::SGroup &group : content.plan->groups()) {
        for (size_t i = 0; i < group.assets.size(); ++i)
            if (!offsets[group.assets[i]])
                offsets[group.assets[i]] = start + group.offsets[i];
        start += group.bytes;
    }
    QJsonArray assets;
    for (int i = 0; i < content.assets.size(); ++i)
        assets.append(assetObject(content, i, offsets[static_cast<size_t>(i)].value_or(0)));
    return assets;
}

/// Means over all changes from one screen to another, rounded down.
QJsonObject planObject(const SPackageContent &content)
{
    const CRamGPlan &plan = *content.plan;
    const auto count = static_cast<size_t>(content.screens.size());
    uint64_t before = 0;
    uint64_t after = 0;
    for (size_t to = 0; to < count; ++to) {
        before += content.screens[static_cast<int>(to)].ramGBefore * (count - 1);
        for (size_t from = 0; from < count; ++from)
            after += from == to ? 0 : plan.bytesOfChange(from, to);
    }
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
            {key("bytes_per_change_after"), number(after / changes)}};
}

} // namespace

QByteArray packageManifest(const SPackageContent &content, const QByteArray &blob)
{
    QJsonArray screens;
    int firstItem = 0;
    for (int i = 0; i < content.screens.size(); ++i) {
        screens.append(screenObject(content, i, firstItem));
        firstItem += content.screens[i].items.size();
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
