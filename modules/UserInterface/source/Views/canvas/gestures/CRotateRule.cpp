#include "CRotateRule.h"

#include <cmath>

namespace {
constexpr double DegreesOfRadian = 57.29577951308232;
constexpr double Step = 15;
} // namespace

CRotateRule::CRotateRule(const QPointF &centre, const QPointF &press, double startAngle)
    : m_centre(centre), m_offset(directionOf(press) - startAngle)
{
}

double CRotateRule::directionOf(const QPointF &point) const
{
    return std::atan2(point.y() - m_centre.y(), point.x() - m_centre.x()) * DegreesOfRadian;
}

double CRotateRule::angleFor(const QPointF &pointer) const
{
    double angle = std::fmod(directionOf(pointer) - m_offset, 360.0);
    if (angle < 0)
        angle += 360.0;
    return std::fmod(angle, 360.0);
}

double CRotateRule::stepped(double degrees)
{
    return std::fmod(std::round(degrees / Step) * Step, 360.0);
}
