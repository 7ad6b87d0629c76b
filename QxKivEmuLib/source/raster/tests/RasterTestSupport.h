#pragma once

#include "raster/BitmapImage.h"
#include "raster/CRasterizer.h"
#include "raster/CSurface.h"

#include <gtest/gtest.h>

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

/// The levels of all pixels; `expected(x, y)` gives 0 .. 1.
template<class Expected>
void expectLevels(const SSheet &sheet, Expected expected, double within = 0)
{
    for (int y = 0; y < sheet.surface.height(); ++y)
        for (int x = 0; x < sheet.surface.width(); ++x)
            ASSERT_NEAR(sheet.level(x, y), 255 * expected(x, y), within) << x << ", " << y;
}

/// Two sheets whose levels differ by no more than `within`.
inline void expectSame(const SSheet &sheet, const SSheet &other, double within = 1e-9)
{
    expectLevels(
        sheet, [&](int x, int y) { return other.level(x, y) / 255.0; }, within);
}

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

/// Random colours, multiplied by random alphas where the image is not opaque.
inline void fillWithNoise(SBitmapImage &image, CNumbers &numbers)
{
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x) {
            const uint32_t alpha = image.opaque ? 255 : numbers.bits() >> 24;
            uint32_t texel = alpha << 24;
            for (int shift = 0; shift < 24; shift += 8)
                texel |= numbers.bits() % (alpha + 1) << shift;
            *image.at(x, y) = texel;
        }
}

} // namespace rastertest
