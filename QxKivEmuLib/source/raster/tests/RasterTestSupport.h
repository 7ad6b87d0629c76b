#pragma once

#include "raster/CRasterizer.h"
#include "raster/CSurface.h"

#include <cmath>
#include <cstdint>
#include <random>

namespace rastertest {

using namespace kivemu;

constexpr Argb White = 0xFFFFFFFFu;
constexpr Argb Black = 0xFF000000u;

inline Sub16 sub16(double pixels)
{
    return static_cast<Sub16>(std::lround(pixels * 16));
}

inline SPoint at(double x, double y)
{
    return {sub16(x), sub16(y)};
}

/// A black surface with its rasterizer.
struct SSheet
{
    explicit SSheet(int width, int height) : surface(width, height), raster(surface) {}
    SSheet(int width, int height, EKernelSet kernels)
        : surface(width, height), raster(surface, kernels)
    {
    }

    int level(int x, int y) const { return static_cast<int>(surface.row(y)[x] & 255); }
    /// What was drawn in white, in pixels.
    double area() const
    {
        double sum = 0;
        for (int y = 0; y < surface.height(); ++y)
            for (int x = 0; x < surface.width(); ++x)
                sum += level(x, y) / 255.0;
        return sum;
    }

    CSurface surface;
    CRasterizer raster;
};

/// Numbers that are the same in every run.
class CNumbers
{
public:
    explicit CNumbers(uint32_t seed) : m_engine(seed) {}
    uint32_t bits() { return static_cast<uint32_t>(m_engine()); }
    int between(int low, int high)
    {
        return low + static_cast<int>(bits() % static_cast<uint32_t>(high - low + 1));
    }
    bool oneIn(int n) { return between(1, n) == 1; }

private:
    std::mt19937 m_engine;
};

} // namespace rastertest
