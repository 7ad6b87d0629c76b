#pragma once

#include "raster/RasterTypes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kivemu {

class CRamG;

/// The pixels of an executed frame, row by row without padding.
struct SReplay
{
    std::vector<uint32_t> frame;
    std::vector<std::string> errors;
    /// What differs between two executions of the same bytes, over unlike surfaces and with the
    /// bitmaps decoded anew or kept; empty: nothing.
    std::string difference;
};

/// Executes the bytes of a display list, as an export holds them, twice.
SReplay replay(const std::vector<uint8_t> &bytes, const CRamG &memory, int width, int height,
               std::optional<EKernelSet> kernels = std::nullopt);

} // namespace kivemu
