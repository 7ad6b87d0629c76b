#pragma once

#include <QRectF>

class CItemModel;

/// A box that is turned clockwise about its middle. Pixels and degrees.
struct SItemOutline
{
    QRectF box;
    double turn = 0;
};

/// What is seen of an item on its screen, as its kind is drawn: its frame (see ItemGeometry) as it
/// is turned, strokes with their thickness, lines and arrows along their direction. Empty when the
/// item has no extent.
SItemOutline itemOutline(const CItemModel &item);
