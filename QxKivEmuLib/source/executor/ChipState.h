#pragma once

#include "CErrorLog.h"
#include "displaylist/CommandTable.h"
#include "raster/RasterTypes.h"

#include <cstdint>

namespace kivemu {

class CDrawingBudget;
class CRamG;
class CRasterizer;

/// What SAVE keeps.
struct SChipState
{
    SPaint paint{0xFFFFFFFF, true};
    Sub16 lineWidth = 16;
    SClip clip{0, 0, 0, 0};
};

/// What the commands of one execution share.
struct SExecution
{
    CRasterizer &rasterizer;
    const CRamG &memory;
    CDrawingBudget &budget;
    CErrorLog &errors;
    const SChipState &state;
};

// Operands of a command; `words` starts with its header.

inline uint32_t operand(uint32_t header)
{
    return header & HeaderOperandMask;
}

inline int lowUnsigned(uint32_t word)
{
    return static_cast<int>(word & 0xFFFF);
}

inline int highUnsigned(uint32_t word)
{
    return static_cast<int>(word >> 16);
}

inline int lowSigned(uint32_t word)
{
    return static_cast<int16_t>(word & 0xFFFF);
}

inline int highSigned(uint32_t word)
{
    return static_cast<int16_t>(word >> 16);
}

inline SPoint point(uint32_t word)
{
    return {lowSigned(word), highSigned(word)};
}

inline SPoint extent(uint32_t word)
{
    return {lowUnsigned(word), highUnsigned(word)};
}

} // namespace kivemu
