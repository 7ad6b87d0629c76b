#pragma once

#include <QRectF>

/// How an item answers to its resize handles.
enum class ResizeKind {
    Box,       ///< edges move by themselves
    Line,      ///< a box between two points: keeping the proportions is keeping the direction
    WidthOnly, ///< the height follows from something else
    Circular,  ///< about a centre, width and height are one
};

/// Smallest and largest width and height, scene units.
struct SizeLimits
{
    QSizeF minimum{-32768.0, -32768.0};
    QSizeF maximum{32767.0, 32767.0};
};
