#pragma once

#include "StandardScreen.h"
#include "executor/CRamG.h"
#include "raster/BitmapImage.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace bench {

/// The standard screen as the chip gets it.
struct SScreenList
{
    std::vector<uint32_t> words;
    kivemu::CRamG memory;
};

/// The display list of one section, or of all. A list of one section other than the background
/// starts with CLEAR too, as every frame is cleared; emptyList() has this alone.
SScreenList screenList(const SStandardScreen &screen, std::optional<ESection> section);
SScreenList emptyList();

/// Where a picture of that size goes that is turned and filtered bilinearly.
kivemu::SBitmapPlacement turnedPlacement(int width, int height, const STurnedPicture &turned);

/// The ROM font whose em size is nearest to a label's.
int romFont(int emSize);

} // namespace bench
