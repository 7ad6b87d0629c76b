#include "ChipFormat.h"

namespace kivtools {

static constexpr SChipFormat Formats[] = {
    {0, "ARGB1555", 1, 5, 5, 5, 0}, {1, "L1", 0, 0, 0, 0, 1},     {2, "L4", 0, 0, 0, 0, 4},
    {3, "L8", 0, 0, 0, 0, 8},       {4, "RGB332", 0, 3, 3, 2, 0}, {5, "ARGB2", 2, 2, 2, 2, 0},
    {6, "ARGB4", 4, 4, 4, 4, 0},    {7, "RGB565", 0, 5, 6, 5, 0}, {9, "L2", 0, 0, 0, 0, 2},
};

const SChipFormat *chipFormat(int code)
{
    for (const SChipFormat &format : Formats)
        if (format.code == code)
            return &format;
    return nullptr;
}

} // namespace kivtools
