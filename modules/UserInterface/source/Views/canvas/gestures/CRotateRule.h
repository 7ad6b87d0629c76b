#pragma once

#include <QPointF>

/// One drag of a rotate handle: turns pointer positions about a centre into angles. Degrees,
/// clockwise on the screen, 0 to below 360.
class CRotateRule
{
public:
    CRotateRule(const QPointF &centre, const QPointF &press, double startAngle);

    double angleOffset() const { return m_offset; }
    double angleFor(const QPointF &pointer) const;
    /// The nearest multiple of 15 degrees.
    static double stepped(double degrees);

private:
    double directionOf(const QPointF &point) const;

    const QPointF m_centre;
    const double m_offset; ///< direction of the press less the angle at the start
};
