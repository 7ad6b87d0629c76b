#pragma once

#include "CRamGPlan.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// Finds places in graphics memory for groups of assets: the work behind CRamGPlan.
/// Packing is a matter of luck, so it is tried in several ways, and the one is taken that loads the
/// least while the screens are gone through in many orders.
class CBlockPlacer
{
public:
    using Screens = std::vector<size_t>; ///< ascending

    struct SGroup
    {
        uint32_t bytes; ///< a multiple of the alignment
        Screens users;  ///< screens that need it
        Screens named;  ///< screens that load it, the users among them
    };
    struct SPlacement
    {
        std::vector<CRamGPlan::SBlock> blocks;
        std::vector<std::vector<size_t>> loads; ///< for each screen, in no order
    };

    CBlockPlacer(const std::vector<SGroup> &groups, size_t screenCount, uint32_t capacity);

    SPlacement best() const;

private:
    enum class EOrder { ManyScreensFirst, LargeFirst };
    enum class EFit { FewestReloads, Lowest };

    SPlacement place(EOrder order, EFit fit) const;
    std::vector<size_t> ordered(EOrder order) const;
    bool findCommonPlace(const SPlacement &placement, size_t group, EFit fit,
                         uint32_t &address) const;
    bool fillGaps(SPlacement &placement, size_t screen, const std::vector<size_t> &missing) const;
    void packScreen(SPlacement &placement, size_t screen) const;
    size_t blockAt(SPlacement &placement, size_t group, uint32_t address) const;
    uint64_t bytesLoaded(const SPlacement &placement) const;

    const std::vector<SGroup> &m_groups;
    const size_t m_screenCount;
    const uint32_t m_capacity;
};
