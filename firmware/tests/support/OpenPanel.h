#pragma once

#include "CChip.h"
#include "Player.h"
#include "TestPackage.h"

#include <algorithm>

/// A package at an odd address, its chip, and the panel that one build of the player opened.
struct SOpenPanel
{
    SOpenPanel(const player &functions, const STestPackage::Bytes &blob)
        : play(functions),
          chip(blob.size() >= 20 ? numberAt(blob, 16) : 0),
          bus(chip.bus()),
          memory(1 + blob.size(), 0xFF) // no more: a sanitizer sees a read past the end
    {
        std::copy(blob.begin(), blob.end(), memory.begin() + 1);
        error = play.open(&panel, memory.data() + 1, static_cast<uint32_t>(blob.size()), &bus);
    }
    SOpenPanel(const SOpenPanel &) = delete;

    const player play;
    CChip chip;
    kiv_bus bus;
    STestPackage::Bytes memory;
    kiv_panel panel;
    int error;
};

/// Which block each byte of RAM_G is of; -1: none. A block that has to be loaded again is one of
/// which anything has been written over.
class COwners
{
public:
    explicit COwners(size_t bytes) : m_owners(bytes, -1) {}

    /// Bytes that showing a screen loads.
    uint64_t show(const STestPackage &package, size_t screen)
    {
        uint64_t loaded = 0;
        for (const uint16_t index : package.screens[screen].loads) {
            const STestPackage::SBlock &block = package.blocks[index];
            const auto begin = m_owners.begin() + block.address;
            const auto end = begin + static_cast<std::ptrdiff_t>(block.bytes.size());
            if (std::count(begin, end, index) == end - begin)
                continue;
            std::fill(begin, end, index);
            loaded += block.bytes.size();
        }
        return loaded;
    }

private:
    std::vector<int> m_owners;
};
