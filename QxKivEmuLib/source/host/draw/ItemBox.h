#pragma once

#include "host/items/CSnapshot.h"

namespace kivemu {

/// Pixels.
struct SItemBox
{
    double x;
    double y;
    double width;
    double height;
};

/// Where an item lies, by its geometry properties: a box, a circle around x and y ("radius", or
/// "point_size" in sixteenths), or the rectangle between two corners.
SItemBox itemBox(const CSnapshot &snapshot, size_t item);

} // namespace kivemu
