#pragma once

#include <QRectF>
#include <QStringList>
#include <QVector>

class CItemModel;

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
    static constexpr double PointSizeOfPixel = 16; ///< "point_size" of an item of radius 1

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

    /// The properties that hold it, but for what is a flag.
    static const QStringList &keys();
    /// What one of them would be.
    double valueOf(const QString &key) const;

    /// The frame of an item, on its screen: what it is selected, snapped, grouped and arranged by.
    /// Not turned, and without the thickness of what is drawn along it (see ItemOutline for what is
    /// seen). Items with "radius" or "point_size" lie about their position, those that are drawn
    /// through points where these are, a text without a size of its own is as large as it is in its
    /// font, a group holds the frames of its members. What has no size at all gets one that can be
    /// taken hold of. Width and height are never negative, but may be 0.
    static QRectF frameOf(const CItemModel &item);
    /// The least frame that holds those of all; an empty one counts by its place. Null for none.
    static QRectF frameOf(const QVector<CItemModel *> &items);
    /// The same about the item's position. Its width and height are negative where the second of
    /// two points lies before the first.
    static QRectF ownFrameOf(const CItemModel &item);

    /// Whether the position is the middle of the frame.
    static bool isCentred(const CItemModel &item);
    /// Whether properties, members or a text give the item a size.
    static bool hasSize(const CItemModel &item);
};

/// Nearest whole number, halves away from zero; 0 for what is no number, cut to 32 bits.
qint64 roundedToInteger(double value);
