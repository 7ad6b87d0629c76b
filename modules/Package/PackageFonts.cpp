#include "PackageFonts.h"

#include "CAssetAddresses.h"
#include "CFontMerge.h"
#include "QxKivEmuLib.h"
#include "SPackageContent.h"
#include "displaylist/CommandTable.h"

#include <algorithm>

using namespace kivemu;

namespace {

bool isFont(const SPackageAsset &asset)
{
    return asset.format == EMU_ASSET_FONT;
}

const SPlacedAsset *assetAt(const QList<SPlacedAsset> &placed, uint32_t address)
{
    const auto found = std::find_if(placed.begin(), placed.end(), [&](const SPlacedAsset &each) {
        return each.asset.address == address;
    });
    return found == placed.end() ? nullptr : &*found;
}

/// One merge: which of the package's assets are fonts, and what becomes of them.
class CMerging
{
public:
    CMerging(SPackageContent &content, QList<QList<SPlacedAsset>> &placed);
    bool hasFonts() const { return !m_blocks.isEmpty(); }
    void run();

private:
    std::vector<CFontMerge::SUse> uses() const;
    std::vector<uint32_t> otherBytes() const;
    void replaceAssets(const CFontMerge &merge);
    void rewriteGlyphs(const CFontMerge &merge, int screen);

    SPackageContent &m_content;
    QList<QList<SPlacedAsset>> &m_placed;
    QList<QByteArray> m_blocks;
    std::vector<size_t> m_blockOf; ///< of each asset that is a font, by its index
};

CMerging::CMerging(SPackageContent &content, QList<QList<SPlacedAsset>> &placed)
    : m_content(content), m_placed(placed)
{
    for (const SPackageAsset &asset : content.assets) {
        m_blockOf.push_back(static_cast<size_t>(m_blocks.size()));
        if (isFont(asset))
            m_blocks.append(asset.bytes);
    }
}

void CMerging::run()
{
    const CFontMerge merge(m_blocks, uses(), otherBytes(), m_content.ramGBudget);
    for (int screen = 0; screen < m_content.screens.size(); ++screen)
        rewriteGlyphs(merge, screen);
    replaceAssets(merge);
}

std::vector<CFontMerge::SUse> CMerging::uses() const
{
    std::vector<CFontMerge::SUse> uses;
    for (int screen = 0; screen < m_content.screens.size(); ++screen) {
        const std::vector<uint32_t> &words = m_content.screens[screen].words;
        walkCommands(words.data(), words.size(), [&](const SCommand &command, size_t header) {
            if (command.opcode != EOpcode::Font)
                return;
            const SPlacedAsset *placed = assetAt(m_placed[screen], words[header + 1]);
            if (!placed || !isFont(m_content.assets[static_cast<int>(placed->index)]))
                return;
            // Everywhere in the project a handle means the same font.
            const QString font = QStringLiteral("%1 %2 %3")
                                     .arg(words[header] & HeaderOperandMask)
                                     .arg(placed->asset.stride)
                                     .arg(placed->asset.file);
            uses.push_back({static_cast<size_t>(screen), m_blockOf[placed->index], font});
        });
    }
    return uses;
}

std::vector<uint32_t> CMerging::otherBytes() const
{
    std::vector<uint32_t> bytes;
    for (const SPackageScreen &screen : m_content.screens) {
        bytes.push_back(0);
        for (const size_t index : screen.assets) {
            const SPackageAsset &asset = m_content.assets[static_cast<int>(index)];
            if (!isFont(asset))
                bytes.back() += CRamGPlan::aligned(static_cast<uint32_t>(asset.bytes.size()));
        }
    }
    return bytes;
}

void CMerging::rewriteGlyphs(const CFontMerge &merge, int screen)
{
    std::vector<uint32_t> &words = m_content.screens[screen].words;
    CAssetAddresses addresses;
    walkCommands(words.data(), words.size(), [&](const SCommand &command, size_t header) {
        addresses.takeCommand(command, words.data(), header);
        if (command.opcode != EOpcode::Glyph || !addresses.drawn())
            return;
        const SPlacedAsset *placed = assetAt(m_placed[screen], *addresses.drawn());
        if (!placed || !isFont(m_content.assets[static_cast<int>(placed->index)]))
            return;
        constexpr uint32_t NumberMask = 0xFFFF;
        uint32_t &word = words[header];
        word = (word & ~NumberMask) |
               merge.numberOf(m_blockOf[placed->index], static_cast<uint16_t>(word & NumberMask));
    });
}

/// Fonts come behind the other assets.
void CMerging::replaceAssets(const CFontMerge &merge)
{
    QList<SPackageAsset> assets;
    std::vector<size_t> indexOf(m_blockOf.size());
    for (size_t old = 0; old < indexOf.size(); ++old) {
        const SPackageAsset &asset = m_content.assets[static_cast<int>(old)];
        indexOf[old] = static_cast<size_t>(assets.size());
        if (!isFont(asset))
            assets.append(asset);
    }
    const auto firstFont = static_cast<size_t>(assets.size());
    for (const QByteArray &block : merge.blocks()) {
        SPackageAsset asset;
        asset.bytes = block;
        assets.append(asset);
    }
    for (size_t old = 0; old < indexOf.size(); ++old) {
        SPackageAsset part = m_content.assets[static_cast<int>(old)];
        if (!isFont(part))
            continue;
        indexOf[old] = firstFont + merge.blockOf(m_blockOf[old]);
        SPackageAsset &font = assets[static_cast<int>(indexOf[old])];
        part.files = font.files + part.files;
        part.files.removeDuplicates();
        part.bytes = font.bytes;
        part.texelBytes = static_cast<uint32_t>(font.bytes.size());
        std::string fault;
        if (const auto block =
                CFontBlock::find(reinterpret_cast<const uint8_t *>(font.bytes.constData()),
                                 part.texelBytes, 0, fault))
            part.width = block->glyphCount();
        font = part;
    }
    m_content.assets = assets;

    const auto replace = [&](auto &indexes) {
        for (size_t &index : indexes)
            index = indexOf[index];
        std::sort(indexes.begin(), indexes.end());
        indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    };
    for (SPackageScreen &screen : m_content.screens) {
        replace(screen.assets);
        for (SPackageItem &item : screen.items)
            replace(item.assets);
    }
    for (QList<SPlacedAsset> &placed : m_placed)
        for (SPlacedAsset &each : placed)
            each.index = indexOf[each.index];
}

} // namespace

void mergeFonts(SPackageContent &content, QList<QList<SPlacedAsset>> &placed)
{
    CMerging merging(content, placed);
    if (merging.hasFonts())
        merging.run();
}
