// Every set of kernels gives the same bytes as the plain one, nothing is drawn outside of the clip
// or the surface, and no argument takes long or breaks anything.

#include "RandomShapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using namespace rastertest;

/// All pixels with the padding at the end of the rows.
std::vector<uint32_t> bytesOf(const CSurface &surface)
{
    if (surface.height() == 0)
        return {};
    return {surface.row(0),
            surface.row(0) + static_cast<ptrdiff_t>(surface.stride()) * surface.height()};
}

void fillWithNoise(CSurface &surface, uint32_t seed)
{
    CNumbers numbers(seed);
    for (int y = 0; y < surface.height(); ++y)
        for (int x = 0; x < surface.stride(); ++x)
            surface.row(y)[x] = numbers.bits() | Black;
}

class EverySet : public testing::TestWithParam<EKernelSet>
{
protected:
    void SetUp() override
    {
        if (!CRasterizer::hasKernels(GetParam()))
            GTEST_SKIP() << "this processor lacks the kernels";
    }
};

TEST_P(EverySet, givesTheBytesOfThePlainOne)
{
    constexpr int Frames = 600;
    constexpr int ShapesPerFrame = 16;
    for (uint32_t frame = 0; frame < Frames; ++frame) {
        CNumbers sizes(frame);
        const int width = sizes.between(1, 180);
        const int height = sizes.between(1, 120);
        SSheet reference(width, height, EKernelSet::Plain);
        SSheet other(width, height, GetParam());
        fillWithNoise(reference.surface, frame);
        fillWithNoise(other.surface, frame);
        CRandomShapes referenceShapes(frame, width, height);
        CRandomShapes otherShapes(frame, width, height);
        for (int i = 0; i < ShapesPerFrame; ++i) {
            referenceShapes.draw(reference.raster);
            otherShapes.draw(other.raster);
            ASSERT_EQ(bytesOf(reference.surface), bytesOf(other.surface))
                << "frame " << frame << ", shape " << i;
        }
    }
}

TEST_P(EverySet, drawsInsideTheClipOnly)
{
    int changed = 0;
    for (uint32_t frame = 0; frame < 300; ++frame) {
        CNumbers sizes(frame + 5000);
        const int width = sizes.between(1, 100);
        const int height = sizes.between(1, 60);
        SSheet sheet(width, height, GetParam());
        CRandomShapes shapes(frame, width, height);
        for (int i = 0; i < 12; ++i) {
            fillWithNoise(sheet.surface, frame);
            const auto before = bytesOf(sheet.surface);
            const SClip clip = sheet.raster.clip(); // the shape may set another one for the next
            shapes.draw(sheet.raster);
            const auto after = bytesOf(sheet.surface);
            for (size_t p = 0; p < before.size(); ++p) {
                const int x = static_cast<int>(p) % sheet.surface.stride();
                const int y = static_cast<int>(p) / sheet.surface.stride();
                const bool isInside =
                    x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
                if (before[p] == after[p])
                    continue;
                ++changed;
                ASSERT_TRUE(isInside)
                    << "frame " << frame << ", shape " << i << " at " << x << ", " << y;
                ASSERT_EQ(after[p] >> 24, 255u) << "the surface must stay opaque";
            }
        }
    }
    EXPECT_GT(changed, 100000) << "the shapes must draw something";
}

/// The largest difference of two channels.
int difference(uint32_t a, uint32_t b)
{
    int largest = 0;
    for (int shift = 0; shift < 32; shift += 8)
        largest = std::max(largest, std::abs(static_cast<int>(a >> shift & 255) -
                                             static_cast<int>(b >> shift & 255)));
    return largest;
}

TEST_P(EverySet, theClipOnlyCuts)
{
    constexpr int Width = 90;
    constexpr int Height = 70;
    for (uint32_t seed = 0; seed < 4000; ++seed) {
        SSheet whole(Width, Height, GetParam());
        SSheet part(Width, Height, GetParam());
        CNumbers numbers(seed);
        const SClip clip{numbers.between(0, 60), numbers.between(0, 50), numbers.between(30, 90),
                         numbers.between(20, 70)};
        part.raster.setClip(clip);
        CRandomShapes(seed, Width, Height).drawShape(whole.raster);
        CRandomShapes(seed, Width, Height).drawShape(part.raster);
        // Far shapes are cut near the clip before they are drawn, which may round otherwise.
        for (int y = clip.top; y < clip.bottom; ++y)
            for (int x = clip.left; x < clip.right; ++x)
                ASSERT_LE(difference(whole.surface.row(y)[x], part.surface.row(y)[x]), 1)
                    << "seed " << seed << " at " << x << ", " << y;
    }
}

TEST_P(EverySet, stretchesBeyondAllNumbersEndSoon)
{
    constexpr int32_t Far = INT32_MAX;
    constexpr int32_t Low = INT32_MIN;
    SSheet sheet(CSurface::MaxSide, 64, GetParam());
    CRasterizer &raster = sheet.raster;
    const SPaint paint{White};
    const SPoint box[] = {{Low, Low}, {Far, Low}, {Far, Far}, {Low, Far}};
    raster.fillPolygon(box, 4, paint);
    EXPECT_EQ(sheet.area(), CSurface::MaxSide * 64.0);
    raster.clear(Black);
    raster.fillRect({Low, Low}, {Far, Far}, 0, paint); // ends one sixteenth before 0
    EXPECT_EQ(sheet.area(), 0);
    raster.fillRect({Low / 2, Low / 2}, {Far, Far}, 16, paint);
    EXPECT_EQ(sheet.area(), CSurface::MaxSide * 64.0);
    raster.clear(Black);
    raster.fillDisc({0, 0}, Far, paint);
    EXPECT_EQ(sheet.area(), CSurface::MaxSide * 64.0);
    raster.clear(Black);
    raster.drawLine({Low, 8}, {Far, 8}, 16, paint); // the first row, whole
    EXPECT_EQ(sheet.area(), CSurface::MaxSide);
    raster.clear(Black);
    raster.strokePolyline(box, 4, true, Far, paint);
    raster.strokeArc({0, 0}, Far, Low, Far, Far, EArcCaps::Round, paint);
    raster.strokeRect({Low, Low}, {Far, Far}, Far, Far, paint);
    raster.fillGradient({Low, Low}, {Far, Far}, Far, Low, White, Black, true);
}

TEST_P(EverySet, anEmptySurfaceTakesEverything)
{
    SSheet sheet(0, 0, GetParam());
    CRandomShapes shapes(1, 10, 10);
    for (int i = 0; i < 200; ++i)
        shapes.draw(sheet.raster);
    sheet.raster.clear(White);
    EXPECT_EQ(sheet.area(), 0);
}

INSTANTIATE_TEST_SUITE_P(Sets, EverySet,
                         testing::Values(EKernelSet::Plain, EKernelSet::Sse2, EKernelSet::Avx2));

} // namespace
