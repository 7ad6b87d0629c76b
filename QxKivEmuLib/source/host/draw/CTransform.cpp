#include "CTransform.h"

#include <algorithm>
#include <cmath>

namespace kivemu {

Sub16 toSub16(double pixels)
{
    constexpr double Farthest = 1 << 20;
    const double scaled = std::clamp(pixels, -Farthest, Farthest) * 16;
    return static_cast<Sub16>(scaled < 0 ? scaled - 0.5 : scaled + 0.5);
}

bool CTransform::keepsRectangles() const
{
    return m_identity || std::fmod(m_degrees, 90) == 0;
}

void CTransform::rotate(double degrees, double x, double y)
{
    degrees = std::fmod(degrees, 360);
    if (degrees == 0)
        return;
    const SVector centre = map(x, y);
    m_degrees = std::fmod(m_degrees + degrees + 360, 360);
    m_identity = false;
    // Quarter turns are exact, so that their rectangles stay on whole pixels.
    constexpr double Quarter[4][2] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    if (std::fmod(m_degrees, 90) == 0) {
        const double *quarter = Quarter[static_cast<int>(m_degrees / 90)];
        m_cos = quarter[0];
        m_sin = quarter[1];
    } else {
        const double radians = m_degrees * (3.14159265358979323846 / 180);
        m_cos = std::cos(radians);
        m_sin = std::sin(radians);
    }
    // The centre is the point that the added turn leaves where it was.
    m_x = centre.x - (m_cos * x - m_sin * y);
    m_y = centre.y - (m_sin * x + m_cos * y);
}

} // namespace kivemu
