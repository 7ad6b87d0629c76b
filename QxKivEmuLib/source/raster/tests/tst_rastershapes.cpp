// What the shapes look like: areas, crisp edges, symmetry, and how alpha gets onto the surface.
// Kernel sets are compared elsewhere; here the best one is used.

#include "RasterTestSupport.h"

#include <array>
#include <functional>
#include <vector>

namespace {

using namespace rastertest;

constexpr double Pi = 3.14159265358979323846;

// --- Area: the levels of a shape in white on black sum up to its area, wherever it lies.

void polygon(CRasterizer &raster, double x, double y, const std::vector<SPoint> &corners)
{
    std::vector<SPoint> moved;
    for (const SPoint &p : corners)
        moved.push_back({p.x + sub16(x), p.y + sub16(y)});
    raster.fillPolygon(moved.data(), static_cast<int>(moved.size()), {White});
}

void arc(CRasterizer &raster, double x, double y, int start, int sweep, EArcCaps caps)
{
    raster.strokeArc(at(x, y), 30 * 16, start * 64, sweep * 64, 6 * 16, caps, {White});
}

TEST(Area, isThatOfTheShape)
{
    // Round ends by distance are a twelfth of pi larger than their area; corners of a rectangle, a
    // quarter of that each. The rest is how pixels happen to lie along the outline: it evens out
    // over the positions, and in each of them stays below half a percent of the outline's length
    // (small shapes: two percent).
    const double Cap = Pi / 12;
    const double RingArea = Pi * (33.0 * 33 - 27.0 * 27);
    const double RoundFrame =
        (43.0 * 27 - (4 - Pi) * 9.5 * 9.5) - (37.0 * 21 - (4 - Pi) * 6.5 * 6.5);
    const SPaint ink{White};
    using R = CRasterizer &;
    using D = double;
    const struct
    {
        const char *name;
        double area;
        double eachWithin; ///< pixels, for any position
        double meanWithin; ///< pixels, over all positions
        std::function<void(R, D x, D y)> draw;
    } cases[] = {
        {"large disc", Pi * 40 * 40, 1.2, 0.1,
         [&](R r, D x, D y) { r.fillDisc(at(x, y), 640, ink); }},
        {"small disc", Pi * 3.5 * 3.5, 0.45, 0.05,
         [&](R r, D x, D y) { r.fillDisc(at(x, y), 56, ink); }},
        {"disc of one pixel", Pi / 4, 0.12, 0.05,
         [&](R r, D x, D y) { r.fillDisc(at(x, y), 8, ink); }},
        {"disc of a quarter pixel", Pi / 64, 0.02, 0.01,
         [&](R r, D x, D y) { r.fillDisc(at(x, y), 2, ink); }},
        {"rectangle", 37.25 * 20.5, 0.3, 0.1,
         [&](R r, D x, D y) { r.fillRect(at(x - 20, y - 20), at(37.25, 20.5), 0, ink); }},
        {"hairline rectangle", 50 * 0.125, 0.2, 0.1,
         [&](R r, D x, D y) { r.fillRect(at(x - 20, y), at(50, 0.125), 0, ink); }},
        {"rounded rectangle", 40 * 24 - (4 - Pi) * 36 + Cap, 0.6, 0.2,
         [&](R r, D x, D y) { r.fillRect(at(x - 20, y - 12), at(40, 24), 96, ink); }},
        {"frame", 42.0 * 26 - 38 * 22, 0.2, 0.1,
         [&](R r, D x, D y) { r.strokeRect(at(x - 20, y - 12), at(40, 24), 0, 32, ink); }},
        {"rounded frame", RoundFrame, 0.6, 0.2,
         [&](R r, D x, D y) { r.strokeRect(at(x - 20, y - 12), at(40, 24), 128, 48, ink); }},
        {"steep line", 5 * std::hypot(13, 40) + Pi * 2.5 * 2.5 + Cap, 0.4, 0.1,
         [&](R r, D x, D y) { r.drawLine(at(x - 5, y - 20), at(x + 8, y + 20), 80, ink); }},
        {"thin line", 0.25 * std::hypot(40, 9), 0.35, 0.3,
         [&](R r, D x, D y) { r.drawLine(at(x - 20, y - 4), at(x + 20, y + 5), 4, ink); }},
        {"triangle", 640.25, 0.15, 0.05,
         [](R r, D x, D y) {
             polygon(r, x, y, {at(-20, -10), at(20, -3), at(-11.5, 23.5)});
         }},
        {"ring", RingArea, 1.2, 0.1, [](R r, D x, D y) { arc(r, x, y, 0, 360, EArcCaps::Butt); }},
        {"butt, 50 degrees", RingArea * 50 / 360, 0.7, 0.1,
         [](R r, D x, D y) { arc(r, x, y, 20, 50, EArcCaps::Butt); }},
        {"butt, 1 degree", RingArea / 360, 0.4, 0.1,
         [](R r, D x, D y) { arc(r, x, y, 20, 1, EArcCaps::Butt); }},
        {"butt, -300 degrees", RingArea * 300 / 360, 1.2, 0.1,
         [](R r, D x, D y) { arc(r, x, y, 0, -300, EArcCaps::Butt); }},
        {"round, 200 degrees", RingArea * 200 / 360 + Pi * 9 + Cap, 1.2, 0.15,
         [](R r, D x, D y) { arc(r, x, y, 0, 200, EArcCaps::Round); }},
    };
    for (const auto &c : cases) {
        double sum = 0;
        int count = 0;
        for (int dx = 0; dx < 16; dx += 3)
            for (int dy = 0; dy < 16; dy += 3) {
                SSheet sheet(120, 120);
                c.draw(sheet.raster, 60 + dx / 16.0, 60 + dy / 16.0);
                const double error = sheet.area() - c.area;
                EXPECT_NEAR(error, 0, c.eachWithin) << c.name << " at " << dx << ", " << dy;
                sum += error;
                ++count;
            }
        EXPECT_NEAR(sum / count, 0, c.meanWithin) << c.name;
    }
}

// --- Crisp edges

struct SBox
{
    double left, top, right, bottom;
};

double overlap(int pixel, double low, double high)
{
    return std::max(0.0, std::min(pixel + 1.0, high) - std::max<double>(pixel, low));
}

TEST(Crisp, straightShapesCoverTheirAreaOfEachPixel)
{
    using R = CRasterizer &;
    const SPaint ink{White};
    // What is drawn, the box that it fills, and the hole in it.
    const std::tuple<std::function<void(R)>, SBox, SBox> cases[] = {
        {[&](R r) { r.fillRect(at(3, 4), at(20, 11), 0, ink); }, {3, 4, 23, 15}, {}},
        {[&](R r) { r.fillRect(at(3.25, 4.5), at(60.5, 0.75), 0, ink); },
         {3.25, 4.5, 63.75, 5.25},
         {}},
        {[&](R r) { r.fillRect(at(5.125, 10.0625), at(0.5, 12.5), 0, ink); },
         {5.125, 10.0625, 5.625, 22.5625},
         {}},
        {[&](R r) { r.strokeRect(at(3.5, 4.5), at(19, 10), 0, 16, ink); },
         {3, 4, 23, 15},
         {4, 5, 22, 14}},
        {[&](R r) { r.strokeRect(at(10.25, 8.5), at(50.5, 20), 0, 24, ink); },
         {9.5, 7.75, 61.5, 29.25},
         {11, 9.25, 60, 27.75}},
        {[&](R r) {
             polygon(r, 0, 0, {at(3, 4), at(23, 4), at(23, 15), at(3, 15)});
         },
         {3, 4, 23, 15},
         {}},
        {[&](R r) { r.drawLine(at(10.5, 7.5), at(30.5, 7.5), 16, ink); }, {10, 7, 31, 8}, {}},
        {[&](R r) { r.drawLine(at(7.5, 30.5), at(7.5, 10.5), 16, ink); }, {7, 10, 8, 31}, {}},
    };
    for (const auto &[draw, box, hole] : cases) {
        SSheet sheet(80, 40);
        draw(sheet.raster);
        expectLevels(
            sheet,
            [&b = box, &h = hole](int x, int y) {
                return overlap(x, b.left, b.right) * overlap(y, b.top, b.bottom) -
                       overlap(x, h.left, h.right) * overlap(y, h.top, h.bottom);
            },
            0.51);
    }
}

// --- Arcs

/// A piece of a ring, 80 x 80 pixels.
struct SRing : SSheet
{
    SRing(Angle64 start, Angle64 sweep, EArcCaps caps = EArcCaps::Butt) : SSheet(80, 80)
    {
        raster.strokeArc(at(40, 40), 400, start, sweep, 100, caps, {White});
    }
};

TEST(Arc, wholeCircleHasNoSeamWhereverItStarts)
{
    for (int start : {90 * 64, -1234, 7777})
        for (int sweep : {360 * 64, -360 * 64, 1000 * 64})
            expectSame(SRing(start, sweep, EArcCaps::Round), SRing(0, 360 * 64));
}

TEST(Arc, twoPiecesMakeTheWhole)
{
    const SRing whole(0, 360 * 64);
    for (int first : {10 * 64, 89 * 64, 90 * 64, 180 * 64, 200 * 64, 271 * 64, 359 * 64}) {
        const SRing one(333, first), two(333, first - 360 * 64);
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 80; ++x)
                ASSERT_NEAR(one.level(x, y) + two.level(x, y), whole.level(x, y), 1)
                    << first / 64 << " degrees at " << x << ", " << y;
    }
}

// --- Filling rules and unions

TEST(Polygon, evenOddLeavesHoles)
{
    SSheet sheet(60, 60);
    // An outer and an inner square in one direction, joined by a seam that is run both ways.
    polygon(sheet.raster, 0, 0,
            {at(5, 5), at(55, 5), at(55, 55), at(5, 55), at(5, 5), at(20, 20), at(40, 20),
             at(40, 40), at(20, 40), at(20, 20)});
    EXPECT_EQ(sheet.level(30, 30), 0);
    EXPECT_EQ(sheet.level(10, 30), 255);
    EXPECT_NEAR(sheet.area(), 50 * 50 - 20 * 20, 0.01);
}

TEST(Polyline, blendsNothingTwice)
{
    SSheet sheet(60, 60);
    const std::array<SPoint, 5> cross = {at(10, 30), at(50, 30), at(50, 10), at(30, 10),
                                         at(30, 50)};
    sheet.raster.strokePolyline(cross.data(), 5, false, 6 * 16, {0x80FFFFFFu});
    EXPECT_EQ(sheet.level(30, 30), 128) << "where it crosses itself";
    EXPECT_EQ(sheet.level(50, 30), 128) << "where two pieces join";
    EXPECT_EQ(sheet.level(20, 30), 128);
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x)
            ASSERT_LE(sheet.level(x, y), 128);
}

// --- Alpha

int blended(int below, int colour, int alpha)
{
    return static_cast<int>(std::floor((below * (255 - alpha) + colour * alpha) / 255.0 + 0.5));
}

TEST(Blend, isExactForEveryAlphaAndLevel)
{
    for (int alpha = 0; alpha < 256; ++alpha) {
        SSheet sheet(256, 2);
        for (int x = 0; x < 256; ++x)
            sheet.surface.row(0)[x] = sheet.surface.row(1)[x] =
                Black | static_cast<uint32_t>(x << 16 | (255 - x) << 8 | (x * 7 & 255));
        const Argb colour = static_cast<uint32_t>(alpha) << 24 | 0xC8143Cu;
        sheet.raster.fillRect(at(0, 0), at(256, 1), 0, {colour});     // a span
        sheet.raster.fillRect(at(0, 1.5), at(256, 0.5), 0, {colour}); // half covered
        const int half = static_cast<int>(alpha * 0.5 + 0.5);
        for (int x = 0; x < 256; ++x)
            for (int row = 0; row < 2; ++row) {
                const uint32_t pixel = sheet.surface.row(row)[x];
                const int a = row == 0 ? alpha : half;
                ASSERT_EQ(static_cast<int>(pixel >> 16 & 255), blended(x, 0xC8, a)) << alpha;
                ASSERT_EQ(static_cast<int>(pixel >> 8 & 255), blended(255 - x, 0x14, a)) << alpha;
                ASSERT_EQ(static_cast<int>(pixel & 255), blended(x * 7 & 255, 0x3C, a)) << alpha;
                ASSERT_EQ(pixel >> 24, 255u);
            }
    }
}

TEST(Blend, shapesWithoutExtentDrawNothing)
{
    SSheet sheet(40, 40);
    CRasterizer &r = sheet.raster;
    const std::array<SPoint, 3> points = {at(5, 5), at(30, 5), at(5, 30)};
    for (const Sub16 none : {0, -1, -160}) {
        r.fillDisc(at(20, 20), none, {White});
        r.drawLine(at(5, 5), at(30, 30), none, {White});
        r.fillRect(at(5, 5), {none, 160}, 0, {White});
        r.fillRect(at(5, 5), {160, none}, 32, {White});
        r.strokeRect(at(5, 5), at(20, 20), 0, none, {White});
        r.strokeRect(at(5, 5), {none, 160}, 0, 16, {White});
        r.strokeArc(at(20, 20), none, 0, 90 * 64, 16, EArcCaps::Round, {White});
        r.strokeArc(at(20, 20), 160, 0, 90 * 64, none, EArcCaps::Round, {White});
        r.strokePolyline(points.data(), 3, true, none, {White});
        r.fillGradient(at(5, 5), {none, 160}, 0, 0, White, White, true);
        r.fillPolygon(points.data(), 2, {White});
        r.fillPolygon(points.data(), none, {White});
        r.strokePolyline(points.data(), none, true, 16, {White});
    }
    r.strokeArc(at(20, 20), 160, 0, 0, 16, EArcCaps::Butt, {White});
    EXPECT_EQ(sheet.area(), 0);
}

} // namespace
