#include "CBlockPlacer.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

namespace {

using SBlock = CRamGPlan::SBlock;

bool haveCommon(const CBlockPlacer::Screens &a, const CBlockPlacer::Screens &b)
{
    for (auto i = a.begin(), j = b.begin(); i != a.end() && j != b.end();) {
        if (*i == *j)
            return true;
        *i < *j ? ++i : ++j;
    }
    return false;
}

bool contains(const CBlockPlacer::Screens &screens, size_t screen)
{
    return std::binary_search(screens.begin(), screens.end(), screen);
}

bool overlap(const SBlock &block, uint32_t address, uint32_t bytes)
{
    return block.address < address + bytes && address < block.address + block.bytes;
}

} // namespace

CBlockPlacer::CBlockPlacer(const std::vector<SGroup> &groups, size_t screenCount, uint32_t capacity)
    : m_groups(groups), m_screenCount(screenCount), m_capacity(capacity)
{
}

CBlockPlacer::SPlacement CBlockPlacer::best() const
{
    constexpr size_t MostToTry = 200; // groups; what is tried takes the third power of their number
    if (m_groups.size() > MostToTry)
        return place(EOrder::ManyScreensFirst, EFit::Lowest);
    SPlacement best;
    uint64_t least = std::numeric_limits<uint64_t>::max();
    for (const EOrder order : {EOrder::ManyScreensFirst, EOrder::LargeFirst})
        for (const EFit fit : {EFit::FewestReloads, EFit::Lowest}) {
            const SPlacement placement = place(order, fit);
            const uint64_t bytes = bytesLoaded(placement);
            if (bytes >= least)
                continue;
            least = bytes;
            best = placement;
        }
    return best;
}

std::vector<size_t> CBlockPlacer::ordered(EOrder order) const
{
    std::vector<size_t> groups(m_groups.size());
    std::iota(groups.begin(), groups.end(), size_t{0});
    std::stable_sort(groups.begin(), groups.end(), [&](size_t a, size_t b) {
        const std::pair first{m_groups[a].named.size(), size_t{m_groups[a].bytes}};
        const std::pair second{m_groups[b].named.size(), size_t{m_groups[b].bytes}};
        return order == EOrder::ManyScreensFirst
                   ? first > second
                   : std::pair(first.second, first.first) > std::pair(second.second, second.first);
    });
    return groups;
}

/// Each group at one place for all of its screens where there is one; where there is none, each of
/// its screens finds it a gap of its own, or is packed anew.
CBlockPlacer::SPlacement CBlockPlacer::place(EOrder order, EFit fit) const
{
    SPlacement placement;
    placement.loads.resize(m_screenCount);
    std::vector<std::vector<size_t>> missing(m_screenCount);
    for (const size_t group : ordered(order)) {
        uint32_t address = 0;
        if (findCommonPlace(placement, group, fit, address)) {
            const size_t block = blockAt(placement, group, address);
            for (const size_t screen : m_groups[group].named)
                placement.loads[screen].push_back(block);
        } else {
            for (const size_t screen : m_groups[group].users)
                missing[screen].push_back(group);
        }
    }
    for (size_t screen = 0; screen < m_screenCount; ++screen)
        if (!missing[screen].empty() && !fillGaps(placement, screen, missing[screen]))
            packScreen(placement, screen);
    return placement;
}

/// The place for which the fewest bytes would have to be loaded again: what lies there for other
/// screens, and the group itself for each of that. The lowest of equal ones.
bool CBlockPlacer::findCommonPlace(const SPlacement &placement, size_t group, EFit fit,
                                   uint32_t &address) const
{
    const uint32_t bytes = m_groups[group].bytes;
    std::vector<uint32_t> candidates{0};
    std::vector<bool> isNeededTogether;
    for (const SBlock &block : placement.blocks) {
        isNeededTogether.push_back(haveCommon(m_groups[block.group].named, m_groups[group].named));
        candidates.push_back(block.address + block.bytes);
        if (block.address >= bytes)
            candidates.push_back(block.address - bytes);
    }
    std::sort(candidates.begin(), candidates.end());
    candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
    uint64_t best = std::numeric_limits<uint64_t>::max();
    for (const uint32_t candidate : candidates) {
        if (candidate > m_capacity || bytes > m_capacity - candidate)
            break;
        uint64_t cost = 0;
        bool isFree = true;
        for (size_t block = 0; block < placement.blocks.size() && isFree; ++block) {
            if (!overlap(placement.blocks[block], candidate, bytes))
                continue;
            isFree = !isNeededTogether[block];
            cost += uint64_t{placement.blocks[block].bytes} + bytes;
        }
        if (!isFree || cost >= best)
            continue;
        best = cost;
        address = candidate;
        if (fit == EFit::Lowest)
            break;
    }
    return best != std::numeric_limits<uint64_t>::max();
}

/// Places for the missing groups between what the screen loads already, those first that another
/// screen has found. False when one finds none; the screen's loads are then as before.
bool CBlockPlacer::fillGaps(SPlacement &placement, size_t screen,
                            const std::vector<size_t> &missing) const
{
    std::vector<size_t> &loads = placement.loads[screen];
    const std::vector<size_t> before = loads;
    for (const size_t group : missing) {
        const uint32_t bytes = m_groups[group].bytes;
        std::vector<uint32_t> candidates;
        for (const SBlock &block : placement.blocks)
            if (block.group == group)
                candidates.push_back(block.address);
        const size_t known = candidates.size();
        candidates.push_back(0);
        for (const size_t load : loads)
            candidates.push_back(placement.blocks[load].address + placement.blocks[load].bytes);
        std::sort(candidates.begin() + static_cast<std::ptrdiff_t>(known), candidates.end());
        const auto found =
            std::find_if(candidates.begin(), candidates.end(), [&](uint32_t candidate) {
                return candidate <= m_capacity && bytes <= m_capacity - candidate &&
                       std::none_of(loads.begin(), loads.end(), [&](size_t load) {
                           return overlap(placement.blocks[load], candidate, bytes);
                       });
            });
        if (found == candidates.end()) {
            loads = before;
            return false;
        }
        loads.push_back(blockAt(placement, group, *found));
    }
    return true;
}

/// All that the screen needs, without gaps from 0 on, and nothing else. What has a place comes in
/// its order, so that the groups at the bottom of the memory stay where they are.
void CBlockPlacer::packScreen(SPlacement &placement, size_t screen) const
{
    std::vector<std::pair<uint32_t, size_t>> groups; // place, group
    for (size_t group = 0; group < m_groups.size(); ++group) {
        if (!contains(m_groups[group].users, screen))
            continue;
        const auto placed = std::find_if(placement.blocks.begin(), placement.blocks.end(),
                                         [&](const SBlock &block) { return block.group == group; });
        groups.push_back({placed == placement.blocks.end() ? m_capacity : placed->address, group});
    }
    std::sort(groups.begin(), groups.end());
    placement.loads[screen].clear();
    uint32_t address = 0;
    for (const auto &[place, group] : groups) {
        placement.loads[screen].push_back(blockAt(placement, group, address));
        address += m_groups[group].bytes;
    }
}

size_t CBlockPlacer::blockAt(SPlacement &placement, size_t group, uint32_t address) const
{
    const auto known =
        std::find_if(placement.blocks.begin(), placement.blocks.end(), [&](const SBlock &block) {
            return block.group == group && block.address == address;
        });
    if (known != placement.blocks.end())
        return static_cast<size_t>(known - placement.blocks.begin());
    placement.blocks.push_back({address, m_groups[group].bytes, group});
    return placement.blocks.size() - 1;
}

/// Loads as a player does, which keeps what nothing was loaded over: all screens in their order,
/// then every second one, and so on.
uint64_t CBlockPlacer::bytesLoaded(const SPlacement &placement) const
{
    constexpr size_t MostRounds = 8;
    std::vector<bool> isThere(placement.blocks.size());
    uint64_t bytes = 0;
    const auto load = [&](size_t block) {
        if (isThere[block])
            return;
        const SBlock &place = placement.blocks[block];
        for (size_t other = 0; other < placement.blocks.size(); ++other)
            if (isThere[other] && overlap(placement.blocks[other], place.address, place.bytes))
                isThere[other] = false;
        isThere[block] = true;
        bytes += place.bytes;
    };
    for (size_t stride = 1; stride <= std::min(m_screenCount, MostRounds); ++stride)
        for (size_t step = 0; step < m_screenCount; ++step)
            for (const size_t block : placement.loads[step * stride % m_screenCount])
                load(block);
    return bytes;
}
