#pragma once

#include <QRectF>

class CItemModel;

/// A box that is turned clockwise about its middle. Pixels and degrees.
struct SItemOutline
{
    QRectF box;
    double turn = 0;
};

/// What an item covers on the screen, as its kind is drawn: strokes with their thickness, lines and
/// arrows along their direction, the height that a font gives. Empty when the item has no extent.
SItemOutline itemOutline(const CItemModel &item);
