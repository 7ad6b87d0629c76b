#pragma once

#include <QtGlobal>

/// What defines the size of an item.
enum class GeometryMode : qint32 {
    Box = 0,        ///< "width" and "height"
    Radius = 1,     ///< "radius"
    PointSize = 2,  ///< "point_size", sixteenths of a pixel across half the item
    TwoCorners = 3, ///< "x2_coordinate" and "y2_coordinate"
};

/// The geometry that an item derives from its properties. Pixels and degrees.
struct ItemGeometry
{
    double x = 0;
    double y = 0;
    double x2 = 0;
    double y2 = 0;
    double width = 0;
    double height = 0;
    double angle = 0;
    double radius = 0;
    qint32 fontHandle = 0;
    GeometryMode mode = GeometryMode::Box;
    bool resizeable = true;
    bool hasAngle = false;
    bool hasPointList = false;
    bool heightFromFont = false;
};

/// Nearest whole number, halves away from zero; 0 for what is no number, cut to 32 bits.
qint64 roundedToInteger(double value);
