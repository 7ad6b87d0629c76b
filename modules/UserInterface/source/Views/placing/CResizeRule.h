#pragma once

#include "ResizeGeometry.h"

#include <QRectF>

/// One drag of a resize handle: turns pointer offsets into geometries, and nothing else.
/// Each answer is worked out from the start, so rounding and limits cannot add up over a long drag.
/// All numbers of an answer are whole when those of the start are.
class CResizeRule
{
public:
    /// Position and size of the item; the position is the centre of circular items.
    struct Geometry
    {
        QPointF position;
        QSizeF size;
    };
    struct Modifiers
    {
        bool keepAspect = false;
        bool fromCentre = false;
    };

    /// `handle`: 0 to 7, clockwise from the middle of the top edge. `degrees`: how far the item's
    /// own axes are turned.
    CResizeRule(ResizeKind kind, int handle, const Geometry &start, const SizeLimits &limits,
                double degrees = 0);

    /// The geometry after the pointer has moved by `offset` (scene units) since the press. Edges
    /// that are not dragged stay where they are, also when a limit stops the drag; those of turned
    /// items as closely as a position in whole units allows.
    Geometry geometryFor(const QPointF &offset, Modifiers modifiers) const;

    // Which way a handle faces: -1 left or top, 1 right or bottom, 0 neither.
    static int horizontalSide(int handle);
    static int verticalSide(int handle);

private:
    Geometry boxFor(const QPointF &own, Modifiers modifiers) const;
    Geometry turned(const Geometry &unturned) const;
    Geometry circleFor(const QPointF &own, Modifiers modifiers) const;
    QSizeF limited(const QSizeF &size) const;
    QSizeF withAspect(const QSizeF &size) const;
    QSizeF alongLine(const QSizeF &size) const;

    const ResizeKind m_kind;
    const int m_horizontal;
    const int m_vertical;
    const Geometry m_start;
    const SizeLimits m_limits;
    const double m_degrees;
};
