#include "ItemBox.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

namespace kivemu {

namespace {

struct SGeometry
{
    double x = 0;
    double y = 0;
    std::optional<double> x2;
    std::optional<double> y2;
    double width = 0;
    double height = 0;
    std::optional<double> radius;

    void take(std::string_view name, double value)
    {
        if (name == "x_coordinate" || name == "x")
            x = value;
        else if (name == "y_coordinate" || name == "y")
            y = value;
        else if (name == "x2_coordinate")
            x2 = value;
        else if (name == "y2_coordinate")
            y2 = value;
        else if (name == "width")
            width = value;
        else if (name == "height")
            height = value;
        else if (name == "radius")
            radius = std::abs(value);
        else if (name == "point_size")
            radius = std::abs(value) / 16;
    }
};

double numberOf(const CSnapshot::SProperty &property)
{
    constexpr double Farthest = 4096;
    const double number = property.isNumber
                              ? property.number
                              : std::strtod(std::string(property.text).c_str(), nullptr);
    return number == number ? std::clamp(number, -Farthest, Farthest) : 0;
}

} // namespace

SItemBox itemBox(const CSnapshot &snapshot, size_t item)
{
    SGeometry g;
    CSnapshot::CProperties properties = snapshot.properties(item);
    for (CSnapshot::SProperty property; properties.next(property);)
        g.take(property.name, numberOf(property));
    if (g.x2 || g.y2) {
        const double x2 = g.x2.value_or(g.x);
        const double y2 = g.y2.value_or(g.y);
        return {std::min(g.x, x2), std::min(g.y, y2), std::abs(x2 - g.x), std::abs(y2 - g.y)};
    }
    if (g.radius)
        return {g.x - *g.radius, g.y - *g.radius, 2 * *g.radius, 2 * *g.radius};
    return {g.x, g.y, g.width, g.height};
}

} // namespace kivemu
