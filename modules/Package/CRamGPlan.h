#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Where the assets of all screens lie in graphics memory, and what a change of the screen loads.
/// A pure function of sizes and uses: equal input gives the same plan.
/// When everything fits, all assets are one block that every screen loads, so that only the first
/// screen loads anything. Otherwise assets that the same screens use are one block; those that
/// most screens use stay where they are while any screen is shown (every screen loads them), the
/// others lie over blocks that no screen needs together with them, as few of them as possible.
class CRamGPlan
{
public:
    static constexpr uint32_t Alignment = 4; ///< of addresses, and of what an asset takes up
    static constexpr size_t MaxBlocks = 512;
    /// What so many bytes take up.
    static constexpr uint32_t aligned(uint32_t bytes)
    {
        return (bytes + Alignment - 1) / Alignment * Alignment;
    }

    struct SBlock
    {
        uint32_t address;
        uint32_t bytes; ///< a multiple of Alignment
        size_t group;   ///< blocks of the same group hold the same assets, at another address
    };
    /// Assets that lie behind each other wherever they lie. An asset is in more than one group
    /// only where the memory is too full for fewer than MaxBlocks blocks.
    struct SGroup
    {
        std::vector<size_t> assets;    ///< ascending
        std::vector<uint32_t> offsets; ///< of these, from the start of the group
        uint32_t bytes;                ///< a multiple of Alignment
    };

    /// `assetBytes`: of each asset. `screens`: for each one the assets that it shows, ascending
    /// and each once. Each screen's assets, every one rounded up to Alignment, must fit into
    /// `capacity` bytes (asserted).
    CRamGPlan(const std::vector<uint32_t> &assetBytes,
              const std::vector<std::vector<size_t>> &screens, uint32_t capacity);

    const std::vector<SGroup> &groups() const { return m_groups; }
    const std::vector<SBlock> &blocks() const { return m_blocks; }
    /// For each screen the blocks that it loads, by ascending addresses; they do not overlap.
    const std::vector<std::vector<size_t>> &loads() const { return m_loads; }
    bool fitsAsAWhole() const { return m_fits; }

    /// Where an asset lies while a screen that shows it is shown.
    uint32_t address(size_t screen, size_t asset) const;
    /// Bytes that changes load into a memory that holds only what the screen before has loaded: the
    /// sum over all of them, from each screen to each other one.
    uint64_t bytesOfAllChanges() const;
    /// Bytes that a screen loads into an empty memory.
    uint64_t bytesOfFirst(size_t screen) const;

private:
    using Screens = std::vector<size_t>; ///< ascending

    struct SDraft
    {
        std::vector<size_t> assets; ///< ascending
        Screens users;
        uint64_t bytes;
    };
    static std::vector<SDraft> draftsOf(const std::vector<uint32_t> &assetBytes,
                                        const std::vector<std::vector<size_t>> &screens);
    static void mergeSmall(std::vector<SDraft> &drafts, size_t screenCount, uint32_t capacity,
                           size_t most);
    void place(const std::vector<SDraft> &drafts, const std::vector<uint32_t> &assetBytes,
               size_t screenCount, uint32_t capacity);
    void makeGroups(const std::vector<SDraft> &drafts, const std::vector<uint32_t> &assetBytes);
    void choosePermanent(size_t screenCount, uint32_t capacity);
    void placeGroups(size_t screenCount, uint32_t capacity);
    void sortBlocks();

    bool m_fits = false;
    std::vector<SGroup> m_groups;
    std::vector<Screens> m_users; ///< of each group: screens that show one of its assets
    std::vector<Screens> m_named; ///< of each group: screens that load it
    std::vector<SBlock> m_blocks;
    std::vector<std::vector<size_t>> m_loads;
};
