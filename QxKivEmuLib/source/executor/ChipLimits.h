#pragma once

#include <cstddef>
#include <cstdint>

namespace kivemu {

/// What a chip's code decides.
struct SChipLimits
{
    size_t ramG;      ///< bytes of graphics memory
    size_t ramDl;     ///< bytes of display-list memory
    uint32_t maxSide; ///< pixels of the largest screen's width and height
};

/// Chips 0x110 to 0x113 are the second generation; every other code counts as the first.
constexpr SChipLimits chipLimits(uint32_t chipCode)
{
    if (chipCode >= 0x110 && chipCode <= 0x113)
        return {size_t{1024} << 10, size_t{32} << 10, 2048};
    return {size_t{256} << 10, size_t{8} << 10, 512};
}

} // namespace kivemu
