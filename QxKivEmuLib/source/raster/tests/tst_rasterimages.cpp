// Bitmaps and gradients against straightforward references.

#include "RasterTestSupport.h"

#include <algorithm>
#include <vector>

namespace {

using namespace rastertest;

constexpr Argb Grey = 0xFF707070u;

int channel(uint32_t pixel, int shift)
{
    return static_cast<int>(pixel >> shift & 255);
}

/// Premultiplied over opaque, in real numbers.
double over(double below, double colour, double alpha)
{
    return colour + below * (255 - alpha) / 255;
}

SBitmapImage noise(int width, int height, bool isOpaque, uint32_t seed)
{
    CNumbers numbers(seed);
    SBitmapImage image(width, height);
    image.opaque = isOpaque;
    fillWithNoise(image, numbers);
    return image;
}

/// A texel with the bitmap's wrapping: a channel, or nothing outside.
double texel(const SBitmapImage &image, const SBitmapPlacement &p, int u, int v, int shift)
{
    const auto wrap = [](EBitmapWrap kind, int &i, int side) {
        if (kind == EBitmapWrap::Repeat)
            i = ((i % side) + side) % side;
        return i >= 0 && i < side;
    };
    if (!wrap(p.wrapX, u, image.width) || !wrap(p.wrapY, v, image.height))
        return 0;
    return channel(*image.at(u, v), shift);
}

double sampled(const SBitmapImage &image, const SBitmapPlacement &p, int x, int y, int shift)
{
    const double ox = x + 0.5 - p.topLeft.x / 16.0;
    const double oy = y + 0.5 - p.topLeft.y / 16.0;
    double u = (p.a * ox + p.b * oy + p.c) / 65536;
    double v = (p.d * ox + p.e * oy + p.f) / 65536;
    if (p.filter == EBitmapFilter::Nearest)
        return texel(image, p, static_cast<int>(std::floor(u)), static_cast<int>(std::floor(v)),
                     shift);
    u -= 0.5;
    v -= 0.5;
    const int iu = static_cast<int>(std::floor(u));
    const int iv = static_cast<int>(std::floor(v));
    const auto mix = [](double a, double b, double share) { return a + (b - a) * share; };
    return mix(
        mix(texel(image, p, iu, iv, shift), texel(image, p, iu + 1, iv, shift), u - iu),
        mix(texel(image, p, iu, iv + 1, shift), texel(image, p, iu + 1, iv + 1, shift), u - iu),
        v - iv);
}

bool isCentreInside(const SBitmapPlacement &p, int x, int y)
{
    const int cx = x * 16 + 8;
    const int cy = y * 16 + 8;
    return cx >= p.topLeft.x && cx < p.topLeft.x + p.size.x && cy >= p.topLeft.y &&
           cy < p.topLeft.y + p.size.y;
}

/// Every pixel within `within` levels of the reference.
void expectBitmap(const SBitmapImage &image, const SBitmapPlacement &placement, double within)
{
    SSheet sheet(60, 50);
    sheet.raster.clear(Grey);
    sheet.raster.drawBitmap(image, placement, {White});
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 60; ++x)
            for (int shift = 0; shift < 24; shift += 8) {
                double expected = 0x70;
                if (isCentreInside(placement, x, y))
                    expected = over(expected, sampled(image, placement, x, y, shift),
                                    sampled(image, placement, x, y, 24));
                ASSERT_NEAR(channel(sheet.surface.row(y)[x], shift), expected, within)
                    << x << ", " << y;
            }
}

SBitmapPlacement placed(double x, double y, double width, double height)
{
    SBitmapPlacement placement;
    placement.topLeft = at(x, y);
    placement.size = at(width, height);
    return placement;
}

/// A slant too small to reach another texel keeps the bitmap from being copied row by row.
TEST(Bitmap, copiedRowsAreThoseThatAreLookedUpTexelByTexel)
{
    const SBitmapImage soft = noise(17, 11, false, 6);
    const SBitmapImage solid = noise(5, 23, true, 7);
    size_t drawn = 0;
    for (uint32_t seed = 0; seed < 2000; ++seed) {
        CNumbers numbers(seed);
        const auto any = [&](int low, int high) { return numbers.between(low, high); };
        SSheet copied(60, 50), looked(60, 50);
        SBitmapPlacement placement = placed(any(-20, 30), any(-20, 25), any(1, 90), any(1, 80));
        placement.c = any(-12, 12) * 65536;
        placement.f = any(-12, 12) * 65536;
        placement.wrapX = numbers.oneIn(2) ? EBitmapWrap::Border : EBitmapWrap::Repeat;
        placement.wrapY = numbers.oneIn(2) ? EBitmapWrap::Border : EBitmapWrap::Repeat;
        const SPaint paint{numbers.oneIn(2) ? White : numbers.bits(), !numbers.oneIn(3)};
        const SBitmapImage &image = numbers.oneIn(2) ? soft : solid;
        const SClip clip{any(0, 20), any(0, 20), any(30, 60), any(25, 50)};
        for (SSheet *sheet : {&copied, &looked}) {
            sheet->raster.clear(Grey);
            sheet->raster.setClip(clip);
            sheet->raster.drawBitmap(image, placement, paint);
            placement.b = placement.d = 1;
        }
        for (int y = 0; y < 50; ++y)
            for (int x = 0; x < 60; ++x) {
                ASSERT_EQ(copied.surface.row(y)[x], looked.surface.row(y)[x])
                    << "seed " << seed << " at " << x << ", " << y;
                drawn += copied.surface.row(y)[x] != Grey;
            }
    }
    EXPECT_GT(drawn, 200000u) << "the bitmaps must show";
}

TEST(Bitmap, scaledAndTurned)
{
    // Bilinear positions are kept to 1/128 texel, so a step of 255 levels moves by at most 2 in
    // each direction; smooth pictures would hide faults, noise does not.
    SBitmapPlacement nearest = placed(3.25, 2.125, 50, 40);
    SBitmapPlacement bilinear = nearest;
    std::tie(nearest.a, nearest.b, nearest.c) = std::tuple(40000, -23456, 3 * 65536 + 77);
    std::tie(nearest.d, nearest.e, nearest.f) = std::tuple(23457, 40001, -7 * 65536 - 5);
    std::tie(bilinear.a, bilinear.b, bilinear.c) = std::tuple(-30000, 13456, 18 * 65536 + 77);
    std::tie(bilinear.d, bilinear.e, bilinear.f) = std::tuple(-13457, -30001, 21 * 65536 - 5);
    bilinear.filter = EBitmapFilter::Bilinear;
    for (SBitmapPlacement placement : {nearest, bilinear})
        for (const auto wrapX : {EBitmapWrap::Border, EBitmapWrap::Repeat})
            for (const auto wrapY : {EBitmapWrap::Border, EBitmapWrap::Repeat}) {
                placement.wrapX = wrapX;
                placement.wrapY = wrapY;
                expectBitmap(noise(20, 16, false, 3), placement,
                             placement.filter == EBitmapFilter::Bilinear ? 6 : 1);
            }
}

TEST(Bitmap, tintMultipliesColourAndAlpha)
{
    SBitmapImage image(1, 1);
    *image.at(0, 0) = 0x80402010u; // premultiplied
    SSheet sheet(1, 1);
    sheet.raster.clear(0xFF808080u);
    sheet.raster.drawBitmap(image, placed(0, 0, 1, 1), {0x80FF8000u});
    const double tintAlpha = 128 / 255.0;
    const double rest = 128 * tintAlpha;
    EXPECT_NEAR(channel(*sheet.surface.row(0), 16), over(0x80, 0x40 * tintAlpha, rest), 1);
    EXPECT_NEAR(channel(*sheet.surface.row(0), 8), over(0x80, 0x20 * tintAlpha * 128 / 255, rest),
                1);
    EXPECT_NEAR(channel(*sheet.surface.row(0), 0), over(0x80, 0, rest), 1);
}

TEST(Bitmap, withoutBlendingColoursReplaceWhatIsThere)
{
    SBitmapImage image(2, 1);
    *image.at(0, 0) = 0x80402010u;
    *image.at(1, 0) = 0xFF123456u;
    SSheet sheet(3, 1);
    sheet.raster.clear(0xFF808080u);
    sheet.raster.drawBitmap(image, placed(0, 0, 3, 1), {0x10FFFFFFu, false});
    EXPECT_EQ(sheet.surface.row(0)[0], 0xFF804020u);
    EXPECT_EQ(sheet.surface.row(0)[1], 0xFF123456u);
    EXPECT_EQ(sheet.surface.row(0)[2], 0xFF808080u) << "beside the bitmap";
    for (const int width : {0, -3}) {
        SSheet empty(4, 4);
        empty.raster.drawBitmap(SBitmapImage(width, 3), placed(0, 0, 4, 4), {White});
        EXPECT_EQ(empty.area(), 0) << "a bitmap without pixels";
    }
}

TEST(Gradient, runsFromSideToSide)
{
    const double half = std::sqrt(0.5);
    const std::tuple<int, double, double> cases[] = {
        // degrees and direction
        {0, 1, 0}, {90, 0, 1}, {180, -1, 0}, {-90, 0, -1}, {45, half, half}, {405, half, half}};
    for (const auto &[angle, ux, uy] : cases) {
        SSheet sheet(70, 50);
        sheet.raster.fillGradient(at(5, 4), at(60, 40), 0, angle * 64, 0xFF0040C0u, 0xFFFF4000u,
                                  true);
        const double extent = 60 * std::fabs(ux) + 40 * std::fabs(uy);
        for (int y = 0; y < 50; ++y)
            for (int x = 0; x < 70; ++x) {
                const bool isInside = x >= 5 && x < 65 && y >= 4 && y < 44;
                const double t = 0.5 + ((x + 0.5 - 35) * ux + (y + 0.5 - 24) * uy) / extent;
                const uint32_t pixel = sheet.surface.row(y)[x];
                ASSERT_NEAR(channel(pixel, 16), isInside ? 255 * t : 0, 0.51) << x << ", " << y;
                ASSERT_EQ(channel(pixel, 8), isInside ? 0x40 : 0);
                ASSERT_NEAR(channel(pixel, 0), isInside ? 0xC0 * (1 - t) : 0, 0.51);
            }
    }
}

TEST(Gradient, fadesAndIgnoresAlphaWithoutBlending)
{
    SSheet faded(256, 1), opaque(256, 1);
    faded.raster.fillGradient(at(0, 0), at(256, 1), 0, 0, 0x00FFFFFFu, White, true);
    opaque.raster.fillGradient(at(0, 0), at(256, 1), 0, 0, 0x00FFFFFFu, White, false);
    for (int x = 0; x < 256; ++x) {
        ASSERT_NEAR(faded.level(x, 0), (x + 0.5) * 255 / 256, 0.51);
        ASSERT_EQ(opaque.level(x, 0), 255);
    }
}

} // namespace
