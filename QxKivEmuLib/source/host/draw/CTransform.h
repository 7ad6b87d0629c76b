#pragma once

#include "raster/RasterTypes.h"

namespace kivemu {

/// A point or offset in pixels.
struct SVector
{
    double x;
    double y;
};

/// Sixteenths of a pixel, halves away from zero. What lies far outside any frame is cut.
Sub16 toSub16(double pixels);

/// Rotations, one after the other, as one: turns what is drawn about points of the frame.
class CTransform
{
public:
    bool isIdentity() const { return m_identity; }
    /// True when rectangles stay rectangles: a multiple of a quarter turn.
    bool keepsRectangles() const;
    double degrees() const { return m_degrees; }
    SVector map(double x, double y) const
    {
        return {m_cos * x - m_sin * y + m_x, m_sin * x + m_cos * y + m_y};
    }
    /// Adds a clockwise turn about a point, which is itself given in turned coordinates.
    void rotate(double degrees, double x, double y);

private:
    bool m_identity = true;
    double m_degrees = 0; ///< 0 to 360
    double m_cos = 1;
    double m_sin = 0;
    double m_x = 0;
    double m_y = 0;
};

} // namespace kivemu
