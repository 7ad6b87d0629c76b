#include "shapes/Trigonometry.h"

namespace kivemu {
namespace {

constexpr int QuarterTurn = FullTurn / 4;
constexpr double Radian = 3.14159265358979323846 / (FullTurn / 2.0); ///< of one unit of angle

// Taylor series up to the 15th power; for 0 .. 45 degrees the rest is below 1e-16.
double shortSine(double x)
{
    const double x2 = x * x;
    double sum = 0;
    for (int power = 15; power >= 3; power -= 2)
        sum = x2 / (power * (power - 1)) * (1 - sum);
    return x * (1 - sum);
}

double shortCosine(double x)
{
    const double x2 = x * x;
    double sum = 0;
    for (int power = 16; power >= 2; power -= 2)
        sum = x2 / (power * (power - 1)) * (1 - sum);
    return 1 - sum;
}

/// For 0 .. 90 degrees.
double sine(int angle)
{
    if (angle <= QuarterTurn / 2)
        return shortSine(angle * Radian);
    return shortCosine((QuarterTurn - angle) * Radian);
}

} // namespace

SDirection direction(int64_t angle)
{
    const int turn = static_cast<int>((angle % FullTurn + FullTurn) % FullTurn);
    const int within = turn % QuarterTurn;
    const double s = sine(within);
    const double c = sine(QuarterTurn - within);
    switch (turn / QuarterTurn) {
    case 0:
        return {c, s};
    case 1:
        return {-s, c};
    case 2:
        return {-c, -s};
    default:
        return {s, -c};
    }
}

} // namespace kivemu
