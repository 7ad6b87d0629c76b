#include "CRamGPlan.h"

#include "CBlockPlacer.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <map>
#include <numeric>

namespace {

std::vector<size_t> all(size_t count)
{
    std::vector<size_t> numbers(count);
    std::iota(numbers.begin(), numbers.end(), size_t{0});
    return numbers;
}

} // namespace

CRamGPlan::CRamGPlan(const std::vector<uint32_t> &assetBytes,
                     const std::vector<std::vector<size_t>> &screens, uint32_t capacity)
    : m_loads(screens.size())
{
    std::vector<bool> isUsed(assetBytes.size());
    for (const auto &assets : screens)
        for (const size_t asset : assets)
            isUsed[asset] = true;
    std::vector<size_t> used;
    uint64_t total = 0;
    for (size_t asset = 0; asset < assetBytes.size(); ++asset) {
        if (!isUsed[asset])
            continue;
        used.push_back(asset);
        total += aligned(assetBytes[asset]);
    }
    m_fits = total <= capacity;
    if (used.empty())
        return;
    const size_t count = screens.size();
    std::vector<SDraft> drafts = draftsOf(assetBytes, screens);
    if (m_fits)
        drafts = {{used, all(count), total}};
    bool isMerging = true;
    for (size_t most = MaxBlocks; isMerging; most /= 2) { // scattered groups are several blocks
        const size_t before = drafts.size();
        mergeSmall(drafts, count, capacity, most);
        place(drafts, assetBytes, count, capacity);
        isMerging = m_blocks.size() > MaxBlocks && (most == MaxBlocks || drafts.size() < before);
    }
    if (m_blocks.size() > MaxBlocks) { // too full to be put together: no screen shares anything
        drafts.clear();
        for (size_t screen = 0; screen < count; ++screen)
            if (!screens[screen].empty())
                drafts.push_back({screens[screen], {screen}, 0});
        place(drafts, assetBytes, count, capacity);
    }
}

void CRamGPlan::place(const std::vector<SDraft> &drafts, const std::vector<uint32_t> &assetBytes,
                      size_t screenCount, uint32_t capacity)
{
    makeGroups(drafts, assetBytes);
    choosePermanent(screenCount, capacity);
    placeGroups(screenCount, capacity);
    sortBlocks();
}

/// Assets of the same screens, in the order of their first one, so that the order of the blocks'
/// data follows the project's.
std::vector<CRamGPlan::SDraft> CRamGPlan::draftsOf(const std::vector<uint32_t> &assetBytes,
                                                   const std::vector<std::vector<size_t>> &screens)
{
    std::vector<Screens> users(assetBytes.size());
    for (size_t screen = 0; screen < screens.size(); ++screen)
        for (const size_t asset : screens[screen])
            users[asset].push_back(screen);
    std::vector<SDraft> drafts;
    std::map<Screens, size_t> known;
    for (size_t asset = 0; asset < assetBytes.size(); ++asset) {
        if (users[asset].empty())
            continue;
        const size_t draft = known.emplace(users[asset], drafts.size()).first->second;
        if (draft == drafts.size())
            drafts.push_back({{}, users[asset], 0});
        drafts[draft].assets.push_back(asset);
        drafts[draft].bytes += aligned(assetBytes[asset]);
    }
    return drafts;
}

/// Puts the smallest groups together, as long as there are more than `most` and the screens of
/// either have room for both.
void CRamGPlan::mergeSmall(std::vector<SDraft> &drafts, size_t screenCount, uint32_t capacity,
                           size_t most)
{
    std::vector<uint64_t> needed(screenCount);
    for (const SDraft &draft : drafts)
        for (const size_t screen : draft.users)
            needed[screen] += draft.bytes;
    const auto takes = [&](const SDraft &host, const SDraft &guest) {
        return std::all_of(host.users.begin(), host.users.end(), [&](size_t screen) {
            return std::binary_search(guest.users.begin(), guest.users.end(), screen) ||
                   needed[screen] + guest.bytes <= capacity;
        });
    };
    const auto settle = [&](const SDraft &host, const SDraft &guest) {
        for (const size_t screen : host.users)
            if (!std::binary_search(guest.users.begin(), guest.users.end(), screen))
                needed[screen] += guest.bytes;
    };
    const auto mergeOne = [&] {
        std::vector<size_t> order = all(drafts.size());
        std::stable_sort(order.begin(), order.end(),
                         [&](size_t a, size_t b) { return drafts[a].bytes < drafts[b].bytes; });
        for (size_t i = 0; i < order.size(); ++i)
            for (size_t j = i + 1; j < order.size(); ++j) {
                SDraft &first = drafts[std::min(order[i], order[j])];
                SDraft &second = drafts[std::max(order[i], order[j])];
                if (!takes(first, second) || !takes(second, first))
                    continue;
                settle(first, second);
                settle(second, first);
                SDraft merged{{}, {}, first.bytes + second.bytes};
                std::merge(first.assets.begin(), first.assets.end(), second.assets.begin(),
                           second.assets.end(), std::back_inserter(merged.assets));
                std::set_union(first.users.begin(), first.users.end(), second.users.begin(),
                               second.users.end(), std::back_inserter(merged.users));
                first = merged;
                drafts.erase(drafts.begin() + (&second - drafts.data()));
                return true;
            }
        return false;
    };
    while (drafts.size() > most && mergeOne()) {
    }
}

void CRamGPlan::makeGroups(const std::vector<SDraft> &drafts,
                           const std::vector<uint32_t> &assetBytes)
{
    m_groups.clear();
    m_users.clear();
    for (const SDraft &draft : drafts) {
        SGroup group{draft.assets, {}, 0};
        for (const size_t asset : draft.assets) {
            group.offsets.push_back(group.bytes);
            group.bytes += aligned(assetBytes[asset]);
        }
        m_groups.push_back(group);
        m_users.push_back(draft.users);
    }
    m_named = m_users;
}

/// Groups that more than half of the screens show become named by all, those of the most screens
/// first, as long as every screen keeps room for what else it shows.
void CRamGPlan::choosePermanent(size_t screenCount, uint32_t capacity)
{
    std::vector<uint64_t> needed(screenCount); // bytes of what a screen names
    for (size_t group = 0; group < m_groups.size(); ++group)
        for (const size_t screen : m_named[group])
            needed[screen] += m_groups[group].bytes;
    std::vector<size_t> order = all(m_groups.size());
    std::stable_sort(order.begin(), order.end(),
                     [this](size_t a, size_t b) { return m_users[a].size() > m_users[b].size(); });
    for (const size_t group : order) {
        const Screens &users = m_users[group];
        if (users.size() * 2 <= screenCount)
            break;
        const auto hasRoom = [&](size_t screen) {
            return std::binary_search(users.begin(), users.end(), screen) ||
                   needed[screen] + m_groups[group].bytes <= capacity;
        };
        const Screens everyOne = all(screenCount);
        if (!std::all_of(everyOne.begin(), everyOne.end(), hasRoom))
            continue;
        for (const size_t screen : everyOne)
            if (!std::binary_search(users.begin(), users.end(), screen))
                needed[screen] += m_groups[group].bytes;
        m_named[group] = everyOne;
    }
}

void CRamGPlan::placeGroups(size_t screenCount, uint32_t capacity)
{
    std::vector<CBlockPlacer::SGroup> groups;
    for (size_t group = 0; group < m_groups.size(); ++group)
        groups.push_back({m_groups[group].bytes, m_users[group], m_named[group]});
    const CBlockPlacer::SPlacement placement = CBlockPlacer(groups, screenCount, capacity).best();
    m_blocks = placement.blocks;
    m_loads = placement.loads;
}

/// Blocks that no screen loads are left out; the others are ordered by address and group.
void CRamGPlan::sortBlocks()
{
    std::vector<bool> isLoaded(m_blocks.size());
    for (const auto &blocks : m_loads)
        for (const size_t block : blocks)
            isLoaded[block] = true;
    std::vector<size_t> order;
    for (size_t block = 0; block < m_blocks.size(); ++block)
        if (isLoaded[block])
            order.push_back(block);
    std::sort(order.begin(), order.end(), [this](size_t a, size_t b) {
        return std::pair(m_blocks[a].address, m_blocks[a].group) <
               std::pair(m_blocks[b].address, m_blocks[b].group);
    });
    std::vector<SBlock> sorted;
    std::vector<size_t> newIndex(m_blocks.size());
    for (const size_t block : order) {
        newIndex[block] = sorted.size();
        sorted.push_back(m_blocks[block]);
    }
    m_blocks = sorted;
    for (auto &blocks : m_loads) {
        for (size_t &block : blocks)
            block = newIndex[block];
        std::sort(blocks.begin(), blocks.end());
    }
}

uint32_t CRamGPlan::address(size_t screen, size_t asset) const
{
    for (const size_t block : m_loads[screen]) {
        const SGroup &group = m_groups[m_blocks[block].group];
        const auto found = std::lower_bound(group.assets.begin(), group.assets.end(), asset);
        if (found != group.assets.end() && *found == asset)
            return m_blocks[block].address +
                   group.offsets[static_cast<size_t>(found - group.assets.begin())];
    }
    assert(!"the screen shows the asset");
    return 0;
}

uint64_t CRamGPlan::bytesOfAllChanges() const
{
    std::vector<uint64_t> users(m_blocks.size()); // screens that load a block
    for (const std::vector<size_t> &loads : m_loads)
        for (const size_t block : loads)
            ++users[block];
    uint64_t bytes = 0;
    for (size_t block = 0; block < users.size(); ++block)
        bytes += users[block] * (m_loads.size() - users[block]) * m_blocks[block].bytes;
    return bytes;
}

uint64_t CRamGPlan::bytesOfFirst(size_t screen) const
{
    uint64_t bytes = 0;
    for (const size_t block : m_loads[screen])
        bytes += m_blocks[block].bytes;
    return bytes;
}
