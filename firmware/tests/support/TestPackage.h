#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// What a package says, and its bytes: a second reader and writer of the format, for tests. Knows
/// nothing of the player and trusts what it reads.
struct STestPackage
{
    using Bytes = std::vector<uint8_t>;
    struct SBlock
    {
        uint32_t address;
        Bytes bytes;
    };
    struct SAsset
    {
        uint32_t block;
        uint32_t address;
        uint32_t bytes;
    };
    struct SItem
    {
        uint32_t id;
        std::string name;
        std::array<int16_t, 8> outline; ///< x and y of each corner, 1/16 pixel
    };
    struct SScreen
    {
        std::string name;
        std::vector<uint32_t> list;
        std::vector<uint16_t> loads;
        std::vector<SItem> items;
    };

    uint32_t chip = 0x100;
    int width = 64;
    int height = 48;
    std::vector<SBlock> blocks;
    std::vector<SAsset> assets;
    std::vector<SScreen> screens;

    Bytes toBytes() const;
    static STestPackage fromBytes(const Bytes &blob);
    /// Offset of the first byte of the section of a kind (1 to 8), and how many it has.
    static uint32_t sectionBegin(const Bytes &blob, uint32_t kind);
    static uint32_t sectionBytes(const Bytes &blob, uint32_t kind);

    /// Four blocks and screens, small: what overlaps whom differs from screen to screen.
    static STestPackage example();
};

uint32_t numberAt(const std::vector<uint8_t> &blob, size_t offset, int bytes = 4);
void setNumber(std::vector<uint8_t> &blob, size_t offset, uint32_t value, int bytes = 4);
/// Puts the check sum right, over as many bytes as the header says or as there are.
void seal(std::vector<uint8_t> &blob);
