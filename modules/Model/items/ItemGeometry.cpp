#include "ItemGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

qint64 roundedToInteger(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double lowest = std::numeric_limits<qint32>::min();
    constexpr double highest = std::numeric_limits<qint32>::max();
    return std::llround(std::clamp(value, lowest, highest));
}
