#include "CPackageBuilder.h"

#include "CAssetAddresses.h"
#include "CItemWords.h"
#include "CProjectModel.h"
#include "Identifiers.h"
#include "PackageBlob.h"
#include "PackageCode.h"
#include "PackageFiles.h"
#include "PackageManifest.h"
#include "PackagePaths.h"
#include "PlatformFilter.h"
#include "PropertyKey.h"
#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"
#include "executor/ChipLimits.h"

#include <QDir>
#include <QFileInfo>
#include <QTransform>

#include <algorithm>
#include <optional>

using namespace kivemu;

namespace {

QStringList findingsInPackage(const QStringList &errors, const QString &folder)
{
    QStringList findings = errors;
    if (!folder.isEmpty())
        findings.replaceInStrings(QDir(folder).absolutePath() + QLatin1Char('/'), QString());
    return findings;
}

std::array<QPointF, 4> outlineOf(const SExportedItem &item)
{
    const QPointF middle = item.bounds.center();
    QTransform turn;
    turn.translate(middle.x(), middle.y()).rotate(item.turn).translate(-middle.x(), -middle.y());
    return {turn.map(item.bounds.topLeft()), turn.map(item.bounds.topRight()),
            turn.map(item.bounds.bottomRight()), turn.map(item.bounds.bottomLeft())};
}

SPackageItem packageItem(const SExportedItem &item)
{
    SPackageItem result;
    result.name = item.name;
    result.type = item.type;
    result.id = item.id;
    result.tag = item.tag;
    result.group = item.group;
    result.bounds = item.bounds;
    result.turn = item.turn;
    result.outline = outlineOf(item);
    return result;
}

} // namespace

SPackageSource packageSource(const CProjectModel &project)
{
    SPackageSource source;
    source.project = project.propertyText(PropertyKey::Name);
    if (source.project.isEmpty()) // the editor gives only this one
        source.project = project.propertyText(PropertyKey::ProjectName);
    source.platform = project.platform();
    source.chipCode = chipCodeOfPlatform(source.platform);
    source.folder = project.workingDirectory();
    source.frame = project.resolution();
    return source;
}

QString writePackageFiles(const QString &folder, const SPackage &package)
{
    return writeTogether(folder, {{QStringLiteral("panel.bin"), package.bin},
                                  {QStringLiteral("panel.h"), package.header},
                                  {QStringLiteral("panel.c"), package.code},
                                  {QStringLiteral("manifest.json"), package.manifest}});
}

CPackageBuilder::CPackageBuilder(const SPackageSource &source) : m_folder(source.folder)
{
    const SChipLimits chip = chipLimits(source.chipCode);
    const int largest = static_cast<int>(chip.maxSide);
    m_content.project = source.project;
    m_content.platform = source.platform;
    m_content.chipCode = source.chipCode;
    m_content.ramGBudget = static_cast<uint32_t>(chip.ramG);
    m_content.ramDlBudget = static_cast<uint32_t>(chip.ramDl);
    m_content.frame = source.frame.boundedTo(QSize(largest, largest));
    if (source.frame.isEmpty())
        m_problems.append(tr("A screen without width or height cannot be packed."));
}

bool CPackageBuilder::finish()
{
    if (m_content.screens.isEmpty() && m_problems.isEmpty())
        m_problems.append(tr("The project has no screen to pack."));
    if (!m_problems.isEmpty())
        return false;
    mergeFonts(m_content, m_placed);
    nameAll();
    plan();
    if (!m_problems.isEmpty())
        return false;
    m_package.bin = packageBlob(m_content);
    m_package.header = packageHeader(m_content);
    m_package.code = packageCode(m_content, m_package.bin);
    m_package.manifest = packageManifest(m_content, m_package.bin);
    return true;
}

/// What does not fit was left out of the picture, so it would be missing on the device too.
bool CPackageBuilder::checkMemory(const SScreenExport &screen)
{
    const int before = m_problems.size();
    const auto check = [&](const QString &memory, size_t needed, uint32_t budget) {
        const QStringList told = screen.errors.filter(memory + QLatin1String(" is full"));
        if (needed <= budget && told.isEmpty())
            return;
        const QString problem = tr("Screen \"%1\" does not fit into the chip.").arg(screen.name);
        const QString sizes =
            tr("It needs %1 bytes of %2, the chip has %3.").arg(needed).arg(memory).arg(budget);
        m_problems.append(problem + QLatin1Char(' ') + (told.isEmpty() ? sizes : told.last()));
    };
    if (!screen.memory.isKnown)
        m_problems.append(
            tr("Screen \"%1\": the emulator does not tell what lies in RAM_G.").arg(screen.name));
    check(QStringLiteral("RAM_G"), screen.ramG, m_content.ramGBudget);
    check(QStringLiteral("RAM_DL"), screen.ramDl, m_content.ramDlBudget);
    return m_problems.size() == before;
}

void CPackageBuilder::add(const SScreenExport &screen)
{
    if (!checkMemory(screen))
        return; // there is no package, and its lists show what did not fit
    SPackageScreen result;
    result.name = screen.name;
    result.words = fromBytes(reinterpret_cast<const uint8_t *>(screen.bytes.constData()),
                             static_cast<size_t>(screen.bytes.size()));
    result.ramGBefore = static_cast<uint32_t>(screen.memory.bytes.size());
    result.findings = findingsInPackage(screen.errors, m_folder);
    for (const SExportedItem &item : screen.items)
        result.items.append(packageItem(item));

    takeAssets(screen, result);
    m_content.screens.append(result);
}

/// Finds the assets that the screen's list draws.
void CPackageBuilder::takeAssets(const SScreenExport &screen, SPackageScreen &result)
{
    CItemWords itemWords(result.items);
    CAssetAddresses addresses;
    QList<SPlacedAsset> placed;
    const auto indexAt = [&](uint32_t address) -> std::optional<size_t> {
        for (const SPlacedAsset &each : qAsConst(placed))
            if (each.asset.address == address)
                return each.index;
        for (const SGraphicsMemory::SAsset &asset : screen.memory.assets) {
            if (asset.address != address)
                continue;
            placed.append({asset, assetIndex(screen.memory, asset)});
            return placed.last().index;
        }
        return std::nullopt;
    };
    walkCommands(
        result.words.data(), result.words.size(), [&](const SCommand &command, size_t header) {
            itemWords.takeCommand(command, result.words.data(), header);
            addresses.takeCommand(command, result.words.data(), header);
            if (const auto named = addresses.named(); named && !indexAt(*named))
                m_problems.append(tr("Screen \"%1\" draws from address %2, where nothing lies.")
                                      .arg(screen.name)
                                      .arg(*named));
            if (const auto drawn = addresses.drawn())
                if (const auto index = indexAt(*drawn))
                    itemWords.takeAsset(*index);
        });
    for (const SPlacedAsset &each : qAsConst(placed))
        result.assets.push_back(each.index);
    std::sort(result.assets.begin(), result.assets.end());
    result.assets.erase(std::unique(result.assets.begin(), result.assets.end()),
                        result.assets.end());
    m_placed.append(placed);
}

/// The asset of the same content; a new one when there is none.
size_t CPackageBuilder::assetIndex(const SGraphicsMemory &memory,
                                   const SGraphicsMemory::SAsset &asset)
{
    const auto piece = [&](uint32_t address, uint32_t bytes) {
        return memory.bytes.mid(static_cast<int>(address), static_cast<int>(bytes));
    };
    SPackageAsset candidate;
    candidate.format = asset.format;
    candidate.width = asset.width;
    candidate.height = asset.height;
    candidate.stride = asset.stride;
    candidate.texelBytes = asset.bytes;
    candidate.paletteBytes = asset.paletteBytes;
    candidate.bytes = piece(asset.address, asset.bytes);
    if (asset.paletteBytes > 0) {
        candidate.paletteOffset = CRamGPlan::aligned(asset.bytes);
        const int gap = static_cast<int>(candidate.paletteOffset - asset.bytes);
        candidate.bytes += QByteArray(gap, '\0');
        candidate.bytes += piece(asset.paletteAddress, asset.paletteBytes);
    }
    const auto isSame = [&](const SPackageAsset &other) {
        return other.format == candidate.format && other.width == candidate.width &&
               other.height == candidate.height && other.stride == candidate.stride &&
               other.paletteBytes == candidate.paletteBytes && other.bytes == candidate.bytes;
    };
    auto known = std::find_if(m_content.assets.begin(), m_content.assets.end(), isSame);
    if (known == m_content.assets.end())
        known = m_content.assets.insert(known, candidate);
    const QString file = fileInPackage(asset.file, m_folder);
    if (!known->files.contains(file))
        known->files.append(file);
    return static_cast<size_t>(known - m_content.assets.begin());
}

void CPackageBuilder::nameAll()
{
    QStringList screens;
    for (const SPackageScreen &screen : m_content.screens)
        screens.append(screen.name);
    screens =
        Identifiers::unique(QStringLiteral("PANEL_SCREEN_"), screens, QStringLiteral("UNNAMED"));

    QStringList items;
    for (int i = 0; i < m_content.screens.size(); ++i) {
        m_content.screens[i].identifier = screens[i];
        const QString screen = screens[i].mid(QStringLiteral("PANEL_SCREEN_").size());
        for (const SPackageItem &item : m_content.screens[i].items)
            items.append(
                screen + QLatin1Char(' ') +
                (item.name.isEmpty() ? item.type + QLatin1Char(' ') + item.id : item.name));
    }
    items = Identifiers::unique(QStringLiteral("PANEL_ITEM_"), items, QStringLiteral("UNNAMED"));
    for (SPackageScreen &screen : m_content.screens)
        for (SPackageItem &item : screen.items)
            item.identifier = items.takeFirst();

    QStringList assets;
    for (const SPackageAsset &asset : m_content.assets)
        assets.append(QFileInfo(asset.files[0]).completeBaseName());
    assets = Identifiers::unique(QStringLiteral("PANEL_ASSET_"), assets, QStringLiteral("UNNAMED"));
    for (SPackageAsset &asset : m_content.assets)
        asset.identifier = assets.takeFirst();
}

void CPackageBuilder::plan()
{
    std::vector<uint32_t> assetBytes;
    for (const SPackageAsset &asset : m_content.assets)
        assetBytes.push_back(static_cast<uint32_t>(asset.bytes.size()));
    std::vector<std::vector<size_t>> screens;
    for (const SPackageScreen &screen : m_content.screens)
        screens.push_back(screen.assets);
    m_content.plan = std::make_shared<CRamGPlan>(assetBytes, screens, m_content.ramGBudget);
    const size_t blocks = m_content.plan->blocks().size();
    if (blocks > CRamGPlan::MaxBlocks)
        m_problems.append(tr("The plan of RAM_G has %1 blocks; a package can hold %2.")
                              .arg(blocks)
                              .arg(CRamGPlan::MaxBlocks));
    for (size_t screen = 0; screen < screens.size(); ++screen)
        relocate(screen);
}

void CPackageBuilder::relocate(size_t screen)
{
    const QList<SPlacedAsset> &placed = m_placed[static_cast<int>(screen)];
    std::vector<uint32_t> &words = m_content.screens[static_cast<int>(screen)].words;
    const auto indexAt = [&](uint32_t address) {
        return std::find_if(placed.begin(), placed.end(),
                            [&](const SPlacedAsset &each) { return each.asset.address == address; })
            ->index;
    };
    std::optional<size_t> bitmap; // its palette is set after the source
    replaceAddresses(words.data(), words.size(), [&](EOpcode command, uint32_t address) {
        if (command == EOpcode::Font)
            return m_content.plan->address(screen, indexAt(address));
        if (command == EOpcode::BitmapSource)
            bitmap = indexAt(address);
        if (!bitmap)
            return address;
        const uint32_t planned = m_content.plan->address(screen, *bitmap);
        if (command == EOpcode::BitmapSource)
            return planned;
        const uint32_t palette = m_content.assets[static_cast<int>(*bitmap)].paletteOffset;
        return palette > 0 ? planned + palette : 0; // a format without one does not look at it
    });
}
